#include "SkinFrame.h"

#include "AppSettings.h"
#include "Look.h"

#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QWindow>

namespace
{

constexpr int edgeWidth = 5;              // Pixels of a window that resize it.
constexpr int cornerSize = 3 * edgeWidth; // Along an edge.

Qt::CursorShape shapeFor(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

} // namespace

SkinFrame::SkinFrame(QWidget& window, AppSettings const& settings, TitleBar::Buttons buttons)
    : QObject(&window), _window(window), _settings(settings), _contents(new QVBoxLayout),
      _titleBar(new TitleBar(window, buttons))
{
    auto* const layout = new QVBoxLayout(&_window);
    layout->setSpacing(0);
    layout->addWidget(_titleBar);
    layout->addLayout(_contents, 1);
    _contents->setSpacing(0);
    _window.setAttribute(Qt::WA_Hover);
    _window.installEventFilter(this);
    connect(&_settings, &AppSettings::showWindowFrameChanged, this, &SkinFrame::onShowWindowFrameChanged);
    onShowWindowFrameChanged();
}

void SkinFrame::onShowWindowFrameChanged()
{
    bool const isSkinned = !_settings.showWindowFrame();
    Qt::WindowFlags const flags = _window.windowFlags().setFlag(Qt::FramelessWindowHint, isSkinned);
    // setWindowFlags() would make a new native window, in which nobody draws who holds the old one.
    _window.overrideWindowFlags(flags);
    if (QWindow* const native = _window.windowHandle())
        native->setFlags(flags);
    _isSkinned = isSkinned;
    arrange();
    emit skinChanged();
}

bool SkinFrame::hasEdges() const
{
    return _isSkinned && !(_window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
}

void SkinFrame::arrange()
{
    int const margin = hasEdges() ? edgeWidth : 0;
    _window.layout()->setContentsMargins(margin, margin, margin, margin);
    _titleBar->setVisible(_isSkinned && !_window.isFullScreen());
    generateSkinMask();
    _window.update();
}

QRegion SkinFrame::roundedMask(QSize const& size, int radius)
{
    int const round = qBound(0, radius, qMin(size.width(), size.height()) / 2);
    QRegion mask(QRect(QPoint(), size));
    if (round == 0)
        return mask;
    QRect const square(0, 0, round, round);
    QRegion corner = QRegion(square) - QRegion(QRect(0, 0, 2 * round, 2 * round), QRegion::Ellipse);
    for (auto const& [x, y] : {std::pair(0, 0), {1, 0}, {0, 1}, {1, 1}}) {
        QTransform turn;
        turn.translate(x ? size.width() : 0, y ? size.height() : 0);
        turn.scale(x ? -1 : 1, y ? -1 : 1);
        mask -= turn.map(corner);
    }
    return mask;
}

void SkinFrame::generateSkinMask()
{
    if (hasEdges() && radius > 0)
        _window.setMask(roundedMask(_window.size(), radius));
    else
        _window.clearMask();
}

void SkinFrame::paint() const
{
    if (!hasEdges())
        return;
    QPainter painter(&_window);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    QRectF line(_window.rect());
    qreal round = radius;
    for (QColor const& colour : {colourOutside, colourInside}) {
        line.adjust(0.5, 0.5, -0.5, -0.5);
        if (colour.isValid()) {
            painter.setPen(colour);
            painter.drawRoundedRect(line, round, round);
        }
        line.adjust(0.5, 0.5, -0.5, -0.5);
        round = qMax(0.0, round - 1.0);
    }
}

Qt::Edges SkinFrame::edgesAt(QPoint const& point) const
{
    QRect const all = _window.rect();
    if (!hasEdges() || !all.contains(point) ||
        all.adjusted(edgeWidth, edgeWidth, -edgeWidth, -edgeWidth).contains(point))
        return {};
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, point.x() < cornerSize);
    edges.setFlag(Qt::RightEdge, point.x() >= all.width() - cornerSize);
    edges.setFlag(Qt::TopEdge, point.y() < cornerSize);
    edges.setFlag(Qt::BottomEdge, point.y() >= all.height() - cornerSize);
    return edges;
}

void SkinFrame::showEdgeCursor(Qt::Edges edges)
{
    if (edges)
        _window.setCursor(shapeFor(edges));
    else if (_hasEdgeCursor)
        _window.unsetCursor();
    _hasEdgeCursor = bool(edges);
}

bool SkinFrame::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
        generateSkinMask();
        break;
    case QEvent::WindowStateChange:
        arrange();
        break;
    case QEvent::HoverMove: // Comes from the children, too.
        showEdgeCursor(edgesAt(static_cast<QHoverEvent*>(event)->position().toPoint()));
        break;
    case QEvent::HoverLeave:
        showEdgeCursor({});
        break;
    case QEvent::MouseButtonPress: {
        auto const* const press = static_cast<QMouseEvent*>(event);
        Qt::Edges const edges = edgesAt(press->position().toPoint());
        if (edges && press->button() == Qt::LeftButton)
            return _window.windowHandle()->startSystemResize(edges);
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
