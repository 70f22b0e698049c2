#pragma once

#include "PreferencesPage.h"

class AlertPreview;

/// Which alerts are shown, and how.
class AlertsPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit AlertsPage(AppData& appData);

private:
    AlertPreview* _preview = nullptr; ///< Made when first wanted.
};
