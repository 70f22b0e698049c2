#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <array>
#include <cstdint>
#include <vector>

class QWidget;
struct xcb_connection_t;

/// What the window manager says of a top-level window: whether it stays above all others, and whether it fills the
/// screen (Extended Window Manager Hints, _NET_WM_STATE), and that it has the focus (_NET_ACTIVE_WINDOW).
///
/// Qt's own flag for the former makes a new native window, in which nobody draws who holds the old one. For the
/// latter Qt keeps a notion of its own, which changes in quick succession leave behind; a request from here holds
/// whatever Qt believes. Main thread only. Does nothing where there is no X server.
class WindowManagerState : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// The window is borrowed and outlives this.
    explicit WindowManagerState(QWidget& window);
    ~WindowManagerState() override;

    /// Asks the window manager to keep the window above all others, now or as soon as it is shown.
    void setAbove(bool above);

    /// Asks the window manager to fill the screen with the window, or to end that; before it is shown, Qt does so.
    void setFullScreen(bool full);

    /// Asks for the focus on behalf of the viewer, who may have used another window since: a window manager that
    /// keeps windows from stealing the focus goes by when this one was used last. For windows that have been shown.
    void activate() const;

signals:
    /// The window manager says something, on its own or as an answer; it may be about to obey a request still.
    void aboveChanged(bool above);
    void fullScreenChanged(bool full); ///< Perhaps what is known already.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool nativeEventFilter(QByteArray const& eventType, void* message, qintptr* result) override;
    std::uint32_t windowId() const;
    std::vector<std::uint32_t> readStates() const;
    void request(std::uint32_t state, bool set) const;
    void send(std::uint32_t type, std::array<std::uint32_t, 5> const& data) const;
    void prepare() const;
    void onMapped();
    void onStateChanged();

    QWidget& _window;
    xcb_connection_t* _connection = nullptr; ///< Qt's; null without an X server.
    std::uint32_t _stateAtom = 0;
    std::uint32_t _aboveAtom = 0;
    std::uint32_t _fullScreenAtom = 0;
    std::uint32_t _activeWindowAtom = 0;
    bool _above = false;
    bool _isManaged = false; ///< Mapped since it was shown last: what the window manager says of it counts.
};
