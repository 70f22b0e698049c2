#pragma once

#include "OmbravisionDialog.h"

class GLWidget;
class QLabel;
class QPlainTextEdit;

/// Shows what would help the support, all of it, to be read, copied and saved. Sends nothing. Main thread only; what
/// takes time is gathered elsewhere.
class SupportDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    /// The surface, whose driver is told, is borrowed.
    SupportDialog(AppData& appData, GLWidget& surface, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void gather();
    void copy();
    void chooseFile();
    void save(QString const& path);

    GLWidget& _surface;
    QPlainTextEdit* _report;
    QLabel* _words;
};
