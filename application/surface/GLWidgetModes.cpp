// The surface's modes: overlay, carousel, and what lies over the picture.

#include "AppData.h"
#include "ChannelManager.h"
#include "GLWidget.h"
#include "Look.h"

#include <QApplication>

void GLWidget::onOverlayVisibilityChanged(bool visible)
{
    if (!visible && underMouse())
        onMouseHideTimer();
    _pacer.request();
}

void GLWidget::onCarouselModeChanged()
{
    cancelPress(); // What it was on is elsewhere now.
    if (_appData.settings.carouselMode()) {
        if (!_carousel.enter()) {
            _overlay.showMessage(tr("There are no channels yet"));
            QMetaObject::invokeMethod(
                this, [this] { _appData.settings.setCarouselMode(false); }, Qt::QueuedConnection);
            return;
        }
        _zoomAnimation.start(0.0, 1.0, Look::motion(Look::moveMilliseconds));
        // Its keys are the surface's.
        _focusBeforeCarousel = hasFocus() ? nullptr : QApplication::focusWidget();
        setFocus(Qt::OtherFocusReason);
    } else if (isCarouselShown()) {
        if (_focusBeforeCarousel && hasFocus())
            _focusBeforeCarousel->setFocus(Qt::OtherFocusReason);
        _focusBeforeCarousel = nullptr;
        _zoomAnimation.startTo(0.0, Look::motion(Look::moveMilliseconds));
    }
}

/// A hidden window plays nothing, neither what the carousel looks at.
void GLWidget::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!window()->isHidden())
        return;
    _appData.settings.setCarouselMode(false);
    _zoomAnimation.setValue(0.0);
    _carousel.leave();
}

void GLWidget::onZoomAnimationValueChanged(GLAnimation*)
{
    _pacer.request();
}

void GLWidget::onZoomAnimationCompleted(GLAnimation*)
{
    if (_appData.settings.carouselMode())
        return;
    _carousel.leave();
    _pacer.request();
}

void GLWidget::onCarouselActiveChannelChanged(QString const& rootId)
{
    _overlay.setCarouselChannel(rootId);
}

void GLWidget::onCarouselBarButtonPressed(QString const& name, int steps)
{
    if (steps != 0)
        _carousel.step(steps);
    else
        _carousel.openActive(name == "Multiview Button");
}

void GLWidget::onCarouselMouseEnteredSlide(GLCarouselSlide* slide)
{
    setCursor(slide->rootId() == _carousel.activeChannel() ? *_appData.playCursor()
                                                           : QCursor(Qt::PointingHandCursor));
}

void GLWidget::onCarouselMouseLeftSlide(GLCarouselSlide*)
{
    setCursor(Qt::ArrowCursor);
}

void GLWidget::onWebOverlayLoadStarted()
{
    onWebOverlayLoadProgress(0);
}

void GLWidget::onWebOverlayLoadProgress(int percent)
{
    _overlay.showMessage(tr("Loading... %1 %").arg(percent));
}

void GLWidget::onWebOverlayLoadFinished(bool ok)
{
    if (ok)
        emit webOverlayLoaded();
    else
        _overlay.showMessage(tr("The page could not be loaded"));
}
