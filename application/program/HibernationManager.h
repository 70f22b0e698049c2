#pragma once

#include "KeepAwakeManager.h"

/// Decides whether the system may go to sleep.
class HibernationManager : public KeepAwakeManager
{
    Q_OBJECT

public:
    using KeepAwakeManager::KeepAwakeManager;
};
