#pragma once

#include "LogoPixmaps.h"

#include <QStyledItemDelegate>

/// Paints the rows of the search: state, rating, and the channel with its logo, title and description. Main thread
/// only.
class ChannelSearchWidgetItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const override;

    /// Whether the state stands with the channel: there is no column for it.
    void setStateWithChannel(bool on) { _isStateWithChannel = on; }

private:
    bool _isStateWithChannel = false;
    mutable LogoPixmaps _logos;
};
