// What the surface does when the pointer moves over it, clicks on it or drops something.

#include "AppData.h"
#include "ChannelManager.h"
#include "GLWidget.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>

void GLWidget::resizeEvent(QResizeEvent*)
{
    _pacer.request();
}

void GLWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        _appData.channelManager()->videoMousePress(event->position() * devicePixelRatio(), event->modifiers());
}

void GLWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        _appData.channelManager()->videoMouseRelease(event->position() * devicePixelRatio(), event->modifiers());
}

void GLWidget::mouseMoveEvent(QMouseEvent* event)
{
    QPointF const point = event->position() * devicePixelRatio();
    _appData.channelManager()->videoMouseMove(point, event->modifiers());
}

void GLWidget::leaveEvent(QEvent*)
{
    _appData.channelManager()->videoMouseMove(QPointF(-1.0, -1.0), Qt::NoModifier);
}

/// A hidden pointer comes back, for a while.
void GLWidget::onCursorChanged(QCursor const& cursor)
{
    if (!underMouse())
        return;
    setCursor(cursor);
    if (_appData.settings.showFullScreen())
        _mouseHideTimer.start();
}

void GLWidget::onMouseHideTimer()
{
    if (_appData.settings.showFullScreen())
        setCursor(Qt::BlankCursor);
}

void GLWidget::onShowFullScreenChanged()
{
    unsetCursor();
    if (_appData.settings.showFullScreen())
        _mouseHideTimer.start();
}

void GLWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        _appData.settings.setShowFullScreen(!_appData.settings.showFullScreen());
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
