#pragma once

#include "SkinFrame.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

class AppData;
class QLabel;
class QPushButton;
class QScrollArea;

/// A dialog of the program, with a frame of the window manager's or in the skin, as the settings say: a heading, what
/// it is about, a row of buttons. On a small screen what it is about scrolls. Escape rejects it. Main thread only.
class OmbravisionDialog : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(int borderRadius READ borderRadius WRITE setBorderRadius)
    Q_PROPERTY(QString borderColourInside READ borderColourInside WRITE setBorderColourInside)
    Q_PROPERTY(QString borderColourOutside READ borderColourOutside WRITE setBorderColourOutside)

public:
    OmbravisionDialog(AppData& appData, QString const& title, QWidget* parent = nullptr);

    /// A line of large plain text above everything else; there is none while it is empty.
    void setHeading(QString const& text);

    /// Where the parts of the dialog go.
    QVBoxLayout* contents() const { return _contents; }

    /// Accept and reject roles do so. The row is hidden as long as it has no button.
    QDialogButtonBox* buttons() const { return _buttons; }
    QPushButton* addButton(QDialogButtonBox::StandardButton button);
    QPushButton* addButton(QString const& text, QDialogButtonBox::ButtonRole role);

    int borderRadius() const { return _frame->radius; }
    void setBorderRadius(int radius);
    QString borderColourInside() const { return _frame->colourInside.name(); }
    void setBorderColourInside(QString const& colour);
    QString borderColourOutside() const { return _frame->colourOutside.name(); }
    void setBorderColourOutside(QString const& colour);
    bool isSkinned() const { return _frame->isSkinned(); }

protected:
    AppData& appData() const { return _data; }
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void putButtonsLast();

    AppData& _data;
    SkinFrame* _frame;
    QLabel* _heading;
    QVBoxLayout* _contents;
    QDialogButtonBox* _buttons;
};
