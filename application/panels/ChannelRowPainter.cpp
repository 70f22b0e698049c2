#include "ChannelRowPainter.h"

#include "Contrast.h"
#include "LogoPixmaps.h"
#include "Look.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int dotSize = Look::grid;
constexpr int gap = Look::grid;

int lineHeight(QFont const& font)
{
    return QFontMetrics(font).height();
}

} // namespace

ChannelRowPainter::ChannelRowPainter(QPainter& painter, QStyleOptionViewItem const& option)
    : _painter(painter), _option(option), _isSelected(option.state.testFlag(QStyle::State_Selected))
{
    QStyle const* const style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, &painter, option.widget);
}

QFont ChannelRowPainter::smallFont(QFont const& font)
{
    QFont small = font;
    if (font.pointSizeF() > 0)
        small.setPointSizeF(font.pointSizeF() * Look::smallSize);
    return small;
}

QFont ChannelRowPainter::titleFont(QFont const& font)
{
    QFont bold = font;
    bold.setWeight(QFont::DemiBold);
    return bold;
}

int ChannelRowPainter::rowHeight(QStyleOptionViewItem const& option)
{
    return lineHeight(titleFont(option.font)) + lineHeight(smallFont(option.font)) + Look::halfGrid + 2 * gap;
}

int ChannelRowPainter::leastWidth(QStyleOptionViewItem const& option)
{
    constexpr int letters = 28; // A title and a summary that say something.
    constexpr int iconWidth = Look::smallIcon + gap;
    return rowHeight(option) + 2 * gap + letters * QFontMetrics(titleFont(option.font)).averageCharWidth() +
           iconWidth;
}

int ChannelRowPainter::stateWidth(QFont const& font, QString const& text)
{
    return gap + dotSize + Look::halfGrid + QFontMetrics(smallFont(font)).horizontalAdvance(text) + gap;
}

int ChannelRowPainter::widestState(QFont const& font)
{
    int width = 0;
    for (ChannelRowState const state : {ChannelRowState::Playing, ChannelRowState::Previewing, ChannelRowState::Open,
                                        ChannelRowState::Acquiring, ChannelRowState::Failed})
        width = std::max(width, stateWidth(font, ChannelRowStates::text(state)));
    return width;
}

QRect ChannelRowPainter::iconAtEnd(QStyleOptionViewItem const& option)
{
    QRect const cell = option.rect;
    QRect const icon(cell.right() - gap - Look::smallIcon + 1, cell.center().y() - Look::smallIcon / 2,
                     Look::smallIcon, Look::smallIcon);
    return QStyle::visualRect(option.direction, cell, icon);
}

QRect ChannelRowPainter::visual(QRect const& logical) const
{
    return QStyle::visualRect(_option.direction, _option.rect, logical);
}

QColor ChannelRowPainter::textColour(bool isDim) const
{
    bool const isEnabled = _option.state.testFlag(QStyle::State_Enabled);
    QPalette::ColorGroup group = isEnabled ? QPalette::Active : QPalette::Disabled;
    if (isEnabled && !_option.state.testFlag(QStyle::State_Active))
        group = QPalette::Inactive;
    if (_isSelected)
        return _option.palette.color(group, QPalette::HighlightedText);
    QColor const text = _option.palette.color(group, QPalette::Text);
    constexpr double dimShare = 0.7; // Black on white is 8:1 still.
    return isDim ? Contrast::mixed(text, _option.palette.color(group, QPalette::Base), dimShare) : text;
}

void ChannelRowPainter::paintLine(QRect const& area, QFont const& font, QColor const& colour, QString const& text)
{
    if (text.isEmpty() || area.width() <= 0)
        return;
    // Marks upon marks may stand high above their letter.
    QRect const row(area.left(), _option.rect.top(), area.width(), _option.rect.height());
    _painter.save();
    _painter.setClipRect(visual(row), Qt::IntersectClip);
    _painter.setFont(font);
    _painter.setPen(colour);
    QString const shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, area.width());
    bool const isOnRight = _option.direction == Qt::RightToLeft;
    // The text has its own direction, the row says at which side it stands.
    _painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    _painter.drawText(
        visual(area),
        static_cast<int>((isOnRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter) |
            Qt::TextSingleLine,
        shown);
    _painter.restore();
}

int ChannelRowPainter::paintStateIn(QRect const& area, ChannelRowState state)
{
    if (state == ChannelRowState::Closed)
        return 0;
    QRect const dot(area.left() + gap, area.center().y() - dotSize / 2, dotSize, dotSize);
    _painter.save();
    _painter.setRenderHint(QPainter::Antialiasing);
    _painter.setBrush(_isSelected ? textColour(false) : ChannelRowStates::colour(state, _option.palette));
    _painter.setPen(Qt::NoPen);
    _painter.drawEllipse(visual(dot));
    _painter.restore();
    QRect const text = area.adjusted(gap + dotSize + Look::halfGrid, 0, 0, 0);
    paintLine(text, smallFont(_option.font), textColour(false), ChannelRowStates::text(state));
    return stateWidth(_option.font, ChannelRowStates::text(state));
}

void ChannelRowPainter::paintText(QString const& text)
{
    paintLine(_option.rect.adjusted(gap, 0, -gap, 0), smallFont(_option.font), textColour(false), text);
}

void ChannelRowPainter::paintIcon(Icon icon, bool isDim, bool atEnd)
{
    QRect const middle(_option.rect.center() - QPoint(Look::smallIcon / 2, Look::smallIcon / 2),
                       QSize(Look::smallIcon, Look::smallIcon));
    QRect const place = atEnd ? iconAtEnd(_option) : middle;
    double const ratio = _painter.device()->devicePixelRatioF();
    QPixmap pixmap = Icons::pixmap(icon, static_cast<int>(std::lround(Look::smallIcon * ratio)), textColour(isDim));
    pixmap.setDevicePixelRatio(ratio);
    _painter.drawPixmap(place.topLeft(), pixmap);
}

void ChannelRowPainter::paintLogo(QRect const& box, Channel const& channel, LogoPixmaps& logos)
{
    double const ratio = _painter.device()->devicePixelRatioF();
    QRect const place = visual(box);
    QPixmap const pixmap = logos.pixmap(channel.logo, box.size(), ratio);
    if (channel.isDim)
        _painter.setOpacity(0.5);
    if (pixmap.isNull()) {
        int const side = std::min(box.width(), box.height()) * 3 / 4;
        int const pixels = static_cast<int>(std::lround(side * ratio));
        QPixmap standIn = Icons::pixmap(channel.standIn, pixels, textColour(true));
        standIn.setDevicePixelRatio(ratio);
        _painter.drawPixmap(place.center() - QPoint(side / 2, side / 2), standIn);
    } else {
        QSize const size = (QSizeF(pixmap.size()) / ratio).toSize();
        _painter.drawPixmap(place.center() - QPoint(size.width() / 2, size.height() / 2), pixmap);
    }
    _painter.setOpacity(1.0);
}

void ChannelRowPainter::paintChannel(Channel const& channel, LogoPixmaps& logos, bool hasIconAtEnd)
{
    QRect area = _option.rect.adjusted(gap, gap, -gap, -gap);
    QRect const box(area.left(), area.top(), area.height(), area.height());
    paintLogo(box, channel, logos);
    area.setLeft(box.right() + 1 + gap);
    if (hasIconAtEnd)
        area.setRight(area.right() - Look::smallIcon - gap);
    QFont const large = titleFont(_option.font);
    QRect title = area;
    title.setHeight(lineHeight(large));
    bool const isAlone =
        channel.subtitle.isEmpty() && channel.aside.isEmpty() && channel.state == ChannelRowState::Closed;
    if (isAlone)
        title.moveCenter({title.center().x(), area.center().y()});
    paintLine(title, large, textColour(channel.isDim), channel.title);
    area.setTop(area.bottom() + 1 - lineHeight(smallFont(_option.font)));
    paintSecondLine(area, channel);
}

void ChannelRowPainter::paintSecondLine(QRect area, Channel const& channel)
{
    QFont const font = smallFont(_option.font);
    if (channel.state != ChannelRowState::Closed)
        area.setLeft(area.left() - gap + paintStateIn(area.adjusted(-gap, 0, 0, 0), channel.state));
    int const advance = QFontMetrics(font).horizontalAdvance(channel.aside);
    int const wanted = advance > 0 ? advance + 2 : 0; // Rounding must not elide it.
    bool const isRoomy = channel.subtitle.isEmpty() ? wanted <= area.width() : 3 * wanted <= area.width();
    if (wanted > 0 && isRoomy) {
        QRect aside = area;
        // Alone it begins the line.
        if (!channel.subtitle.isEmpty())
            aside.setLeft(aside.right() + 1 - wanted);
        paintLine(aside, font, textColour(true), channel.aside);
        area.setRight(aside.left() - gap);
    }
    paintLine(area, font, textColour(true), channel.subtitle);
}
