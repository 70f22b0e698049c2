#pragma once

#include <QScrollArea>

/// Shows a widget as large as it wants to be, and lets it scroll up and down where the screen has no room for that.
class FittingScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes the widget.
    FittingScrollArea(QWidget* contents, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
