#include "ChannelSearchWidgetModel.h"

#include <QLocale>

#include <algorithm>

namespace
{

constexpr size_t maximumRows = 2000; // A service decides how many it sends.

template<typename Predicate>
int firstRow(std::vector<ChannelSearchWidgetModelRow> const& rows, int from, Predicate const& fits)
{
    auto const found = std::find_if(rows.begin() + std::min(from, static_cast<int>(rows.size())), rows.end(), fits);
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

} // namespace

void ChannelSearchWidgetModel::setChannels(QList<SoapUserChannel> const& channels)
{
    beginResetModel();
    _rows.clear();
    for (SoapUserChannel const& channel : channels)
        if (!channel.id.isEmpty() && findChannelRowById(channel.id) < 0 && _rows.size() < maximumRows)
            _rows.emplace_back(channel);
    endResetModel();
}

void ChannelSearchWidgetModel::appendChannels(QList<SoapUserChannel> const& channels)
{
    QList<SoapUserChannel> others;
    for (SoapUserChannel const& channel : channels)
        if (!channel.id.isEmpty() && findChannelRowById(channel.id) < 0 && !others.contains(channel) &&
            _rows.size() + static_cast<size_t>(others.size()) < maximumRows)
            others.append(channel);
    if (others.isEmpty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(others.size()) - 1);
    for (SoapUserChannel const& channel : others)
        _rows.emplace_back(channel);
    endInsertRows();
}

ChannelSearchWidgetModelRow* ChannelSearchWidgetModel::at(int row)
{
    return row >= 0 && row < rowCount() ? &_rows[static_cast<size_t>(row)] : nullptr;
}

void ChannelSearchWidgetModel::setLogo(int row, QImage const& logo)
{
    if (ChannelSearchWidgetModelRow* const changed = at(row)) {
        changed->description.setLogo(logo);
        tell(row);
    }
}

void ChannelSearchWidgetModel::setState(int row, ChannelRowState state)
{
    ChannelSearchWidgetModelRow* const changed = at(row);
    if (!changed || changed->state == state)
        return;
    changed->state = state;
    tell(row);
}

void ChannelSearchWidgetModel::setAdded(int row, bool isAdded)
{
    ChannelSearchWidgetModelRow* const changed = at(row);
    if (!changed || changed->isAdded == isAdded)
        return;
    changed->isAdded = isAdded;
    tell(row);
}

int ChannelSearchWidgetModel::findChannelRowById(QString const& id) const
{
    return firstRow(_rows, 0, [&](ChannelSearchWidgetModelRow const& row) { return row.id == id; });
}

int ChannelSearchWidgetModel::findChannelRowByLogoUri(Uri const& logo, int from) const
{
    return firstRow(_rows, from, [&](ChannelSearchWidgetModelRow const& row) { return row.logoUri == logo; });
}

int ChannelSearchWidgetModel::findChannelRowByRootId(QString const& rootId) const
{
    return firstRow(_rows, 0,
                    [&](ChannelSearchWidgetModelRow const& row) { return row.description.rootId() == rootId; });
}

int ChannelSearchWidgetModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int ChannelSearchWidgetModel::columnCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChannelSearchWidgetModel::text(ChannelSearchWidgetModelRow const& row, int column) const
{
    switch (column) {
    case StatusColumn:
        return ChannelRowStates::text(row.state);
    case RatingColumn:
        return QString(QLocale().toString(row.rating, 'g', 2) + QStringLiteral("/5"));
    default:
        return row.title;
    }
}

QVariant ChannelSearchWidgetModel::data(QModelIndex const& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    ChannelSearchWidgetModelRow const& row = this->row(index.row());
    if (role == RowRole)
        return QVariant::fromValue(&row);
    if (role == Qt::ToolTipRole)
        return QString("<b>" + row.title.toHtmlEscaped() + "</b><br>" + row.summary.toHtmlEscaped());
    if (role == Qt::AccessibleTextRole && index.column() == NameColumn) {
        QStringList parts = {row.title, ChannelRowStates::text(row.state), row.summary};
        parts.append(row.isAdded ? tr("Saved") : QString());
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return text(row, index.column());
    return {};
}

QVariant ChannelSearchWidgetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    switch (section) {
    case StatusColumn:
        return tr("Status");
    case RatingColumn:
        return tr("Rating");
    case NameColumn:
        return tr("Channel Name");
    default:
        return {};
    }
}
