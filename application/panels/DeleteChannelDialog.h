#pragma once

#include "OmbravisionDialog.h"

/// Asks whether a channel is to go from the viewer's list, and tells how one comes back. Main thread only.
class DeleteChannelDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    /// The title is shown as it is.
    DeleteChannelDialog(AppData& appData, QString const& title, QWidget* parent);

signals:
    /// The viewer wants the page on which channels are restored.
    void manageChannels();
};
