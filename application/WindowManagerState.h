#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>

class QWidget;
struct xcb_connection_t;

/// What the window manager knows about a top-level window beyond Qt's window states: whether it stays above all
/// others (Extended Window Manager Hints, _NET_WM_STATE).
///
/// Qt's own flag for that makes a new native window, in which nobody draws who holds the old one. Main thread only.
/// Does nothing where there is no X server.
class WindowManagerState : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// The window is borrowed and outlives this.
    explicit WindowManagerState(QWidget& window);
    ~WindowManagerState() override;

    /// Asks the window manager to keep the window above all others, now or as soon as it is shown.
    void setAbove(bool above);

signals:
    /// The window manager has raised the window above all others, or put it back, on its own.
    void aboveChanged(bool above);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool nativeEventFilter(QByteArray const& eventType, void* message, qintptr* result) override;
    std::uint32_t windowId() const;
    bool readAbove() const;
    void request() const;
    void prepare() const;
    void onMapped();
    void onStateChanged();

    QWidget& _window;
    xcb_connection_t* _connection = nullptr; ///< Qt's; null without an X server.
    std::uint32_t _stateAtom = 0;
    std::uint32_t _aboveAtom = 0;
    bool _above = false;
    bool _isManaged = false; ///< Mapped since it was shown last: what the window manager says of it counts.
};
