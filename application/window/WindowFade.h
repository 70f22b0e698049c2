#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

/// Makes a window a little translucent and opaque again, step by step, and lets it fade before it is hidden. Seen
/// only where something composes the screen; where nothing does, or the desktop wants no motion, hiding does not
/// wait. Main thread only.
class WindowFade : public QObject
{
    Q_OBJECT

public:
    /// The window is borrowed and outlives this.
    explicit WindowFade(QWidget& window);

    /// Out at full opacity, otherwise in.
    void toggle();
    void fadeIn();
    void fadeOut();
    /// Hides the window, after a fade where that is on.
    void hideWindow();
    /// The window is wanted after all: ends a fade before hiding. Shows it wholly.
    void showWindow();

private slots:
    void onFadeIn();
    void onFadeOut();

private:
    bool isFadingOn() const;

    QWidget& _window;
    QTimer _fadeInTimer;
    QTimer _fadeOutTimer;
    bool _hidesAfter = false;
};
