#pragma once

#include <QSortFilterProxyModel>

/// What was found in another order than the service's, where the viewer wants that: by state, by rating, the best
/// first, or by name. Main thread only.
class ChannelSearchWidgetProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool lessThan(QModelIndex const& first, QModelIndex const& second) const override;
};
