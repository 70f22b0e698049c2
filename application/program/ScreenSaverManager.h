#pragma once

#include "KeepAwakeManager.h"

/// Decides whether the screen saver may start.
class ScreenSaverManager : public KeepAwakeManager
{
    Q_OBJECT

public:
    using KeepAwakeManager::KeepAwakeManager;

    /// Whether the user's screen saver is switched on: X has no one answer, so it is taken to be.
    static bool enabled() { return true; }
};
