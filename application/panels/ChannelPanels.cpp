#include "ChannelPanels.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelListWidget.h"
#include "ChannelManager.h"
#include "ChannelSearchWidget.h"
#include "LoginManager.h"
#include "MyChannels.h"
#include "SignIn.h"
#include "SoapService.h"
#include "WebCache.h"

#include <QAction>
#include <QDesktopServices>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <utility>

ChannelPanels::ChannelPanels(AppData& appData, QWidget* parent)
    : QObject(parent), _appData(appData), _list(new ChannelListWidget(appData, parent)),
      _search(new ChannelSearchWidget(appData.webCache(), appData.settings.channelsBaseUrl(), parent)),
      _myChannels(new MyChannels(this))
{
    _search->setMyChannels(_myChannels);
    connectList();
    connectSearch();
    connectChannels();
    connectAccount();
    onSignedInChanged();
    onChannelsUpdated();
}

ChannelPanels::~ChannelPanels() = default;

void ChannelPanels::connectList()
{
    using Panels = ChannelPanels;
    using List = ChannelListWidget;
    connect(_list, &List::openChannel, this, &Panels::onChannelListWidgetOpenChannel);
    connect(_list, &List::closeChannel, this, &Panels::onChannelListWidgetCloseChannel);
    connect(_list, &List::purchaseChannel, this, &Panels::onChannelListWidgetPurchaseChannel);
    connect(_list, &List::manageChannels, this, &Panels::onChannelListWidgetManageChannels);
    connect(_list, &List::refreshButtonClicked, this, &Panels::onChannelListWidgetRefreshButtonClicked);
    connect(_list, &List::addStream, this, &Panels::onChannelListWidgetAddStream);
    connect(_list, &List::removeStream, this, &Panels::onChannelListWidgetRemoveStream);
    connect(_list, &List::resetStreams, this, &Panels::onChannelListWidgetResetStreams);
    connect(_list, &List::channelClicked, this, &Panels::onChannelClicked);
    connect(_list, &List::previewChannel, this, &Panels::onPreviewChannel);
    connect(_list, &List::deleteChannel, this, &Panels::onDeleteChannel);
    connect(_list, &List::signInClicked, _appData.settings.action(MenuAction::SignIn), &QAction::trigger);
    connect(_myChannels, &MyChannels::removed, this, &Panels::onDeleted);
    connect(_myChannels, &MyChannels::failed, this, &Panels::onDeletionFailed);
}

void ChannelPanels::connectSearch()
{
    using Panels = ChannelPanels;
    using Search = ChannelSearchWidget;
    connect(_search, &Search::openChannel, this, &Panels::onChannelSearchWidgetOpenChannel);
    connect(_search, &Search::closeChannel, this, &Panels::onChannelSearchWidgetCloseChannel);
    connect(_search, &Search::webSearchClicked, this, &Panels::onChannelSearchWidgetWebSearch);
    connect(_search, &Search::channelClicked, this, &Panels::onChannelClicked);
    connect(_search, &Search::signInClicked, _appData.settings.action(MenuAction::SignIn), &QAction::trigger);
    connect(_search, &Search::createRequested, this, &Panels::onCreateChannel);
    connect(_myChannels, &MyChannels::added, this, &Panels::refreshDirectory);
}

void ChannelPanels::connectChannels()
{
    using Manager = ChannelManager;
    Manager const* const channels = _appData.channelManager();
    connect(channels, &Manager::channelsUpdated, this, &ChannelPanels::onChannelsUpdated);
    connect(channels, &Manager::channelAdded, this, &ChannelPanels::onChannelAdded);
    connect(channels, &Manager::channelLogoUpdated, _list, &ChannelListWidget::onChannelLogoUpdated);
    connect(channels, &Manager::channelChanged, this, &ChannelPanels::onChannelChanged);
    connect(channels, &Manager::directoryRefreshed, this, &ChannelPanels::onDirectoryRefreshed);
    connect(channels, &Manager::channelError, this, &ChannelPanels::onChannelError);
    connect(channels, &Manager::channelOpened, this, [this](Channel const* channel) {
        _list->onChannelOpened(channel->desc);
        _search->onChannelOpened(channel->desc);
        showState(channel);
    });
    connect(channels, &Manager::channelClosed, this, [this](Channel const* channel) {
        _list->onChannelClosed(channel->desc);
        _search->onChannelClosed(channel->desc);
        tidySoon();
    });
    connect(channels, &Manager::channelStateChanged, this, [this](Channel const* channel) { showState(channel); });
    connect(channels, &Manager::streamOpened, this, [this](Channel const* channel) { showState(channel); });
}

void ChannelPanels::connectAccount()
{
    connect(&_appData, &AppData::signedInChanged, this, &ChannelPanels::onSignedInChanged);
    connect(&_appData, &AppData::signInStarted, this, &ChannelPanels::showContent);
    connect(_appData.signIn(), &SignIn::signInEnded, this, &ChannelPanels::showContent);
}

void ChannelPanels::onSignedInChanged()
{
    if (_appData.signIn()->isSignedIn()) {
        LoginManager const& login = *_appData.loginManager();
        _myChannels->signIn(login.service(), login.user().nodeId());
        _search->signIn(login.service(), login.user().nodeId());
    } else {
        _myChannels->signOut();
        _search->signOut();
        _failure.clear();
        _isRefreshWanted = false;
        _list->tell({});
        leavePreview();
    }
    showContent();
}

void ChannelPanels::showContent()
{
    using Content = ChannelListWidget::Content;
    ChannelManager const& channels = *_appData.channelManager();
    bool const isFollowed = _appData.settings.demoMode() || _appData.signIn()->isSignedIn();
    SignIn const& signIn = *_appData.signIn();
    if (signIn.isSigningIn() && !signIn.isAsking()) // A dialog says how it goes.
        _list->setContent(Content::Loading, tr("Signing in..."));
    else if (!isFollowed)
        _list->setContent(Content::SignedOut);
    else if (!_failure.isEmpty())
        _list->setContent(Content::Failed, _failure);
    else
        _list->setContent(channels.channelsLoaded() ? Content::Ready : Content::Loading);
}

/// Thousands come one after the other, before the list is told of all.
void ChannelPanels::onChannelAdded(ChannelDescription const& description)
{
    _list->expectChannel(description);
    constexpr int step = 100;
    ChannelManager const& channels = *_appData.channelManager();
    if (!channels.channelsLoaded() && channels.channelCount() % step == 0)
        _list->setContent(ChannelListWidget::Content::Loading,
                          tr("Loading channels... %n so far", nullptr, channels.channelCount()));
}

void ChannelPanels::onChannelsUpdated()
{
    QList<ChannelDescription> descriptions;
    for (Channel const* const channel : _appData.channelManager()->channels(~ChannelDescription::SponsorshipChannel))
        descriptions.append(channel->desc);
    _list->onChannelsUpdated(descriptions);
    showContent();
    _search->onChannelsUpdated(descriptions);
    showPreview();
}

void ChannelPanels::onChannelError(Channel* channel, QString const& text)
{
    if (channel) {
        showState(channel);
        return;
    }
    if (!_failure.isEmpty() && text.isEmpty())
        _list->tell({});
    _failure = text;
    showContent();
}

void ChannelPanels::onChannelChanged(Channel const*, Channel const* to)
{
    ChannelDescription const description = to ? to->desc : ChannelDescription::Null();
    tidySoon();
    showPreview();
    _list->onChannelChanged(description);
    _search->onChannelChanged(description);
    showState(to);
}

void ChannelPanels::showState(Channel const* channel)
{
    if (!channel)
        return;
    ChannelRowState state = ChannelRowState::Playing;
    if (channel->hasError())
        state = ChannelRowState::Failed;
    else if (!channel->isPlaying() || channel->isBuffering())
        state = ChannelRowState::Acquiring;
    _list->states().setState(channel->desc.rootId(), state);
    _search->states().setState(channel->desc.rootId(), state);
}

bool ChannelPanels::isLookedAtOnly(Channel const& channel)
{
    return channel.desc.channelType() == ChannelDescription::UserChannel && !channel.desc.isViewerAdded();
}

void ChannelPanels::showPreview()
{
    Channel const* const active = _appData.channelManager()->activeChannel();
    bool const isPreview = active && (isLookedAtOnly(*active) || active->desc.rootId() == _preview);
    QString const id = isPreview ? active->desc.rootId() : QString();
    _list->states().setPreview(id);
    _search->states().setPreview(id);
}

void ChannelPanels::leavePreview()
{
    _preview.clear();
    _beforePreview.clear();
}

void ChannelPanels::openPage(QString const& address)
{
    QUrl const url(address, QUrl::StrictMode);
    bool const isWeb = url.isValid() && (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
    if (!isWeb || !QDesktopServices::openUrl(url))
        _list->tell(tr("The page could not be opened: %1").arg(address.left(200)));
}

/// What has gone out of use, once whoever tells of it has told.
void ChannelPanels::tidySoon()
{
    if (!std::exchange(_isTidyPending, true))
        QTimer::singleShot(0, this, &ChannelPanels::tidy);
}

void ChannelPanels::tidy()
{
    _isTidyPending = false;
    ChannelManager& channels = *_appData.channelManager();
    bool const isElsewhere = channels.activeChannel() && channels.activeChannelRootId() != _preview;
    if (!_preview.isEmpty() && isElsewhere && !channels.isAboutToOpen(_preview))
        leavePreview();
    for (Channel* const channel : channels.channels(ChannelDescription::UserChannel))
        if (isLookedAtOnly(*channel) && !channels.isChannelOpen(channel) &&
            !channels.isAboutToOpen(channel->desc.rootId()))
            channels.removeUserChannel(channel);
    // A channel that is opened again is as the directory has it.
    for (QString const& id : _ownStreams.keys()) {
        Channel* const channel = channels.getChannelByRootId(id);
        if (channel && channels.isChannelOpen(channel))
            continue;
        QList<StreamDescription> const streams = _ownStreams.take(id);
        if (!channel)
            continue;
        ChannelDescription own = channel->desc;
        own.clearStreamDescriptions();
        for (StreamDescription const& stream : streams)
            own.appendStreamDescription(stream);
        channel->setDesc(own, true);
        _list->updateChannel(own);
    }
}
