#include "Notice.h"

#include "Look.h"
#include "SkinFrame.h"

#include <QEvent>
#include <QStyle>
#include <QWindow>

#include <algorithm>

namespace
{
constexpr qsizetype longestText = 300; // Some of it comes from outside.
constexpr int distance = 12;           // Pixels between the notice and the edges of its place.
constexpr int overControls = 104; // Above the lower edge, where there is room: the controls of the overlay are there.
} // namespace

Notice::Notice(QWidget* parent, QWidget* place) : QLabel(parent), _place(place)
{
    setObjectName("notice");
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAutoFillBackground(true);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(distance / 2);
    QPalette colours = palette(); // As over the picture, but opaque: nothing shines through a native window.
    colours.setColor(QPalette::Window, QColor(Look::overlayGround.rgb()));
    colours.setColor(QPalette::WindowText, Look::overlayText);
    setPalette(colours);
    winId();
    windowHandle()->setFlag(Qt::WindowTransparentForInput); // Clicks are for the picture.
    hide();
    _timer.setSingleShot(true);
    _timer.setInterval(showTime);
    connect(&_timer, &QTimer::timeout, this, &Notice::onPassed);
    _place->installEventFilter(this);
}

void Notice::tell(QString const& text)
{
    display(text);
    _timer.start();
}

void Notice::keep(Subject subject, QString const& text)
{
    _lasting[static_cast<size_t>(subject)] = text;
    if (!_timer.isActive())
        onPassed();
}

void Notice::onPassed()
{
    _timer.stop();
    auto const text = std::find_if(_lasting.cbegin(), _lasting.cend(), [](QString const& t) { return !t.isEmpty(); });
    if (text == _lasting.cend())
        hide();
    else
        display(*text);
}

void Notice::display(QString const& text)
{
    setText(text.size() > longestText ? QString(text.left(longestText) + QChar(0x2026)) : text);
    moveIntoPlace();
    show();
    raise();
}

void Notice::moveIntoPlace()
{
    QRect const room(_place->mapTo(parentWidget(), QPoint(0, 0)), _place->size());
    int const textWidth = fontMetrics().boundingRect(QRect(), Qt::TextExpandTabs, text()).width() + 2 * distance;
    int const width = qMin(room.width() - 2 * distance, textWidth);
    int const height = qMin(heightForWidth(width), room.height() / 2);
    int const below = room.height() > 3 * overControls ? overControls : distance;
    QRect const area(room.left() + distance, room.bottom() - below - height, width, height);
    setGeometry(QStyle::visualRect(layoutDirection(), room, area));
    setMask(SkinFrame::roundedMask(area.size(), Look::radius));
}

bool Notice::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && isVisible())
        moveIntoPlace();
    return QLabel::eventFilter(watched, event);
}
