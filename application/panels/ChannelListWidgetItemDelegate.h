#pragma once

#include "LogoPixmaps.h"

#include <QStyledItemDelegate>

/// Paints the rows of the channel list: state, bell, and the channel with its logo, title, summary and languages, and
/// a star, which is seen where it is set or where the pointer or the keyboard is. Main thread only.
class ChannelListWidgetItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const override;

    /// Whether a point of a cell of the view is on its star.
    static bool isOnStar(QRect const& cell, Qt::LayoutDirection direction, QPoint const& point);

    /// Whether the state stands with the channel: there is no column for it.
    void setStateWithChannel(bool on) { _isStateWithChannel = on; }

private:
    bool _isStateWithChannel = false;
    mutable LogoPixmaps _logos;
};
