#pragma once

#include "OmbravisionDialog.h"

/// What the program is, which version, and what it is built on. Main thread only.
class AboutDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    AboutDialog(AppData& appData, QWidget* parent);
};
