#pragma once

#include "SkinFrame.h"

#include <QWidget>

class AppData;

/// A top-level window of the program, with a frame of the window manager's or in the skin, as the settings say.
///
/// What it shows goes into contents(). The skin's stylesheet sets the properties. Main thread only.
class OmbravisionWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int borderRadius READ borderRadius WRITE setBorderRadius)
    Q_PROPERTY(QString borderColourInside READ borderColourInside WRITE setBorderColourInside)
    Q_PROPERTY(QString borderColourOutside READ borderColourOutside WRITE setBorderColourOutside)

public:
    /// `buttons` are those of the title in the skin.
    explicit OmbravisionWidget(AppData& appData, QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::Window,
                               TitleBar::Buttons buttons = TitleBar::Buttons::All);

    int borderRadius() const { return _frame->radius; }
    void setBorderRadius(int radius);
    QString borderColourInside() const { return _frame->colourInside.name(); }
    void setBorderColourInside(QString const& colour);
    QString borderColourOutside() const { return _frame->colourOutside.name(); }
    void setBorderColourOutside(QString const& colour);

    /// The layout within the frame; it has no margins.
    QVBoxLayout* contents() const { return _frame->contents(); }
    SkinFrame* frame() const { return _frame; }
    bool isSkinned() const { return _frame->isSkinned(); }

protected:
    AppData& appData() const { return _data; }
    void generateSkinMask() { _frame->generateSkinMask(); }
    void paintEvent(QPaintEvent* event) override;

private:
    AppData& _data;
    SkinFrame* _frame;
};
