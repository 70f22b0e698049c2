#include "GLPanelControl.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

void GLPanelControl::draw(QPainter& painter, QSizeF const& size)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(style().ground);
    painter.drawRoundedRect(QRectF(QPointF(), size), style().radius, style().radius);
}

void GLPanelControl::arrange(QList<Item> items, QRectF const& row)
{
    auto const needed = [&items] {
        double width = 0.0;
        for (Item const& item : items)
            if (item.isWanted)
                width += item.gap + item.width;
        return width;
    };
    while (needed() > row.width()) {
        auto least = items.end();
        for (auto i = items.begin(); i != items.end(); ++i)
            if (i->isWanted && (least == items.end() || i->importance < least->importance))
                least = i;
        if (least == items.end())
            break;
        for (int const importance = least->importance; Item & item : items)
            item.isWanted = item.isWanted && item.importance != importance;
    }
    double stretches = 0.0;
    for (Item const& item : items)
        stretches += item.isWanted ? item.stretch : 0.0;
    double const spare = std::max(0.0, row.width() - needed());
    double x = row.left();
    for (Item const& item : items) {
        item.control->setVisible(item.isWanted);
        if (!item.isWanted)
            continue;
        double const width = std::floor(item.width + (stretches > 0.0 ? spare * item.stretch / stretches : 0.0));
        x += item.gap;
        QRectF place(x, row.top(), width, row.height());
        if (isMirrored())
            place.moveRight(row.left() + row.right() - x);
        item.control->setGeometry(place);
        x += width;
    }
}
