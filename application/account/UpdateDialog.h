#pragma once

#include "OmbravisionDialog.h"

#include <QUrl>

class QLabel;
struct SoapLoginResponse;

/// Tells of a newer version of the program, and opens the page that has it in the viewer's browser. Deletes itself
/// when it is closed. What the service says is shown as it is; only an https address is opened.
class UpdateDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    UpdateDialog(AppData& appData, SoapLoginResponse const& response, QWidget* parent = nullptr);

    /// The address of an update, if it is one that may be opened; else an address that is not valid.
    static QUrl downloadUrl(QString const& text);

private:
    QLabel* makeLabel(QString const& text, char const* name);
    void download();

    QUrl const _url;
    QLabel* _message = nullptr; ///< What went wrong.
};
