#include "ChannelRowPainter.h"

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

QColor mixed(QColor const& text, QColor const& ground, double share)
{
    auto const part = [share](int a, int b) { return static_cast<int>(std::lround(a * share + b * (1.0 - share))); };
    return {part(text.red(), ground.red()), part(text.green(), ground.green()), part(text.blue(), ground.blue())};
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

int ChannelRowPainter::stateWidth(QFont const& font, QString const& text)
{
    return gap + dotSize + Look::halfGrid + QFontMetrics(smallFont(font)).horizontalAdvance(text) + gap;
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
    return isDim ? mixed(text, _option.palette.color(group, QPalette::Base), dimShare) : text;
}

void ChannelRowPainter::paintLine(QRect const& area, QFont const& font, QColor const& colour, QString const& text,
                                  bool atEnd)
{
    if (text.isEmpty() || area.width() <= 0)
        return;
    _painter.setFont(font);
    _painter.setPen(colour);
    QString const shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, area.width());
    bool const isOnRight = (_option.direction == Qt::RightToLeft) != atEnd;
    // The text has its own direction, the row says at which side it stands.
    _painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    _painter.drawText(
        visual(area),
        static_cast<int>((isOnRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter) |
            Qt::TextSingleLine,
        shown);
}

void ChannelRowPainter::paintState(ChannelRowState state)
{
    if (state == ChannelRowState::Closed)
        return;
    QRect const cell = _option.rect;
    QRect const dot(cell.left() + gap, cell.center().y() - dotSize / 2, dotSize, dotSize);
    _painter.save();
    _painter.setRenderHint(QPainter::Antialiasing);
    _painter.setBrush(_isSelected ? textColour(false) : ChannelRowStates::colour(state, _option.palette));
    _painter.setPen(Qt::NoPen);
    _painter.drawEllipse(visual(dot));
    _painter.restore();
    QRect const text = cell.adjusted(gap + dotSize + Look::halfGrid, 0, 0, 0);
    paintLine(text, smallFont(_option.font), textColour(false), ChannelRowStates::text(state), false);
}

void ChannelRowPainter::paintText(QString const& text)
{
    paintLine(_option.rect.adjusted(gap, 0, -gap, 0), smallFont(_option.font), textColour(false), text, false);
}

void ChannelRowPainter::paintIcon(Icon icon, bool isDim, bool atEnd)
{
    QRect const middle(_option.rect.center() - QPoint(Look::smallIcon / 2, Look::smallIcon / 2),
                       QSize(Look::smallIcon, Look::smallIcon));
    QRect const place = atEnd ? iconAtEnd(_option) : middle;
    double const ratio = _painter.device()->devicePixelRatioF();
    QImage image = Icons::image(icon, static_cast<int>(std::lround(Look::smallIcon * ratio)), textColour(isDim));
    image.setDevicePixelRatio(ratio);
    _painter.drawImage(place.topLeft(), image);
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
        QImage image = Icons::image(channel.standIn, static_cast<int>(std::lround(side * ratio)), textColour(true));
        image.setDevicePixelRatio(ratio);
        _painter.drawImage(place.center() - QPoint(side / 2, side / 2), image);
    } else {
        QSize const size = (QSizeF(pixmap.size()) / ratio).toSize();
        _painter.drawPixmap(place.center() - QPoint(size.width() / 2, size.height() / 2), pixmap);
    }
    _painter.setOpacity(1.0);
}

void ChannelRowPainter::paintChannel(Channel const& channel, LogoPixmaps& logos, bool hasIconAtEnd)
{
    QRect area = _option.rect.adjusted(gap, gap, -gap, -gap);
    QRect const box(area.left(), area.top(), area.height() * 5 / 4, area.height());
    paintLogo(box, channel, logos);
    area.setLeft(box.right() + 1 + gap);
    if (hasIconAtEnd)
        area.setRight(area.right() - Look::smallIcon - gap);
    QFont const large = titleFont(_option.font);
    QFont const small = smallFont(_option.font);
    QRect lines[] = {area, area};
    lines[0].setHeight(lineHeight(large));
    if (channel.subtitle.isEmpty() && channel.aside.isEmpty())
        lines[0].moveCenter({lines[0].center().x(), area.center().y()});
    lines[1].setTop(area.bottom() + 1 - lineHeight(small));
    paintLine(lines[0], large, textColour(channel.isDim), channel.title, false);
    // What is aside takes at most half of the line.
    int const wanted = QFontMetrics(small).horizontalAdvance(channel.aside);
    QRect aside = lines[1];
    aside.setLeft(aside.right() + 1 - std::min(wanted, channel.subtitle.isEmpty() ? area.width() : area.width() / 2));
    if (!channel.aside.isEmpty())
        lines[1].setRight(aside.left() - gap);
    paintLine(lines[1], small, textColour(true), channel.subtitle, false);
    paintLine(aside, small, textColour(true), channel.aside, true);
}
