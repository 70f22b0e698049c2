// What the surface does when the pointer moves over it, clicks on it or drops something, and with keys.

#include "AppData.h"
#include "ChannelManager.h"
#include "GLControlAccessible.h"
#include "GLWidget.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>

#include <utility>

void GLWidget::placeControls()
{
    _layout.setSize(size(), devicePixelRatio());
}

void GLWidget::resizeEvent(QResizeEvent*)
{
    placeControls();
    if (underMouse()) // The window may have moved below it.
        _layout.placePointer(mapFromGlobal(QCursor::pos()));
    _pacer.request();
}

bool GLWidget::wantsKey(QKeyEvent const* event) const
{
    GLControl const* const focus = _layout.focus();
    if (focus && focus->showsFocus() && _layout.wantsKey(event))
        return true;
    return isCarouselShown() && GLCarousel::wantsKey(event);
}

bool GLWidget::event(QEvent* event)
{
    // A key that means something to a control is no shortcut.
    if (event->type() == QEvent::ShortcutOverride && wantsKey(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::ApplicationLayoutDirectionChange)
        _layout.recalcLayout();
    return QWidget::event(event);
}

bool GLWidget::isControlFocused() const
{
    return _layout.focus() && _layout.focus()->isFocusable() && _layout.focus()->isFocused();
}

/// The picture itself comes first, then its controls; backwards they come last to first, then the picture.
bool GLWidget::focusNextPrevChild(bool next)
{
    _overlay.ensureVisible(true); // What cannot be seen has no place in the order.
    bool const isWithin = next ? _layout.focusNext(true) : isControlFocused();
    if (isWithin && !next)
        _layout.focusNext(false);
    return isWithin || QWidget::focusNextPrevChild(next);
}

void GLWidget::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::BacktabFocusReason) {
        _overlay.ensureVisible(true);
        _layout.focusNext(false);
    }
    if (isControlFocused()) // After the widget, for which this event is, has been told of.
        QMetaObject::invokeMethod(
            this, [this] { GLControlAccessible::focusMoved(_layout); }, Qt::QueuedConnection);
}

void GLWidget::onFocusChanged(QWidget*, QWidget* to)
{
    // The ring is where the keys go. Whoever comes back from a menu or a dialog goes on where they were.
    if (to && to != this && to->window() == window() && !qobject_cast<QMenuBar*>(to))
        _layout.setFocus(nullptr);
}

void GLWidget::mousePressEvent(QMouseEvent* event)
{
    placeControls();
    // The release of any other may go to the menu that it opens.
    if (event->button() == Qt::LeftButton)
        _layout.mousePress(event->position(), event);
    else
        event->ignore();
}

void GLWidget::mouseReleaseEvent(QMouseEvent* event)
{
    _layout.mouseRelease(event->position(), event);
}

void GLWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (isCarouselShown() && cursor().shape() == Qt::BlankCursor)
        setCursor(Qt::ArrowCursor);
    _layout.mouseMove(event->position(), event);
    if (hasPointerMoved(event->globalPosition()))
        _overlay.ensureVisible(true);
    if (_appData.settings.showFullScreen())
        _mouseHideTimer.start();
}

void GLWidget::enterEvent(QEnterEvent* event)
{
    if (hasPointerMoved(event->globalPosition()))
        _overlay.onMouseEnteredWidget();
}

/// A window that comes to lie under a pointer that rests is told that it has entered.
bool GLWidget::hasPointerMoved(QPointF place)
{
    // Whole ones: of what the screen is scaled by, the pointer's place knows nothing.
    std::optional<QPoint> const before = std::exchange(_pointer, place.toPoint());
    return before && *before != _pointer;
}

void GLWidget::leaveEvent(QEvent*)
{
    _pointer = QCursor::pos(); // It may come back to where it was, and has moved then all the same.
    _overlay.onMouseLeftWidget();
    _carousel.mouseHover({-1.0, -1.0});
    _appData.channelManager()->videoMouseMove(QPointF(-1.0, -1.0), Qt::NoModifier);
}

void GLWidget::wheelEvent(QWheelEvent* event)
{
    GLControl const* const control = _layout.controlAt(event->position());
    if (isCarouselShown() && (control == &_overlay || _overlay.isCarouselBar(control)))
        _carousel.wheel(event);
    else if (!_layout.mouseWheel(event->position(), event))
        _overlay.onMouseWheel(nullptr, event);
}

void GLWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (_layout.controlAt(event->position()) != &_overlay) {
        _layout.mousePress(event->position(), event); // Two clicks on a button are just that.
        return;
    }
    if (isCarouselShown()) {
        if (_appData.settings.carouselMode())             // Else the first has ended it.
            _layout.mousePress(event->position(), event); // Two clicks on slides are just that as well.
        return;
    }
    if (event->modifiers() != Qt::NoModifier)
        return;
    _appData.channelManager()->videoDoubleClick();
    _appData.settings.setShowFullScreen(!_appData.settings.showFullScreen());
}

void GLWidget::keyPressEvent(QKeyEvent* event)
{
    bool const isOnControl = _layout.focus() && _layout.focus()->showsFocus();
    if (isOnControl && event->key() == Qt::Key_Escape) {
        _layout.setFocus(nullptr);
        _hasTakenEscape = true;
        return;
    }
    if (isOnControl)
        _overlay.ensureVisible(true);
    GLControl* const control = isOnControl && _layout.wantsKey(event) ? _layout.focus() : nullptr;
    if (control) {
        _layout.keyPress(event);
        return;
    }
    event->accept();
    _overlay.keyPress(event);
}

void GLWidget::keyReleaseEvent(QKeyEvent* event)
{
    bool const isOnControl = _layout.focus() && _layout.focus()->showsFocus();
    if (isOnControl && _layout.wantsKey(event)) {
        _layout.keyRelease(event);
        return;
    }
    event->accept();
    _overlay.keyRelease(event);
}

void GLWidget::onVideoKeyPress(QKeyEvent* event)
{
    if (isCarouselShown() && _carousel.keyPress(event)) {
        _hasTakenEscape = event->key() == Qt::Key_Escape;
        return;
    }
    ChannelManager& channels = *_appData.channelManager();
    bool const isPlain = event->modifiers() == Qt::NoModifier;
    bool const isPause = (isPlain && (event->key() == Qt::Key_Space || event->key() == Qt::Key_P)) ||
                         event->key() == Qt::Key_MediaPlay || event->key() == Qt::Key_MediaTogglePlayPause;
    if (isPause && !event->isAutoRepeat()) {
        channels.setPaused(!channels.isPaused());
        _overlay.ensureVisible(true);
        return;
    }
    event->setAccepted(channels.videoKeyPress(event));
}

void GLWidget::onVideoKeyRelease(QKeyEvent* event)
{
    // What has left the carousel or a control when it went down must not leave full screen when it comes up.
    if (event->key() == Qt::Key_Escape && std::exchange(_hasTakenEscape, false))
        return;
    event->setAccepted(_appData.channelManager()->videoKeyRelease(event));
}

void GLWidget::onVideoMousePress(QPointF point, Qt::KeyboardModifiers modifiers)
{
    QPointF const pixel = point * devicePixelRatio();
    if (isCarouselShown()) {
        _carousel.mousePress(pixel);
        return;
    }
    _pressedChannel = _appData.channelManager()->channelIdAt(pixel);
    _pressPoint = point;
    _appData.channelManager()->videoMousePress(pixel, modifiers);
}

void GLWidget::onVideoMouseMove(QPointF point, QMouseEvent* event)
{
    QPointF const pixel = point * devicePixelRatio();
    bool const isHeld = event->buttons().testFlag(Qt::LeftButton);
    if (isCarouselShown()) {
        if (isHeld)
            _carousel.mouseDrag(pixel);
        else
            _carousel.mouseHover(pixel);
        return;
    }
    bool const canMove = isHeld && !_pressedChannel.isEmpty() && _appData.channelManager()->openChannels().size() > 1;
    if (canMove && !_isDragging && (point - _pressPoint).manhattanLength() >= 2 * QApplication::startDragDistance()) {
        _isDragging = true;
        setCursor(Qt::ClosedHandCursor);
    }
    if (!_isDragging)
        _appData.channelManager()->videoMouseMove(pixel, event->modifiers());
}

void GLWidget::onVideoMouseRelease(QPointF point, Qt::KeyboardModifiers modifiers)
{
    QPointF const pixel = point * devicePixelRatio();
    bool const wasDragging = std::exchange(_isDragging, false);
    if (isCarouselShown())
        _carousel.mouseRelease(pixel, modifiers.testFlag(Qt::ControlModifier));
    else if (wasDragging)
        endDrag(pixel);
    else
        _appData.channelManager()->videoMouseRelease(pixel, modifiers);
    _pressedChannel.clear();
}

/// A press whose release nobody is told of, or that means nothing any more, was none.
void GLWidget::cancelPress()
{
    _carousel.mouseCancel();
    _pressedChannel.clear();
    if (std::exchange(_isDragging, false))
        setCursor(_videoCursor);
    if (ChannelManager* const channels = _appData.channelManager()) // Null at the program's end.
        channels->videoMousePress({-1.0, -1.0}, Qt::NoModifier);
}

/// A picture that is let go of over another changes places with it.
void GLWidget::endDrag(QPointF point)
{
    ChannelManager& channels = *_appData.channelManager();
    channels.swapChannels(_pressedChannel, channels.channelIdAt(point));
    channels.videoMousePress({-1.0, -1.0}, Qt::NoModifier); // It was no click.
    channels.videoMouseMove(point, QApplication::keyboardModifiers());
}

/// A hidden pointer comes back, for a while.
void GLWidget::onCursorChanged(QCursor const& cursor)
{
    _videoCursor = cursor;
    if (!underMouse() || _isDragging || _layout.controlAt(mapFromGlobal(QCursor::pos())) != &_overlay)
        return;
    setCursor(cursor);
    if (_appData.settings.showFullScreen())
        _mouseHideTimer.start();
}

void GLWidget::onHoverChanged(GLControl* control)
{
    if (_isDragging)
        return;
    if (control == &_overlay)
        setCursor(_videoCursor);
    else if (control)
        setCursor(control->isFocusable() ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void GLWidget::onMouseHideTimer()
{
    bool const isOnBar = underMouse() && _layout.controlAt(mapFromGlobal(QCursor::pos())) != &_overlay;
    if (_appData.settings.showFullScreen() && !isOnBar)
        setCursor(Qt::BlankCursor);
}

void GLWidget::onShowFullScreenChanged()
{
    unsetCursor();
    if (_appData.settings.showFullScreen())
        _mouseHideTimer.start();
}

void GLWidget::contextMenuEvent(QContextMenuEvent* event)
{
    emit contextMenuRequested(event->globalPos());
}

void GLWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void GLWidget::dropEvent(QDropEvent* event)
{
    QStringList names;
    for (QUrl const& url : event->mimeData()->urls())
        // A local name need not have characters; its address always has.
        names.append(url.isLocalFile() ? QString::fromLatin1(url.toEncoded()) : url.toString());
    emit filesDropped(names);
    event->acceptProposedAction();
}
