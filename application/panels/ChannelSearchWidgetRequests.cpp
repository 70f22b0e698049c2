// What the viewer asks the search for, and what comes of it.

#include "ChannelLogoLoader.h"
#include "ChannelSearchCombo.h"
#include "ChannelSearchWidget.h"
#include "ChannelSearchWidgetModel.h"
#include "ChannelSearchWidgetProxyModel.h"
#include "ChannelView.h"
#include "MyChannels.h"
#include "SoapService.h"

#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include <algorithm>

void ChannelSearchWidget::setMyChannels(MyChannels* myChannels)
{
    _myChannels = myChannels;
    connect(myChannels, &MyChannels::added, this, &ChannelSearchWidget::onAddUserChannelCompleted);
    connect(myChannels, &MyChannels::removed, this, [this] { onRemoveUserChannelCompleted(true); });
    // Only the list of channels removes any, and says itself what has become of it.
    connect(myChannels, &MyChannels::failed, this, [this](QString const& method, QString const& message) {
        if (method == "AddUserStream" || method == "CreateUserStream")
            onSoapRequestFailed(method, message);
    });
}

void ChannelSearchWidget::signIn(SoapService const& service, QString const& nodeId)
{
    signOut();
    _nodeId = nodeId;
    _search = std::make_unique<SoapUserChannels>(service);
    SoapUserChannels const* const calls = _search.get();
    connect(calls, &SoapUserChannels::getUserChannelsCompleted, this,
            &ChannelSearchWidget::onGetUserChannelsCompleted);
    connect(calls, &SoapUserChannels::getTopUserChannelsCompleted, this,
            &ChannelSearchWidget::onGetTopUserChannelsCompleted);
    connect(calls, &SoapUserChannels::requestFailed, this, &ChannelSearchWidget::onSoapRequestFailed);
    _combo->setSuggestions({tr("news"), tr("sport"), tr("music"), tr("us"), tr("uk")});
    showWhatThereIs();
}

/// What was looked for and found goes with who has looked for it.
void ChannelSearchWidget::signOut()
{
    if (_search) {
        _search->disconnect(this);
        _search->cancelRequest();
        _search.release()->deleteLater(); // A signal of its own may be what has led here.
    }
    if (_menu)
        _menu->close();
    _logos->forgetAll();
    _model->setChannels({});
    _combo->clearAll();
    _moreButton->hide();
    tell({});
    showWhatThereIs();
}

void ChannelSearchWidget::onSearch()
{
    QString const query = _combo->query();
    if (!_search || query.isEmpty())
        return;
    if (_search->isWaitingForResponse() && _query == query)
        return; // Return in the list of the combo box tells it twice.
    begin(query, tr("Searching for %1...").arg(query));
    _combo->addToHistory(query);
    _search->getUserChannels(query, _page, _nodeId);
    showWhatThereIs();
}

void ChannelSearchWidget::onSearchTop()
{
    if (!_search)
        return;
    begin({}, tr("Searching for most popular..."));
    _search->getTopUserChannels(_nodeId);
    showWhatThereIs();
}

/// The search before is over, whatever it still brings.
void ChannelSearchWidget::begin(QString const& query, QString const& status)
{
    _search->cancelRequest();
    _query = query;
    _page = 1;
    _isTopFirst = true;
    _moreButton->hide();
    tell(status);
}

void ChannelSearchWidget::onMore()
{
    if (!_search || _search->isWaitingForResponse() || _query.isEmpty())
        return;
    ++_page;
    _isTopFirst = false;
    _moreButton->setEnabled(false);
    tell(tr("Searching for %1...").arg(_query));
    _search->getUserChannels(_query, _page, _nodeId);
}

void ChannelSearchWidget::onGetUserChannelsCompleted(int total, QList<SoapUserChannel> const& channels)
{
    int const count = std::max(total, 0);
    take(count, channels, tr("Search for %1 returned %n results", nullptr, count).arg(_query));
    bool const hasMore = !channels.isEmpty() && _model->rowCount() < count;
    _moreButton->setVisible(hasMore);
    _moreButton->setEnabled(hasMore);
}

void ChannelSearchWidget::onGetTopUserChannelsCompleted(int total, QList<SoapUserChannel> const& channels)
{
    int const count = std::max(total, 0);
    take(count, channels, tr("Search for most popular returned %n results", nullptr, count));
}

void ChannelSearchWidget::take(int total, QList<SoapUserChannel> const& channels, QString const& status)
{
    if (_isTopFirst || _page <= 1) {
        _logos->forgetAll();
        _view->header()->setSortIndicator(-1, Qt::AscendingOrder);
        _model->setChannels(channels);
        _view->scrollToTop();
    } else {
        _model->appendChannels(channels);
    }
    _isTopFirst = false;
    showStates();
    tell(status);
    showWhatThereIs(total == 0 ? tr("No channel was found.") : QString());
    wantLogos();
}

void ChannelSearchWidget::onSoapRequestFailed(QString const& method, QString const& message)
{
    if (method == "GetUserStreams")
        tell(tr("The search failed: %1").arg(message));
    else if (method == "GetTopUserStreams")
        tell(tr("The most popular channels could not be loaded: %1").arg(message));
    else if (method == "AddUserStream")
        tell(tr("The channel could not be added: %1").arg(message));
    else if (method == "CreateUserStream")
        tell(tr("The channel could not be created: %1").arg(message));
    else
        tell(tr("The channel could not be removed: %1").arg(message));
    if (method == "GetUserStreams" && _page > 1)
        --_page; // That page is asked for again.
    _moreButton->setEnabled(true);
    bool const isOfSearch = method == "GetUserStreams" || method == "GetTopUserStreams";
    if (isOfSearch) // Others leave what has been found, or not, as it is.
        showWhatThereIs(_status->text());
}

int ChannelSearchWidget::rowAt(QModelIndex const& index) const
{
    return _shown->mapToSource(index).row();
}

ChannelDescription ChannelSearchWidget::buildChannelFromRow(int row) const
{
    return row >= 0 && row < _model->rowCount() ? _model->row(row).description : ChannelDescription::Null();
}

void ChannelSearchWidget::open(QModelIndex const& index, bool nonMultiview)
{
    ChannelDescription const description = buildChannelFromRow(rowAt(index));
    if (description.isNull())
        return;
    if (description.isAvailable())
        emit openChannel(description, nonMultiview);
    else
        tell(description.unavailableReason());
}

void ChannelSearchWidget::onCellClicked(QModelIndex const& index, bool isModifierHeld)
{
    ChannelDescription const description = buildChannelFromRow(rowAt(index));
    if (description.isNull())
        return;
    if (description.isAvailable())
        emit channelClicked(description, isModifierHeld);
    else
        tell(description.unavailableReason());
}

void ChannelSearchWidget::onAddChannel()
{
    int const row = rowAt(_view->currentIndex());
    if (row >= 0)
        save(_model->row(row).id);
}

void ChannelSearchWidget::save(QString const& id)
{
    int const row = _model->findChannelRowById(id);
    if (row < 0 || !_myChannels || !_myChannels->isSignedIn())
        return;
    tell(tr("Adding %1...").arg(_model->row(row).title));
    _myChannels->add(id);
}

void ChannelSearchWidget::create(SoapUserChannels::Form const& form)
{
    if (!_myChannels || !_myChannels->isSignedIn())
        return;
    QString name;
    for (auto const& [field, text] : form)
        name = field == "name" ? text : name;
    tell(tr("Adding %1...").arg(name));
    _myChannels->create(form);
}

void ChannelSearchWidget::onAddUserChannelCompleted(SoapUserChannel const& channel)
{
    QString const rootId = channel.rootId.isEmpty() ? channel.id : channel.rootId;
    _added.insert(rootId);
    showStates();
    constexpr qsizetype longest = 256;
    tell(tr("%1 was successfully added").arg(channel.name.left(longest)));
}

void ChannelSearchWidget::onRemoveUserChannelCompleted(bool done)
{
    if (done)
        tell(tr("Channel was removed"));
    else
        onSoapRequestFailed(QStringLiteral("DestroyUserStream"), tr("The service has not removed it."));
}

/// What an entry is about is found again by its id: another search may have begun meanwhile.
void ChannelSearchWidget::showMenu(QModelIndex const& index, QPoint const& point)
{
    int const row = rowAt(index);
    if (row < 0)
        return;
    if (_menu)
        _menu->close();
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName("searchMenu");
    _menu = menu;
    ChannelDescription const channel = buildChannelFromRow(row);
    QString const rootId = channel.rootId();
    bool const isOpen = _states.isOpen(rootId);
    auto const add = [this, menu](QString const& text, auto&& call) {
        connect(menu->addAction(text), &QAction::triggered, this, call);
    };
    if (channel.isAvailable() && (!isOpen || rootId != _states.active()))
        add(tr("Play"), [this, channel] { emit openChannel(channel, true); });
    if (channel.isAvailable() && !isOpen && _states.openCount() > 0)
        add(tr("Add to Multiview"), [this, channel] { emit openChannel(channel, false); });
    if (isOpen && _states.openCount() > 1)
        add(tr("Remove from Multiview"), [this, channel] { emit closeChannel(channel); });
    if (!isChannelAdded(rootId))
        add(tr("Save to My Channels"), [this, id = _model->row(row).id] { save(id); });
    menu->addSeparator();
    _view->addSortMenu(*menu);
    menu->popup(point);
}
