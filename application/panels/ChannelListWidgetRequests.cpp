// What the viewer asks the list for: clicks, keys, the menu of a row.

#include "AppData.h"
#include "ChannelListWidget.h"
#include "ChannelListWidgetItemDelegate.h"
#include "ChannelView.h"
#include "DeleteChannelDialog.h"
#include "OwnChannels.h"

#include <QLineEdit>
#include <QMenu>

#include <utility>

ChannelListWidgetModelRow const* ChannelListWidget::rowOf(QString const& rootId) const
{
    int const row = _model->findRow(rootId);
    return row < 0 ? nullptr : &_model->row(row);
}

ChannelListWidgetModelRow const* ChannelListWidget::rowAt(QModelIndex const& index) const
{
    QModelIndex const source = _shown->mapToSource(index);
    return source.isValid() ? &_model->row(source.row()) : nullptr;
}

ChannelListWidgetModelRow const* ChannelListWidget::target() const
{
    return _target.isEmpty() ? rowAt(_view->currentIndex()) : rowOf(_target);
}

void ChannelListWidget::act(QModelIndex const& index, void (ChannelListWidget::*slot)())
{
    auto const* const row = rowAt(index);
    if (!row)
        return;
    tell({});
    _target = row->rootId;
    (this->*slot)();
    _target.clear();
}

/// The filter's keys mean what is found by it.
void ChannelListWidget::onChannelWanted(bool isBeside)
{
    QModelIndex const current = _view->currentIndex();
    QModelIndex const index = current.isValid() ? current : _shown->index(0, ChannelListWidgetModel::NameColumn);
    if (!index.isValid())
        return;
    _view->setCurrentIndex(index);
    act(index, isBeside ? &ChannelListWidget::onOpenChannel : &ChannelListWidget::onWatchChannel);
}

void ChannelListWidget::onCellClicked(QModelIndex const& index, QPoint const& point, bool isModifierHeld)
{
    auto const* const row = rowAt(index);
    if (!row)
        return;
    tell({});
    QString const id = row->rootId;
    bool const isName = index.column() == ChannelListWidgetModel::NameColumn;
    if (index.column() == ChannelListWidgetModel::AlertsColumn && row->description.hasAlerts())
        toggleAlerts(id);
    else if (isName && ChannelListWidgetItemDelegate::isOnStar(_view->visualRect(index), layoutDirection(), point))
        toggleFavourite(id);
    else if (row->isForSale() && !_states.isOpen(id))
        emit purchaseChannel(row->description);
    else if (canWatch(*row))
        emit channelClicked(row->description, isModifierHeld);
}

/// If not, it says why.
bool ChannelListWidget::canWatch(ChannelListWidgetModelRow const& row)
{
    if (row.description.isAvailable())
        return true;
    tell(row.subtitle().isEmpty() ? tr("This channel cannot be watched now.") : row.subtitle());
    return false;
}

void ChannelListWidget::toggleAlerts(QString const& rootId)
{
    auto const* const row = rowOf(rootId);
    if (!row || !row->description.hasAlerts())
        return;
    bool const show = !row->hasAlertsOn;
    _appData.settings.setChannelAlerts(rootId, show);
    emit showChannelBreakingNewsAlerts(rootId, show);
}

void ChannelListWidget::toggleFavourite(QString const& rootId)
{
    QStringList favourites = _appData.settings.favouriteChannels();
    bool const wasFavourite = favourites.removeAll(rootId) > 0;
    if (!wasFavourite && OwnChannels::hasSecret(rootId)) {
        tell(tr("This address has a password in it: it is not kept as a favourite."));
        return;
    }
    if (!wasFavourite)
        favourites.append(rootId);
    _appData.settings.setFavouriteChannels(favourites);
}

void ChannelListWidget::onWatchChannel()
{
    auto const* const row = target();
    if (!row)
        return;
    if (row->isForSale())
        emit purchaseChannel(row->description);
    else if (canWatch(*row))
        emit openChannel(row->description, true);
}

void ChannelListWidget::onOpenChannel()
{
    auto const* const row = target();
    if (!row)
        return;
    if (row->isForSale())
        emit purchaseChannel(row->description);
    else if (canWatch(*row))
        emit openChannel(row->description, false);
}

void ChannelListWidget::onCloseChannel()
{
    if (auto const* const row = target())
        emit closeChannel(row->description);
}

void ChannelListWidget::onPreviewChannel()
{
    auto const* const row = target();
    if (row && canWatch(*row))
        emit previewChannel(row->description);
}

void ChannelListWidget::onPurchaseChannel()
{
    auto const* const row = target();
    if (row && row->isForSale())
        emit purchaseChannel(row->description);
}

void ChannelListWidget::onDeleteChannel()
{
    auto const* const row = target();
    if (!row || !row->isDeletable())
        return;
    if (_deleteDialog)
        _deleteDialog->reject();
    _deleteId = row->rootId;
    _deleteDialog = new DeleteChannelDialog(_appData, row->title, window());
    _deleteDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(_deleteDialog, &DeleteChannelDialog::manageChannels, this, &ChannelListWidget::manageChannels);
    connect(_deleteDialog, &QDialog::accepted, this, [this, id = _deleteId] { onDeletionConfirmed(id); });
    _deleteDialog->open();
}

void ChannelListWidget::onDeletionConfirmed(QString const& rootId)
{
    if (auto const* const row = rowOf(rootId))
        emit deleteChannel(row->description);
}

void ChannelListWidget::showMenu(QModelIndex const& index, QPoint const& point)
{
    auto const* const row = rowAt(index);
    if (!row)
        return;
    tell({});
    if (_menu)
        _menu->close();
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName("channelMenu");
    _menu = menu;
    _menuId = row->rootId;
    fillMenu(*menu, *row);
    menu->popup(point);
}

void ChannelListWidget::addEntry(QMenu& menu, QString const& text, QString const& rootId,
                                 void (ChannelListWidget::*slot)())
{
    connect(menu.addAction(text), &QAction::triggered, this, [this, rootId, slot] {
        if (!rowOf(rootId))
            return; // It has gone meanwhile.
        _target = rootId;
        (this->*slot)();
        _target.clear();
    });
}

void ChannelListWidget::fillMenu(QMenu& menu, ChannelListWidgetModelRow const& row)
{
    addPlayEntries(menu, row);
    if (row.isForSale())
        addEntry(menu, tr("Purchase"), row.rootId, &ChannelListWidget::onPurchaseChannel);
    addStreamEntries(menu, row);
    menu.addSeparator();
    QAction* const favourite = menu.addAction(tr("Favourite"));
    favourite->setCheckable(true);
    favourite->setChecked(row.isFavourite);
    connect(favourite, &QAction::triggered, this, [this, id = row.rootId] { toggleFavourite(id); });
    if (row.description.hasAlerts()) {
        QAction* const alerts = menu.addAction(tr("Breaking News Alerts"));
        alerts->setCheckable(true);
        alerts->setChecked(row.hasAlertsOn);
        connect(alerts, &QAction::triggered, this, [this, id = row.rootId] { toggleAlerts(id); });
    }
    if (row.isDeletable()) {
        menu.addSeparator();
        addEntry(menu, tr("Delete from My Channels"), row.rootId, &ChannelListWidget::onDeleteChannel);
    }
    menu.addSeparator();
    _view->addSortMenu(menu);
}

void ChannelListWidget::addPlayEntries(QMenu& menu, ChannelListWidgetModelRow const& row)
{
    bool const isOpen = _states.isOpen(row.rootId);
    bool const canPlay = row.description.isAvailable() && !row.isForSale();
    if (canPlay && (!isOpen || row.state == ChannelRowState::Previewing || row.rootId != _states.active()))
        addEntry(menu, tr("Play"), row.rootId, &ChannelListWidget::onWatchChannel);
    if (canPlay && !isOpen && _states.openCount() > 0)
        addEntry(menu, tr("Add to Multiview"), row.rootId, &ChannelListWidget::onOpenChannel);
    if (isOpen && _states.openCount() > 1)
        addEntry(menu, tr("Remove from Multiview"), row.rootId, &ChannelListWidget::onCloseChannel);
    if (row.description.isAvailable() && !isOpen)
        addEntry(menu, tr("Preview"), row.rootId, &ChannelListWidget::onPreviewChannel);
}

/// Another channel's stream beside those of the active one, as one picture.
void ChannelListWidget::addStreamEntries(QMenu& menu, ChannelListWidgetModelRow const& row)
{
    auto const* const active = rowOf(_states.active());
    QList<StreamDescription> const streams = row.description.streamDescriptions();
    if (!active || !_states.isOpen(active->rootId) || streams.isEmpty())
        return;
    QList<StreamDescription> const played = active->description.streamDescriptions();
    bool const isActive = active->rootId == row.rootId;
    bool const isPlayed = !isActive && played.contains(streams.constFirst());
    StreamDescription const one = isActive ? streams.constLast() : streams.constFirst();
    menu.addSeparator();
    if (!isActive && !isPlayed && row.description.isAvailable() && !row.isForSale())
        connect(menu.addAction(tr("Add Stream")), &QAction::triggered, this, [this, one] {
            _areStreamsChanged = true;
            emit addStream(one);
        });
    if (isPlayed || (isActive && played.size() > 1))
        connect(menu.addAction(tr("Remove Stream")), &QAction::triggered, this, [this, one] {
            _areStreamsChanged = true;
            emit removeStream(one);
        });
    if (_areStreamsChanged)
        connect(menu.addAction(tr("Reset Streams")), &QAction::triggered, this, [this] {
            _areStreamsChanged = false;
            emit resetStreams();
        });
}
