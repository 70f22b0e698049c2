#include "ChannelListWidgetModel.h"

#include "Icons.h"

#include <utility>

void ChannelListWidgetModel::setChannels(QList<ChannelDescription> const& channels)
{
    if (hasOrderOf(channels))
        takeInPlace(channels);
    else
        takeAnew(channels);
    _expected.clear();
}

bool ChannelListWidgetModel::hasOrderOf(QList<ChannelDescription> const& channels) const
{
    if (channels.size() != static_cast<qsizetype>(_rows.size()))
        return false;
    for (qsizetype i = 0; i < channels.size(); ++i)
        if (channels.at(i).rootId() != _rows[static_cast<size_t>(i)].rootId)
            return false;
    return true;
}

void ChannelListWidgetModel::takeInPlace(QList<ChannelDescription> const& channels)
{
    int first = -1; // Of the run of rows that have changed.
    bool isOrderTouched = false;
    int const count = static_cast<int>(channels.size());
    for (int i = 0; i < count; ++i) {
        bool const hasChanged = at(i).description != channels.at(i) ||
                                at(i).description.purchased() != channels.at(i).purchased() ||
                                at(i).description.purchaseUrl() != channels.at(i).purchaseUrl();
        if (hasChanged) {
            first = first < 0 ? i : first;
            isOrderTouched = take(at(i), channels.at(i)) || isOrderTouched;
        } else if (first >= 0) {
            tell(std::exchange(first, -1), i - 1, isOrderTouched);
            isOrderTouched = false;
        }
    }
    if (first >= 0)
        tell(first, count - 1, isOrderTouched);
}

void ChannelListWidgetModel::takeAnew(QList<ChannelDescription> const& channels)
{
    beginResetModel();
    std::vector<ChannelListWidgetModelRow> before = std::exchange(_rows, {});
    QHash<QString, int> const places = std::exchange(_places, {});
    _rows.reserve(static_cast<size_t>(channels.size()));
    _places.reserve(channels.size());
    for (ChannelDescription const& channel : channels) {
        if (_places.contains(channel.rootId()))
            continue;
        _places.insert(channel.rootId(), static_cast<int>(_rows.size()));
        if (auto const found = places.constFind(channel.rootId()); found != places.constEnd()) {
            _rows.push_back(std::move(before[static_cast<size_t>(*found)]));
            if (_rows.back().description != channel)
                take(_rows.back(), channel);
            else
                _rows.back().description = channel;
        } else {
            auto expected = _expected.extract(channel.rootId());
            if (!expected.empty() && expected.mapped().description == channel) {
                _rows.push_back(std::move(expected.mapped()));
                _rows.back().description = channel; // Not all of it is compared.
            } else {
                _rows.emplace_back(channel);
            }
            if (_prepare)
                _prepare(_rows.back());
        }
    }
    endResetModel();
}

void ChannelListWidgetModel::expect(ChannelDescription const& channel)
{
    if (!_places.contains(channel.rootId()))
        _expected.try_emplace(channel.rootId(), channel);
}

bool ChannelListWidgetModel::take(ChannelListWidgetModelRow& row, ChannelDescription const& description)
{
    bool const hadAlertsOn = row.hasAlertsOn;
    bool const isOrderTouched = row.setDescription(description);
    if (_prepare)
        _prepare(row);
    return isOrderTouched || row.hasAlertsOn != hadAlertsOn;
}

void ChannelListWidgetModel::prepareAgain()
{
    if (!_prepare || _rows.empty())
        return;
    for (ChannelListWidgetModelRow& row : _rows)
        _prepare(row);
    tell(0, rowCount() - 1, true);
}

void ChannelListWidgetModel::updateChannel(int row, ChannelDescription const& description)
{
    if (row < 0 || row >= rowCount() || description.rootId() != at(row).rootId)
        return;
    bool const isOrderTouched = take(at(row), description);
    tell(row, row, isOrderTouched);
}

void ChannelListWidgetModel::setState(int row, ChannelRowState state)
{
    if (row < 0 || row >= rowCount() || at(row).state == state)
        return;
    at(row).state = state;
    tell(row, row, true);
}

void ChannelListWidgetModel::tell(int first, int last, bool isOrderTouched)
{
    QList<int> roles = {Qt::DisplayRole, RowRole};
    if (isOrderTouched)
        roles.append(FilterRole);
    emit dataChanged(index(first, 0), index(last, ColumnCount - 1), roles);
}

int ChannelListWidgetModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int ChannelListWidgetModel::columnCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChannelListWidgetModel::data(QModelIndex const& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    ChannelListWidgetModelRow const& row = this->row(index.row());
    if (role == RowRole)
        return QVariant::fromValue(&row);
    if (role == Qt::ToolTipRole)
        return toolTip(row);
    if (role == Qt::AccessibleTextRole && index.column() == NameColumn)
        return accessibleText(row);
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    switch (index.column()) {
    case StatusColumn:
        return ChannelRowStates::text(row.state);
    case AlertsColumn:
        if (!row.description.hasAlerts())
            return {};
        return row.hasAlertsOn ? tr("On") : tr("Off");
    default:
        return row.title;
    }
}

QString ChannelListWidgetModel::accessibleText(ChannelListWidgetModelRow const& row)
{
    QStringList parts = {row.title};
    if (row.isFavourite)
        parts.append(tr("favourite"));
    for (QString const& part : {ChannelRowStates::text(row.state), row.subtitle(), row.languages})
        if (!part.isEmpty())
            parts.append(part);
    return parts.join(QStringLiteral(", "));
}

QString ChannelListWidgetModel::toolTip(ChannelListWidgetModelRow const& row)
{
    QString text = "<b>" + row.title.toHtmlEscaped() + "</b>";
    for (QString const& part : {row.subtitle(), row.languages})
        if (!part.isEmpty())
            text += "<br>" + part.toHtmlEscaped();
    return text;
}

QVariant ChannelListWidgetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section == AlertsColumn && role == Qt::DecorationRole)
        return Icons::icon(Icon::Alert);
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    switch (section) {
    case StatusColumn:
        return tr("Status");
    case AlertsColumn:
        return tr("Alerts");
    case NameColumn:
        return tr("Channel Name");
    default:
        return {};
    }
}
