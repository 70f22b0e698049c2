#include "ChannelSearchWidgetProxyModel.h"

#include "ChannelSearchWidgetModel.h"

#include <tuple>

bool ChannelSearchWidgetProxyModel::lessThan(QModelIndex const& first, QModelIndex const& second) const
{
    auto const rowOf = [](QModelIndex const& index) {
        return index.data(ChannelSearchWidgetModel::RowRole).value<ChannelSearchWidgetModelRow const*>();
    };
    auto const* const a = rowOf(first);
    auto const* const b = rowOf(second);
    if (!a || !b)
        return false;
    if (first.column() == ChannelSearchWidgetModel::StatusColumn)
        return std::tie(a->state, a->sortKey) < std::tie(b->state, b->sortKey);
    if (first.column() == ChannelSearchWidgetModel::RatingColumn)
        return std::tie(b->rating, a->sortKey) < std::tie(a->rating, b->sortKey);
    return std::tie(a->sortKey, a->id) < std::tie(b->sortKey, b->id);
}
