// What becomes of the panels' requests.

#include "AppData.h"
#include "Channel.h"
#include "ChannelListWidget.h"
#include "ChannelManager.h"
#include "ChannelPanels.h"
#include "ChannelSearchWidget.h"
#include "ChannelTitle.h"
#include "MyChannels.h"
#include "NewChannelDialog.h"
#include "SignIn.h"
#include "WebCache.h"

#include <utility>

namespace
{
constexpr qsizetype longestTold = 100; // Of a title in a line of words.
} // namespace

void ChannelPanels::onChannelClicked(ChannelDescription const& description, bool isModifierHeld)
{
    ChannelManager& channels = *_appData.channelManager();
    QString const id = description.rootId();
    if (!channels.getChannelByRootId(id)) {
        onChannelSearchWidgetOpenChannel(description, !isModifierHeld);
        return;
    }
    ChannelClickAction const action = channels.channelClickAction(id, isModifierHeld);
    if (id == _preview && action == NoClickAction && !isModifierHeld)
        leavePreview(); // The viewer stays.
    showPreview();
    channels.performChannelClickAction(id, action);
}

void ChannelPanels::onChannelListWidgetOpenChannel(ChannelDescription const& description, bool nonMultiview)
{
    ChannelManager& channels = *_appData.channelManager();
    QString const id = description.rootId();
    Channel* const channel = channels.getChannelByRootId(id);
    if (!channel)
        return;
    if (id == _preview)
        leavePreview();
    showPreview();
    if (channel->hasError() && channels.isChannelOpen(channel))
        channels.performChannelClickAction(id, ReconnectClickAction);
    else
        channels.openChannel(channel, nonMultiview && _appData.settings.sponsorshipEnabled(), nonMultiview);
}

void ChannelPanels::onChannelListWidgetCloseChannel(ChannelDescription const& description)
{
    _appData.channelManager()->closeChannel(description.rootId());
}

/// A look at a channel, without a pre-roll; asked for again, it leads back to what was open before.
void ChannelPanels::onPreviewChannel(ChannelDescription const& description)
{
    ChannelManager& channels = *_appData.channelManager();
    QString const id = description.rootId();
    if (!channels.getChannelByRootId(id))
        return;
    if (id == _preview) {
        QStringList const before = _beforePreview;
        leavePreview();
        for (qsizetype i = 0; i < before.size(); ++i)
            channels.openChannel(before.at(i), false, i == 0);
        return;
    }
    if (channels.isChannelOpenByRootId(id))
        return;
    if (_preview.isEmpty()) {
        _beforePreview = QStringList(channels.activeChannelRootId());
        for (Channel const* const open : channels.openChannels())
            if (open != channels.activeChannel())
                _beforePreview.append(open->desc.rootId());
        _beforePreview.removeAll(QString());
    }
    QStringList const before = _beforePreview;
    channels.openChannel(id, false, true);
    _preview = id;
    _beforePreview = before;
    showPreview();
}

void ChannelPanels::onChannelListWidgetPurchaseChannel(ChannelDescription const& description)
{
    openPage(description.purchaseUrl());
}

void ChannelPanels::onChannelListWidgetManageChannels()
{
    openPage(_appData.settings.streamsLoginUrl().toString());
}

void ChannelPanels::onChannelListWidgetRefreshButtonClicked()
{
    _list->tell({});
    _isRefreshWanted = _appData.signIn()->isSignedIn();
    refreshDirectory();
}

void ChannelPanels::onDirectoryRefreshed(QString const& problem)
{
    if (std::exchange(_isRefreshWanted, false) && !problem.isEmpty())
        _list->tell(tr("The list could not be refreshed: %1").arg(problem));
}

/// The document, too: what has just been added is in no copy of it.
void ChannelPanels::refreshDirectory()
{
    if (_appData.signIn()->isSignedIn())
        _appData.webCache()->update(_appData.settings.channelsDocumentUri());
    _appData.channelManager()->refresh();
}

void ChannelPanels::onChannelListWidgetAddStream(StreamDescription const& stream)
{
    Channel* const active = _appData.channelManager()->activeChannel();
    if (!active || active->desc.channelType() == ChannelDescription::SponsorshipChannel)
        return;
    if (!_ownStreams.contains(active->desc.rootId()))
        _ownStreams.insert(active->desc.rootId(), active->desc.streamDescriptions());
    active->addStream(stream);
    _list->updateChannel(active->desc);
}

void ChannelPanels::onChannelListWidgetRemoveStream(StreamDescription const& stream)
{
    Channel* const active = _appData.channelManager()->activeChannel();
    if (!active || active->desc.streamDescriptions().size() < 2)
        return;
    if (!_ownStreams.contains(active->desc.rootId()))
        _ownStreams.insert(active->desc.rootId(), active->desc.streamDescriptions());
    active->removeStream(stream);
    _list->updateChannel(active->desc);
}

void ChannelPanels::onChannelListWidgetResetStreams()
{
    Channel* const active = _appData.channelManager()->activeChannel();
    if (!active || !_ownStreams.contains(active->desc.rootId()))
        return;
    ChannelDescription own = active->desc;
    own.clearStreamDescriptions();
    for (StreamDescription const& stream : _ownStreams.take(own.rootId()))
        own.appendStreamDescription(stream);
    active->setDesc(own, false);
    active->resetStreams();
    _list->updateChannel(own);
}

void ChannelPanels::onCreateChannel()
{
    auto* const dialog = new NewChannelDialog(_appData, _search->window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &NewChannelDialog::submitted, this, [this, dialog] {
        if (!_myChannels->isSignedIn()) {
            dialog->showError(tr("Sign in to add a channel."));
            return;
        }
        dialog->showProgress(tr("Adding the channel..."));
        _search->create(dialog->form());
    });
    connect(_myChannels, &MyChannels::created, dialog, &NewChannelDialog::finish);
    connect(_myChannels, &MyChannels::failed, dialog, [dialog](QString const& method, QString const& text) {
        if (method == "CreateUserStream")
            dialog->showError(text);
    });
    connect(&_appData, &AppData::signedInChanged, dialog, [dialog] {
        if (dialog->isBusy())
            dialog->showError(tr("Sign in to add a channel."));
    });
    dialog->open();
}

void ChannelPanels::onDeleteChannel(ChannelDescription const& description)
{
    ChannelManager& channels = *_appData.channelManager();
    Channel* const channel = channels.getChannelByRootId(description.rootId());
    if (!channel)
        return;
    constexpr int own = ChannelDescription::FileChannel | ChannelDescription::UserStreamChannel;
    if ((description.channelType() & own) != 0 || isLookedAtOnly(*channel)) {
        channels.removeUserChannel(channel); // The service does not know it.
    } else if (_myChannels->isSignedIn()) {
        _list->tell(tr("Deleting %1...").arg(ChannelTitle::shown(description.title(), longestTold)));
        _myChannels->remove(description);
    } else {
        _list->tell(tr("Sign in to change the list of your channels."));
    }
}

void ChannelPanels::onDeleted(QString const& rootId)
{
    ChannelManager& channels = *_appData.channelManager();
    _list->tell({});
    if (Channel* const channel = channels.getChannelByRootId(rootId)) {
        QString const title = ChannelTitle::shown(channel->desc.title(), longestTold);
        channels.removeUserChannel(channel); // At once; the directory says so a moment later.
        _list->tell(tr("%1 was deleted.").arg(title));
    }
    refreshDirectory();
}

void ChannelPanels::onDeletionFailed(QString const& method, QString const& text)
{
    if (method != "AddUserStream" && method != "CreateUserStream")
        _list->tell(tr("The channel could not be deleted: %1").arg(text));
}

void ChannelPanels::onChannelSearchWidgetOpenChannel(ChannelDescription const& description, bool nonMultiview)
{
    ChannelManager& channels = *_appData.channelManager();
    Channel const* const channel = channels.getChannelByRootId(description.rootId());
    if (channel && (!isLookedAtOnly(*channel) || channels.isChannelOpen(channel)))
        onChannelListWidgetOpenChannel(channel->desc, nonMultiview);
    else
        channels.previewChannel(description, false, nonMultiview);
}

void ChannelPanels::onChannelSearchWidgetCloseChannel(ChannelDescription const& description)
{
    _appData.channelManager()->closeChannel(description.rootId());
}

void ChannelPanels::onChannelSearchWidgetWebSearch()
{
    openPage(_appData.settings.channelsBaseUrl());
}
