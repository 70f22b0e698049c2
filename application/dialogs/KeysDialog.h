#pragma once

#include "OmbravisionDialog.h"

class QTreeWidget;

/// The table of keys: those of the menus as they are, and those that belong to no menu. Main thread only.
class KeysDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    /// The window whose actions are told is the parent, too.
    KeysDialog(AppData& appData, QWidget* window);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill();

    QWidget* const _window;
    QTreeWidget* _table;
};
