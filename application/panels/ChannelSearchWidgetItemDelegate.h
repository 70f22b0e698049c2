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

private:
    mutable LogoPixmaps _logos;
};
