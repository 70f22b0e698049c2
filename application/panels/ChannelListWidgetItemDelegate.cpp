#include "ChannelListWidgetItemDelegate.h"

#include "ChannelListWidgetModel.h"
#include "ChannelRowPainter.h"
#include "Look.h"

#include <QAbstractItemView>
#include <QPainter>

namespace
{

ChannelRowPainter::Channel shown(ChannelListWidgetModelRow const& row, bool hasState)
{
    bool const isRadio = row.description.channelMediaTypes() == ChannelDescription::AudioMedia;
    return {row.description.packedLogo(),
            isRadio ? Icon::Radio : Icon::Television,
            row.title,
            row.subtitle(),
            row.languages,
            !row.description.isAvailable(),
            hasState ? row.state : ChannelRowState::Closed};
}

} // namespace

void ChannelListWidgetItemDelegate::paint(QPainter* painter, QStyleOptionViewItem const& given,
                                          QModelIndex const& index) const
{
    auto const* const row = index.data(ChannelListWidgetModel::RowRole).value<ChannelListWidgetModelRow const*>();
    if (!row)
        return;
    QStyleOptionViewItem option = given;
    option.index = index;
    painter->save();
    ChannelRowPainter cell(*painter, option);
    if (index.column() == ChannelListWidgetModel::StatusColumn) {
        cell.paintState(row->state);
    } else if (index.column() == ChannelListWidgetModel::AlertsColumn) {
        if (row->description.hasAlerts())
            cell.paintIcon(row->hasAlertsOn ? Icon::Alert : Icon::AlertOff, !row->hasAlertsOn);
    } else {
        auto const* const view = qobject_cast<QAbstractItemView const*>(option.widget);
        bool const isAtHand = option.state.testFlag(QStyle::State_MouseOver) ||
                              (view && view->hasFocus() && view->currentIndex().row() == index.row());
        bool const hasStar = row->isFavourite || isAtHand;
        cell.paintChannel(shown(*row, _isStateWithChannel), _logos, hasStar);
        if (hasStar)
            cell.paintIcon(row->isFavourite ? Icon::Favourite : Icon::FavouriteOff, !row->isFavourite, true);
    }
    painter->restore();
}

QSize ChannelListWidgetItemDelegate::sizeHint(QStyleOptionViewItem const& option, QModelIndex const&) const
{
    int const height = ChannelRowPainter::rowHeight(option);
    return {height, height};
}

bool ChannelListWidgetItemDelegate::isOnStar(QRect const& cell, Qt::LayoutDirection direction, QPoint const& point)
{
    QStyleOptionViewItem option;
    option.rect = cell;
    option.direction = direction;
    constexpr int around = Look::halfGrid;
    return ChannelRowPainter::iconAtEnd(option).adjusted(-around, -around, around, around).contains(point);
}
