#pragma once

#include "GLCarouselBar.h"
#include "GLChannelBar.h"
#include "GLFrameControl.h"
#include "GLPadControl.h"
#include "GLTitleBar.h"

#include <QTimer>

class AppData;
class Channel;
class ChannelDescription;
class GLControlLayout;

/// What lies over the picture: bars that come when the pointer moves and go when it rests, and short words.
///
/// Covers the whole surface, so what happens on none of its bars is the picture's, and told by the signals that begin
/// with "video". Positions are device-independent pixels of the surface. Main thread only.
class GLOverlay : public GLControl
{
    Q_OBJECT

public:
    static constexpr int fadeInterval = 2500;    ///< ms of rest after which the bars go.
    static constexpr int messageInterval = 1000; ///< ms that a message stands.

    /// Adds itself to the layout, which is borrowed.
    GLOverlay(AppData& appData, GLControlLayout* layout, QObject* parent = nullptr);
    ~GLOverlay() override;

    /// Shows the top of the overlay, with `both` its bottom too, and has them go after an interval of rest. Nothing
    /// in carousel mode.
    void ensureVisible(bool both);

    /// An alert that the viewer has to see keeps what is shown.
    void setHeldByAlert(bool held);

    /// Whether a bar can be seen.
    bool areBarsVisible() const;

    /// Words over the picture, gone again after messageInterval.
    void showMessage(QString const& text);

    /// Which channel is in the middle of the carousel.
    void setCarouselChannel(QString const& rootId);

    GLIndicatorBar& indicators() { return _top.indicators(); }
    /// Whether it is the carousel's bar or one of its buttons.
    bool isCarouselBar(GLControl const* control) const;
    GLControl* topCanvas() { return &_top; }
    GLControl* bottomCanvas() { return &_bottom; }

    void mousePress(QPointF point, QMouseEvent* event) override;
    void mouseMove(QPointF point, QMouseEvent* event) override;
    void mouseRelease(QPointF point, QMouseEvent* event) override;
    void keyPress(QKeyEvent* event) override;
    void keyRelease(QKeyEvent* event) override;
    void recalcLayout(double scale) override;

signals:
    /// The first bar has come, or the last has gone.
    void visibilityChanged(bool visible);
    void carouselButtonPressed(QString name, int steps);
    void screenshotPressed();
    void videoMousePress(QPointF point, Qt::KeyboardModifiers modifiers);
    void videoMouseMove(QPointF point, QMouseEvent* event);
    void videoMouseRelease(QPointF point, Qt::KeyboardModifiers modifiers);
    void videoKeyPress(QKeyEvent* event);
    void videoKeyRelease(QKeyEvent* event);

public slots:
    void onFadeTimer();
    void onMouseEntered(GLControl* control);
    void onMouseLeft(GLControl* control);
    void onMouseWheel(GLControl* control, QWheelEvent* event);
    void onMouseEnteredWidget();
    void onMouseLeftWidget();
    void onPerspectiveChanged();
    void onCarouselModeChanged();
    void onSignedInChanged();
    void onShowTabsChanged();
    void onShowFullScreenChanged();
    void onChannelError(Channel* channel, QString const& text);
    void onChannelStateChanged(Channel* channel, QString const& text);
    void onChannelChanged(Channel* from, Channel* to);
    void onChannelsUpdated();
    void onChannelLogoUpdated(ChannelDescription const& description);
    void onSignInPressed(GLControl* control, QPointF point, QMouseEvent* event);
    void onMouseEnteredSignInButton(GLControl* control);
    void onMouseLeftSignInButton(GLControl* control);
    void onTopCanvasVisibilityChanged(bool visible);
    void onBottomCanvasVisibilityChanged(bool visible);
    void onVideoMousePress();
    /// The channel under the pointer; empty for none.
    void onMouseEnteredChannel(QString const& rootId);
    void onMouseLeftChannel(QString const& rootId);
    /// Puts the mark on the active one of several channels.
    void updateMark();

private:
    void connectHub();
    void connectControls();
    void fadeIn(GLControl& canvas);
    void fadeOut(GLControl& canvas);
    bool isPointerOver() const;
    bool isHeld() const;
    void updateTitle();
    void updateHint();
    void showPosition();
    void updateVolume();
    void onHoverChanged(GLControl* control);
    void showButtonTip(GLButtonControl const& button);
    void onPreviewChanged(std::optional<double> seconds, double x);
    void showTip(QString const& text, QPointF middle, bool above);
    void hideTip();
    QPointF originOf(GLControl const* control) const;
    void layOut();

    AppData& _appData;
    GLControlLayout* const _layout;
    GLFrameControl _mark; ///< Around the active channel.
    GLTitleBar _top;
    GLChannelBar _bottom;
    GLCarouselBar _carousel;
    GLPadControl _pad; ///< From where the perspective is seen.
    GLLabelControl _message;
    GLLabelControl _hint; ///< What to do while nothing plays.
    GLLabelControl _tip;
    QTimer _fadeTimer;
    QTimer _messageTimer;
    QTimer _hintTimer;
    bool _hasRested = false; ///< The mouse, for a whole interval, but for what is over the bars.
    bool _isHeldByAlert = false;
    bool _isPointerOverTop = false;
    bool _isPointerOverBottom = false;
    bool _wasVisible = false;
    QMetaObject::Connection _tipWords; ///< To what the button under the pointer is called.
    QString _carouselChannel;          ///< By its root id.
    bool _hasShownChannel = false;
    QString _toldError; ///< The bar was called up for it.
};
