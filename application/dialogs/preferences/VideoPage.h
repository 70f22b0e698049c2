#pragma once

#include "PreferencesPage.h"

/// How pictures are decoded and drawn. What can't change while a channel plays has it open again.
class VideoPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit VideoPage(AppData& appData);
};
