#pragma once

#include "PreferencesPage.h"

/// What the program does at its start, its language, the window, and where pictures of it go.
class GeneralPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit GeneralPage(AppData& appData);

private:
    void addLanguage();
    void addScreenshotDirectory();
};
