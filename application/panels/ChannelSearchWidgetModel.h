#pragma once

#include "ChannelSearchWidgetModelRow.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>

#include <vector>

/// What a search has found, in the order of the service. Main thread only.
class ChannelSearchWidgetModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { StatusColumn, RatingColumn, NameColumn, ColumnCount };
    static constexpr int RowRole =
        Qt::UserRole; ///< ChannelSearchWidgetModelRow const*, good until the model changes.

    using QAbstractTableModel::QAbstractTableModel;

    void setChannels(QList<SoapUserChannel> const& channels);
    /// Of the next page; what is there already is left out, and what has no id.
    void appendChannels(QList<SoapUserChannel> const& channels);

    void setLogo(int row, ChannelLogo const& logo);
    void setState(int row, ChannelRowState state);
    void setAdded(int row, bool isAdded);

    ChannelSearchWidgetModelRow const& row(int row) const { return _rows.at(static_cast<size_t>(row)); }
    /// -1 when there is none.
    int findChannelRowById(QString const& id) const;
    /// The first one from `from` on: several channels may share a logo.
    int findChannelRowByLogoUri(Uri const& logo, int from = 0) const;
    int findChannelRowByRootId(QString const& rootId) const;

    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ChannelSearchWidgetModelRow* at(int row);
    void tell(int row) { emit dataChanged(index(row, 0), index(row, ColumnCount - 1)); }
    QVariant text(ChannelSearchWidgetModelRow const& row, int column) const;

    void append(SoapUserChannel const& channel);

    std::vector<ChannelSearchWidgetModelRow> _rows;
    QHash<QString, int> _rowsById;
    QHash<QString, int> _rowsByRootId; ///< The first one of each.
};
