#include "Notice.h"

#include <QEvent>
#include <QWindow>

namespace
{
constexpr int distance = 12; // Pixels between the notice and the edges of its place.
}

Notice::Notice(QWidget* parent, QWidget* place) : QLabel(parent), _place(place)
{
    setObjectName("notice");
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAutoFillBackground(true);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(distance / 2);
    winId();
    windowHandle()->setFlag(Qt::WindowTransparentForInput); // Clicks are for the picture.
    hide();
    _timer.setSingleShot(true);
    _timer.setInterval(showTime);
    connect(&_timer, &QTimer::timeout, this, &Notice::showKept);
    _place->installEventFilter(this);
}

void Notice::tell(QString const& text)
{
    showText(text);
    _timer.start();
}

void Notice::keep(QString const& text)
{
    _kept = text;
    if (!_timer.isActive())
        showKept();
}

void Notice::showKept()
{
    if (_kept.isEmpty())
        hide();
    else
        showText(_kept);
}

void Notice::showText(QString const& text)
{
    setText(text);
    moveIntoPlace();
    show();
    raise();
}

void Notice::moveIntoPlace()
{
    QRect const room(_place->mapTo(parentWidget(), QPoint(0, 0)), _place->size());
    int const textWidth = fontMetrics().boundingRect(QRect(), Qt::TextExpandTabs, text()).width() + 2 * distance;
    int const width = qMin(room.width() - 2 * distance, textWidth);
    resize(width, heightForWidth(width));
    move(room.left() + distance, room.bottom() - distance - height());
}

bool Notice::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible())
        moveIntoPlace();
    return QLabel::eventFilter(watched, event);
}
