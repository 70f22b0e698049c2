#include "TestEventModel.h"

#include "Icons.h"
#include "PlainToolTip.h"
#include "SupportReport.h"

#include <QLocale>

void TestEventModel::add(TestEvent const& event, QDateTime const& time)
{
    if (_rows.size() >= mostEvents) {
        beginRemoveRows({}, 0, 0);
        _failures -= _rows.constFirst().event.isPlaying ? 0 : 1;
        _rows.removeFirst();
        endRemoveRows();
    }
    int const row = static_cast<int>(_rows.size());
    beginInsertRows({}, row, row);
    _rows.append({time, event});
    _failures += event.isPlaying ? 0 : 1;
    endInsertRows();
}

void TestEventModel::clear()
{
    beginResetModel();
    _rows.clear();
    _failures = 0;
    endResetModel();
}

int TestEventModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int TestEventModel::columnCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QString TestEventModel::words(Row const& row) const
{
    return row.event.isPlaying ? tr("It plays.") : row.event.error.simplified();
}

QVariant TestEventModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid() || index.row() >= _rows.size())
        return {};
    Row const& row = _rows.at(index.row());
    if (role == Qt::DecorationRole && index.column() == What)
        return Icons::icon(row.event.isPlaying ? Icon::Play : Icon::Error);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    QString const text = index.column() == Time   ? QLocale().toString(row.time.time(), "HH:mm:ss")
                         : index.column() == Name ? row.event.title
                                                  : words(row);
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

QVariant TestEventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == Time ? tr("Time") : section == Name ? tr("Channel") : tr("What");
}

QByteArray TestEventModel::csv() const
{
    auto const quoted = [](QString const& text) {
        constexpr char const* formulaSigns = "=+-@";
        QString safe = text.simplified();
        if (!safe.isEmpty() && QString(formulaSigns).contains(safe.at(0)))
            safe.prepend('\'');
        return QString('"' + safe.replace('"', "\"\"") + '"');
    };
    QString text = "time,channel,id,plays,what\r\n";
    for (Row const& row : _rows) // Ids of own channels tell addresses, and what is in them.
        text += row.time.toString(Qt::ISODate) + ',' + quoted(row.event.title) + ',' +
                quoted(SupportReport::withoutSecrets(row.event.rootId)) + ',' + (row.event.isPlaying ? "yes" : "no") +
                ',' + quoted(row.event.error) + "\r\n";
    return text.toUtf8();
}
