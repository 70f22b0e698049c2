#include "ChannelListWidgetProxyModel.h"

#include "FoldedText.h"

#include <algorithm>
#include <numeric>
#include <utility>

int ChannelListWidgetProxyModel::typesOf(Kind kind)
{
    using Description = ChannelDescription;
    switch (kind) {
    case Kind::PremiumPartner:
        return Description::SecureChannel | Description::PayPerViewChannel;
    case Kind::FreePartner:
        return Description::PublicChannel;
    case Kind::ViewerAdded:
        return Description::UserChannel | Description::UserStreamChannel | Description::FileChannel;
    case Kind::Any:
        break;
    }
    return ~0;
}

void ChannelListWidgetProxyModel::setChannelModel(ChannelListWidgetModel* model)
{
    _channels = model;
    setSourceModel(model);
    connect(model, &QAbstractItemModel::dataChanged, this, &ChannelListWidgetProxyModel::onSourceDataChanged);
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this,
            &ChannelListWidgetProxyModel::onSourceAboutToBeReset);
    connect(model, &QAbstractItemModel::modelReset, this, &ChannelListWidgetProxyModel::onSourceReset);
    arrange(true);
}

void ChannelListWidgetProxyModel::setKind(Kind kind)
{
    if (std::exchange(_kind, kind) != kind)
        change(false);
}

void ChannelListWidgetProxyModel::setFavouritesOnly(bool on)
{
    if (std::exchange(_favouritesOnly, on) != on)
        change(false);
}

void ChannelListWidgetProxyModel::setFilterText(QString const& text)
{
    QStringList const words = FoldedText::words(text);
    if (std::exchange(_words, words) != words)
        change(false);
}

void ChannelListWidgetProxyModel::sort(int column, Qt::SortOrder order)
{
    if (column == _sortColumn && order == _sortOrder)
        return;
    _sortColumn = column;
    _sortOrder = order;
    change(true);
}

bool ChannelListWidgetProxyModel::accepts(ChannelListWidgetModelRow const& row) const
{
    if (_favouritesOnly && !row.isFavourite)
        return false;
    if (_kind != Kind::Any && (row.description.channelType() & typesOf(_kind)) == 0)
        return false;
    return FoldedText::hasAll(row.filterKey, _words);
}

bool ChannelListWidgetProxyModel::isBefore(int first, int second) const
{
    ChannelListWidgetModelRow const& a = _channels->row(first);
    ChannelListWidgetModelRow const& b = _channels->row(second);
    auto const rank = [this](ChannelListWidgetModelRow const& row) {
        if (_sortColumn == ChannelListWidgetModel::StatusColumn)
            return static_cast<int>(row.state);
        if (_sortColumn == ChannelListWidgetModel::AlertsColumn)
            return (row.hasAlertsOn ? 0 : 1) + (row.description.hasAlerts() ? 0 : 1);
        return 0;
    };
    bool const isDescending = _sortOrder == Qt::DescendingOrder;
    if (int const ranks[] = {rank(a), rank(b)}; ranks[0] != ranks[1])
        return (ranks[0] < ranks[1]) != isDescending;
    if (int const names = a.sortKey.compare(b.sortKey); names != 0)
        return (names < 0) != (isDescending && _sortColumn == ChannelListWidgetModel::NameColumn);
    return a.rootId < b.rootId;
}

void ChannelListWidgetProxyModel::onSourceDataChanged(QModelIndex const& first, QModelIndex const& last,
                                                      QList<int> const& roles)
{
    if (roles.contains(ChannelListWidgetModel::FilterRole)) {
        // Most of the time a row stays where it is.
        bool isArranged = first.row() == last.row();
        if (isArranged) {
            auto const at = std::find(_order.cbegin(), _order.cend(), first.row());
            isArranged = (at == _order.cbegin() || !isBefore(*at, *std::prev(at))) &&
                         (std::next(at) == _order.cend() || !isBefore(*std::next(at), *at)) &&
                         accepts(_channels->row(*at)) == (_places[static_cast<size_t>(*at)] >= 0);
        }
        if (!isArranged)
            change(true);
    }
    // What is beside each other there is in runs here as well, or far apart: then one signal is for all.
    int top = rowCount();
    int bottom = -1;
    for (int row = first.row(); row <= last.row(); ++row) {
        int const place = _places[static_cast<size_t>(row)];
        top = place >= 0 ? std::min(top, place) : top;
        bottom = std::max(bottom, place);
    }
    if (bottom >= top)
        emit dataChanged(index(top, first.column()), index(bottom, last.column()), roles);
}

void ChannelListWidgetProxyModel::change(bool isOrderTouched)
{
    emit layoutAboutToBeChanged();
    keepIndexes();
    arrange(isOrderTouched);
    restoreIndexes();
    emit layoutChanged();
}

void ChannelListWidgetProxyModel::onSourceAboutToBeReset()
{
    emit layoutAboutToBeChanged();
    keepIndexes();
}

void ChannelListWidgetProxyModel::onSourceReset()
{
    arrange(true);
    restoreIndexes();
    emit layoutChanged();
}

void ChannelListWidgetProxyModel::keepIndexes()
{
    _kept = persistentIndexList();
    _keptIds.clear();
    for (QModelIndex const& index : std::as_const(_kept))
        _keptIds.append(_channels->row(_rows[static_cast<size_t>(index.row())]).rootId);
}

void ChannelListWidgetProxyModel::arrange(bool isOrderTouched)
{
    auto const count = static_cast<size_t>(_channels->rowCount());
    if (isOrderTouched || _order.size() != count) {
        _order.resize(count);
        std::iota(_order.begin(), _order.end(), 0);
        std::sort(_order.begin(), _order.end(), [this](int a, int b) { return isBefore(a, b); });
    }
    _rows.clear();
    _rows.reserve(count);
    _places.assign(count, -1);
    for (int const row : _order) {
        if (!accepts(_channels->row(row)))
            continue;
        _places[static_cast<size_t>(row)] = static_cast<int>(_rows.size());
        _rows.push_back(row);
    }
}

void ChannelListWidgetProxyModel::restoreIndexes()
{
    QModelIndexList now;
    for (qsizetype i = 0; i < _kept.size(); ++i) {
        int const row = _channels->findRow(_keptIds.at(i));
        int const place = row < 0 ? -1 : _places[static_cast<size_t>(row)];
        now.append(place < 0 ? QModelIndex() : createIndex(place, _kept.at(i).column()));
    }
    changePersistentIndexList(_kept, now);
    _kept.clear();
    _keptIds.clear();
}

QModelIndex ChannelListWidgetProxyModel::mapToSource(QModelIndex const& index) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    return _channels->index(_rows[static_cast<size_t>(index.row())], index.column());
}

QModelIndex ChannelListWidgetProxyModel::mapFromSource(QModelIndex const& index) const
{
    if (!index.isValid() || static_cast<size_t>(index.row()) >= _places.size())
        return {};
    int const place = _places[static_cast<size_t>(index.row())];
    return place < 0 ? QModelIndex() : createIndex(place, index.column());
}

QModelIndex ChannelListWidgetProxyModel::index(int row, int column, QModelIndex const& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

int ChannelListWidgetProxyModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int ChannelListWidgetProxyModel::columnCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : ChannelListWidgetModel::ColumnCount;
}

QVariant ChannelListWidgetProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return _channels ? _channels->headerData(section, orientation, role) : QVariant();
}
