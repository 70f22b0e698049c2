#pragma once

#include "OmbravisionDialog.h"

class QLabel;
class QPlainTextEdit;

/// A letter that invites a friend, to be changed, copied or handed to the desktop's mail program. Main thread only.
class InviteDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    InviteDialog(AppData& appData, QWidget* parent);

private:
    void copy();
    void writeMail();

    QPlainTextEdit* _text;
    QLabel* _message; ///< What went wrong.
};
