#pragma once

#include "ChannelListWidgetModel.h"

#include <QAbstractProxyModel>
#include <QHash>
#include <QStringList>

#include <vector>

/// The channels that the viewer wants to see, in the wanted order.
///
/// Order and filter are two steps: thousands of rows are ordered when they change, and a letter that is typed looks
/// once at each prepared key. Whatever comes of it is one change of layout, in which indexes go with their channels,
/// also when the channels come anew: selection and current row stay. Main thread only.
class ChannelListWidgetProxyModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    /// The kinds of the filter, in its order.
    enum class Kind { Any, PremiumPartner, FreePartner, ViewerAdded };

    /// The channel types of a kind, as a set of bits.
    static int typesOf(Kind kind);

    explicit ChannelListWidgetProxyModel(QObject* parent = nullptr) : QAbstractProxyModel(parent) {}

    void setChannelModel(ChannelListWidgetModel* model);

    void setKind(Kind kind);
    void setFavouritesOnly(bool on);
    /// Only those whose title and languages have all words of the text, in whatever case and with whatever accents.
    void setFilterText(QString const& text);
    bool isFiltering() const { return _kind != Kind::Any || _favouritesOnly || !_words.isEmpty(); }

    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    QModelIndex mapToSource(QModelIndex const& index) const override;
    QModelIndex mapFromSource(QModelIndex const& index) const override;
    QModelIndex index(int row, int column, QModelIndex const& parent = {}) const override;
    QModelIndex parent(QModelIndex const&) const override { return {}; }
    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool accepts(ChannelListWidgetModelRow const& row) const;
    bool isBefore(int first, int second) const;
    void onSourceDataChanged(QModelIndex const& first, QModelIndex const& last, QList<int> const& roles);
    void onSourceAboutToBeReset();
    void onSourceReset();
    void change(bool isOrderTouched);
    void keepIndexes();
    void arrange(bool isOrderTouched);
    void restoreIndexes();

    ChannelListWidgetModel* _channels = nullptr;
    Kind _kind = Kind::Any;
    bool _favouritesOnly = false;
    QStringList _words; ///< Folded.
    int _sortColumn = ChannelListWidgetModel::NameColumn;
    Qt::SortOrder _sortOrder = Qt::AscendingOrder;
    std::vector<int> _order;  ///< All rows of the channels, in order.
    std::vector<int> _rows;   ///< Those of them that are shown.
    std::vector<int> _places; ///< Where a row of the channels is shown; -1 for nowhere.
    QModelIndexList _kept;    ///< Indexes that others hold, while the layout changes ...
    QStringList _keptIds;     ///< ... and their channels.
};
