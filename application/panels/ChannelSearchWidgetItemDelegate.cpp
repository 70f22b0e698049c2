#include "ChannelSearchWidgetItemDelegate.h"

#include "ChannelRowPainter.h"
#include "ChannelSearchWidgetModel.h"

#include <QPainter>

void ChannelSearchWidgetItemDelegate::paint(QPainter* painter, QStyleOptionViewItem const& given,
                                            QModelIndex const& index) const
{
    auto const* const row = index.data(ChannelSearchWidgetModel::RowRole).value<ChannelSearchWidgetModelRow const*>();
    if (!row)
        return;
    QStyleOptionViewItem option = given;
    option.index = index;
    painter->save();
    ChannelRowPainter cell(*painter, option);
    if (index.column() == ChannelSearchWidgetModel::StatusColumn) {
        cell.paintState(row->state);
    } else if (index.column() == ChannelSearchWidgetModel::RatingColumn) {
        cell.paintText(index.data().toString());
    } else {
        bool const isRadio = row->description.channelMediaTypes() == ChannelDescription::AudioMedia;
        cell.paintChannel({row->description.packedLogo(), isRadio ? Icon::Radio : Icon::Television, row->title,
                           row->description.isAvailable() ? row->summary : row->description.unavailableReason(),
                           row->isAdded ? tr("Saved") : QString(), !row->description.isAvailable(),
                           _isStateWithChannel ? row->state : ChannelRowState::Closed},
                          _logos, false);
    }
    painter->restore();
}

QSize ChannelSearchWidgetItemDelegate::sizeHint(QStyleOptionViewItem const& option, QModelIndex const&) const
{
    int const height = ChannelRowPainter::rowHeight(option);
    return {height, height};
}
