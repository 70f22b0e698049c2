#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;

/// An alert as it would be shown: at the edge of the screen, as opaque and for as long as the settings say, without
/// taking the keyboard. A click ends it. Main thread only.
class AlertPreview : public QFrame
{
    Q_OBJECT

public:
    explicit AlertPreview(QWidget* parent);

    /// Opacity in per cent, duration in ms; beginning anew if it is there already.
    void present(int opacity, int duration);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QLabel* _bell;
    QLabel* _words;
    QTimer _timer;
};
