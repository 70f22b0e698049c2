#include "GLLabelControl.h"

#include "GLControlAccessible.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace
{
constexpr qsizetype longestText = 500; ///< Characters: a title can have any number of them.
}

void GLLabelControl::setText(QString const& text)
{
    QString const line = text.left(longestText).simplified();
    if (line == _text)
        return;
    _text = line;
    update();
    emit labelChanged(this);
    GLControlAccessible::changed(*this);
}

void GLLabelControl::setFont(QFont const& font)
{
    _font = font;
    update();
}

void GLLabelControl::setColour(QColor const& colour)
{
    _colour = colour;
    update();
}

void GLLabelControl::setAlignment(Qt::Alignment alignment)
{
    _alignment = alignment;
    update();
}

void GLLabelControl::setGrounded(bool grounded)
{
    _isGrounded = grounded;
    update();
}

QSizeF GLLabelControl::preferredSize() const
{
    QFontMetricsF const metrics(font());
    double const padding = _isGrounded ? 2.0 * style().padding : 0.0;
    return {std::ceil(metrics.horizontalAdvance(_text)) + 1.0 + padding, std::ceil(metrics.height()) + padding / 2.0};
}

void GLLabelControl::draw(QPainter& painter, QSizeF const& size)
{
    QRectF area(QPointF(), size);
    if (_text.isEmpty())
        return;
    if (_isGrounded) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(style().ground);
        painter.drawRoundedRect(area, style().radius, style().radius);
        area.adjust(style().padding, 0.0, -style().padding, 0.0);
    }
    painter.setFont(font());
    painter.setPen(_colour.isValid() ? _colour : style().text);
    QString const shown = QFontMetricsF(font()).elidedText(_text, Qt::ElideRight, area.width());
    // Words have their own direction, whatever the side is on which they stand.
    Qt::Alignment side = _alignment;
    if (isMirrored() && !(side & Qt::AlignHCenter))
        side = side & Qt::AlignRight ? Qt::AlignLeft : Qt::AlignRight;
    painter.setLayoutDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(area, static_cast<int>(side | Qt::AlignAbsolute | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}
