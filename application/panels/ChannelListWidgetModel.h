#pragma once

#include "ChannelListWidgetModelRow.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>

#include <functional>
#include <unordered_map>
#include <vector>

/// The channels of the list, in the order of the directory. A directory that changes is one reset, or, where its
/// order stays, one signal for each run of rows that have changed; what the list knows of a channel stays with it.
/// Main thread only.
class ChannelListWidgetModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { StatusColumn, AlertsColumn, NameColumn, ColumnCount };
    enum Role {
        RowRole = Qt::UserRole, ///< ChannelListWidgetModelRow const*, good until the model changes.
        FilterRole,             ///< Told as changed where filter or order may come out otherwise.
    };

    /// What the list knows of a channel that it has not met before, or that has changed.
    using Prepare = std::function<void(ChannelListWidgetModelRow&)>;

    explicit ChannelListWidgetModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    void setPrepare(Prepare const& prepare) { _prepare = prepare; }
    /// Has all rows prepared again.
    void prepareAgain();

    void setChannels(QList<ChannelDescription> const& channels);
    /// Makes the row of a channel that is to come with the next setChannels(): of thousands, each when it is told of.
    void expect(ChannelDescription const& channel);
    /// Rewrites a row from a description of the same channel.
    void updateChannel(int row, ChannelDescription const& description);
    void setState(int row, ChannelRowState state);

    ChannelListWidgetModelRow const& row(int row) const { return _rows.at(static_cast<size_t>(row)); }
    /// By root id; -1 where the channel is none of these.
    int findRow(QString const& rootId) const { return _places.value(rootId, -1); }
    int findRow(ChannelDescription const& description) const { return findRow(description.rootId()); }

    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool hasOrderOf(QList<ChannelDescription> const& channels) const;
    void takeInPlace(QList<ChannelDescription> const& channels);
    void takeAnew(QList<ChannelDescription> const& channels);
    ChannelListWidgetModelRow& at(int row) { return _rows.at(static_cast<size_t>(row)); }
    /// Whether the place of the row may be another one now.
    bool take(ChannelListWidgetModelRow& row, ChannelDescription const& description);
    void tell(int first, int last, bool isOrderTouched);
    static QString accessibleText(ChannelListWidgetModelRow const& row);
    static QString toolTip(ChannelListWidgetModelRow const& row);

    std::vector<ChannelListWidgetModelRow> _rows;
    QHash<QString, int> _places;                                      ///< Of root ids.
    std::unordered_map<QString, ChannelListWidgetModelRow> _expected; ///< By root id.
    Prepare _prepare;
};
