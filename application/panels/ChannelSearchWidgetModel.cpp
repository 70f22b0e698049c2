#include "ChannelSearchWidgetModel.h"

#include <QLocale>
#include <QSet>

namespace
{

constexpr size_t maximumRows = 2000; // A service decides how many it sends.

} // namespace

void ChannelSearchWidgetModel::append(SoapUserChannel const& channel)
{
    int const row = rowCount();
    ChannelSearchWidgetModelRow const& made = _rows.emplace_back(channel);
    _rowsById.insert(made.id, row);
    if (!_rowsByRootId.contains(made.description.rootId()))
        _rowsByRootId.insert(made.description.rootId(), row);
}

void ChannelSearchWidgetModel::setChannels(QList<SoapUserChannel> const& channels)
{
    beginResetModel();
    _rows.clear();
    _rowsById.clear();
    _rowsByRootId.clear();
    for (SoapUserChannel const& channel : channels)
        if (!channel.id.isEmpty() && !_rowsById.contains(channel.id) && _rows.size() < maximumRows)
            append(channel);
    endResetModel();
}

void ChannelSearchWidgetModel::appendChannels(QList<SoapUserChannel> const& channels)
{
    QList<SoapUserChannel> others;
    QSet<QString> ids;
    for (SoapUserChannel const& channel : channels)
        if (!channel.id.isEmpty() && !_rowsById.contains(channel.id) && !ids.contains(channel.id) &&
            _rows.size() + static_cast<size_t>(others.size()) < maximumRows) {
            others.append(channel);
            ids.insert(channel.id);
        }
    if (others.isEmpty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(others.size()) - 1);
    for (SoapUserChannel const& channel : others)
        append(channel);
    endInsertRows();
}

ChannelSearchWidgetModelRow* ChannelSearchWidgetModel::at(int row)
{
    return row >= 0 && row < rowCount() ? &_rows[static_cast<size_t>(row)] : nullptr;
}

void ChannelSearchWidgetModel::setLogo(int row, ChannelLogo const& logo)
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
    return _rowsById.value(id, -1);
}

int ChannelSearchWidgetModel::findChannelRowByLogoUri(Uri const& logo, int from) const
{
    for (int i = from; i < rowCount(); ++i)
        if (row(i).logoUri == logo)
            return i;
    return -1;
}

int ChannelSearchWidgetModel::findChannelRowByRootId(QString const& rootId) const
{
    return _rowsByRootId.value(rootId, -1);
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
