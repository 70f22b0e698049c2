#include "SponsorshipSequence.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "LoginManager.h"
#include "OwnChannels.h"
#include "SponsorshipSource.h"
#include "ThreadedMemoQueue.h"
#include "TickCounter.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <utility>

Logger* SponsorshipSequence::log = LoggerManager::logger();

SponsorshipSequence::SponsorshipSequence(AppData& appData, ChannelManager& channels, TimerFactory* timers,
                                         SponsorshipSource* source, QObject* parent)
    : QObject(parent), _appData(appData), _channels(channels), _timers(timers), _source(source),
      _timer(timers->createTimer()),
      _media(appData.webCache(), appData.memoThread(), appData.settings.dataDirectory() + "/Sponsorship")
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, [this] {
        if (std::exchange(_isStillShown, false))
            onSponsorshipStaticImageCompleted();
        else
            openPostSponsorshipChannel();
    });
    connect(source, &SponsorshipSource::sponsorshipRequestCompleted, this,
            &SponsorshipSequence::onSponsorshipRequestCompleted);
    connect(&channels, &ChannelManager::channelClosed, this, &SponsorshipSequence::onChannelClosed);
    connect(&channels, &ChannelManager::channelRemoved, this, [this](ChannelDescription const& description) {
        if (_channel && _channel->desc.rootId() == description.rootId())
            _channel = nullptr;
    });
    connect(&_media, &SponsorshipMedia::prepared, this, &SponsorshipSequence::onMediaPrepared);
    connect(&_media, &SponsorshipMedia::logoUpdated, this, &SponsorshipSequence::onLogoUpdated);
}

SponsorshipSequence::~SponsorshipSequence()
{
    _timers->disposeTimer(_timer);
}

bool SponsorshipSequence::isPlaying() const
{
    return _channel && _channels.activeChannel() == _channel;
}

void SponsorshipSequence::setNextId(QString const& id)
{
    if (std::exchange(_nextId, id) != id)
        emit postSponsorshipChannelChanged(id);
}

void SponsorshipSequence::request(Channel* next, QStringList const& beside, Channel const* previous,
                                  int previousSeconds)
{
    cancel(); // Another choice, before the answer to the last one.
    setNextId(next->desc.rootId());
    _beside = beside;
    _isRequested = true;
    _source->requestSponsorship(next->desc.rootId(), _appData.loginManager()->user().nodeId(), previousSeconds,
                                previous ? previous->desc.rootId() : QString(), _appData.settings.showVideoTips());
}

void SponsorshipSequence::replaceNext(Channel* next)
{
    if (next->desc.rootId() == _nextId)
        return;
    if (Channel* const before = _channels.getChannelByRootId(_nextId))
        before->close();
    _beside.clear();
    setNextId(next->desc.rootId());
    bufferNext();
}

void SponsorshipSequence::addBeside(QString const& id)
{
    if (id != _nextId && !_beside.contains(id))
        _beside.append(id);
}

void SponsorshipSequence::bufferNext()
{
    if (Channel* const next = _channels.getChannelByRootId(_nextId); next && !_channels.isChannelOpen(next))
        _channels.prepareChannel(next);
}

void SponsorshipSequence::cancel()
{
    _timer->stop();
    _isStillShown = false;
    if (std::exchange(_isRequested, false))
        _source->cancelRequest();
    _media.cancel();
    if (Channel* const next = _channels.getChannelByRootId(_nextId); next && !_channels.isChannelOpen(next))
        next->close();
    _beside.clear();
    setNextId({});
}

void SponsorshipSequence::click()
{
    _source->onPlaybackClick();
}

void SponsorshipSequence::onSponsorshipRequestCompleted(bool ok, SponsorshipResponse const& response)
{
    if (!_isRequested)
        return; // Not wanted any more.
    if (!ok || !OwnChannels::isAddress(response.url)) {
        _isRequested = false;
        LOG_INFO("Request for sponsorship failed");
        openPostSponsorshipChannel();
        return;
    }
    LOG_INFO("Request for sponsorship succeeded");
    _media.prepare(response);
}

void SponsorshipSequence::onMediaPrepared(SponsorshipResponse const& response, QString const& address,
                                          QImage const& logo)
{
    if (!std::exchange(_isRequested, false))
        return;
    _response = response;
    _channels.openChannel(createSponsorshipChannel(address, logo), false, true);
    bufferNext();
    emit sponsorshipLoadCompanionAds(response);
}

Channel* SponsorshipSequence::createSponsorshipChannel(QString const& address, QImage const& logo)
{
    QString const id = QStringLiteral("file_sponsorship_%1").arg(_response.id);
    ChannelDescription description;
    description.setId(id);
    description.setRootId(id);
    description.setChannelType(ChannelDescription::SponsorshipChannel);
    description.setTitle(_response.title);
    description.setSummary(_response.description);
    description.setWebsite(_response.websiteUrl);
    description.setLogo(logo);
    description.appendStreamDescription(OwnChannels::streamWithBothTracks(Uri(address)));
    // There is one at most.
    if (_channel && _channel->desc.rootId() != id)
        _channels.removeUserChannel(_channel);
    if (_channel)
        _channel->disconnect(this);
    _channel = _channels.addUserChannel(description);
    _channel->setDesc(description, true);
    connectPlayback();
    return _channel;
}

void SponsorshipSequence::connectPlayback()
{
    connect(_channel, &Channel::streamOpened, this, &SponsorshipSequence::onSponsorshipPlaybackStarted);
    connect(_channel, &Channel::streamTimeUpdated, this, &SponsorshipSequence::onSponsorshipPlaybackTimeUpdated);
    connect(_channel, &Channel::streamCompleted, this, &SponsorshipSequence::onSponsorshipPlaybackCompleted);
    connect(_channel, &Channel::streamLooped, this, &SponsorshipSequence::onSponsorshipPlaybackLooped);
    connect(_channel, &Channel::streamError, this, &SponsorshipSequence::onSponsorshipPlaybackError);
}

void SponsorshipSequence::onChannelClosed(Channel* channel)
{
    if (channel != _channel)
        return;
    if (std::exchange(_isStillShown, false))
        _timer->stop();
    if (std::exchange(_isStarted, false)) {
        channel->disconnect(this);
        _source->onPlaybackIncomplete();
        emit sponsorshipCloseCompanionAds();
    }
    // Later: whoever closes it still holds it.
    QMetaObject::invokeMethod(
        this,
        [this, channel] {
            if (channel == _channel && !_channels.isChannelOpen(channel))
                _channels.removeUserChannel(channel);
            if (!_nextId.isEmpty() && !_isRequested && !_channel)
                openPostSponsorshipChannel(); // Closed before its end, and nothing was chosen instead.
        },
        Qt::QueuedConnection);
}

void SponsorshipSequence::onLogoUpdated(QImage const& logo)
{
    if (!_channel)
        return;
    ChannelDescription description = _channel->desc;
    description.setLogo(logo);
    _channels.onChannelLogoUpdated(description);
}

void SponsorshipSequence::onSponsorshipPlaybackStarted(Channel*, ChannelStream*)
{
    _isStarted = true;
    _msStarted = _appData.tickCounter()->msSinceEpoch();
    _source->onPlaybackStarted();
    emit sponsorshipDisplayCompanionAds();
}

void SponsorshipSequence::onSponsorshipPlaybackTimeUpdated(Channel*, ChannelStream*, double seconds)
{
    _source->onPlaybackTimeUpdated(seconds);
}

void SponsorshipSequence::onSponsorshipPlaybackCompleted(Channel*, ChannelStream*)
{
    qint64 const left = _msStarted + qint64{_response.duration} * 1000 - _appData.tickCounter()->msSinceEpoch();
    if (_response.type == SponsorshipResponse::StaticImage && left > 0) {
        _isStillShown = true;
        _timer->start(static_cast<int>(left));
        return;
    }
    _channel->disconnect(this);
    _isStarted = false;
    _source->onPlaybackCompleted();
    finish();
}

void SponsorshipSequence::onSponsorshipPlaybackLooped(Channel* channel, ChannelStream* stream)
{
    onSponsorshipPlaybackCompleted(channel, stream);
}

void SponsorshipSequence::onSponsorshipPlaybackError(Channel*, ChannelStream*, QString const& text)
{
    if (text.isEmpty())
        return;
    _channel->disconnect(this);
    _isStarted = false;
    _source->onPlaybackError();
    finish();
}

void SponsorshipSequence::onSponsorshipStaticImageCompleted()
{
    _channel->disconnect(this);
    _isStarted = false;
    if (_nextId.isEmpty()) {
        _source->onPlaybackIncomplete();
        return;
    }
    _source->onPlaybackCompleted();
    finish();
}

void SponsorshipSequence::finish()
{
    emit sponsorshipCloseCompanionAds();
    _timer->start(afterPlayback);
}

void SponsorshipSequence::openPostSponsorshipChannel()
{
    if (_nextId.isEmpty())
        return;
    QString const id = _nextId;
    QStringList const beside = std::exchange(_beside, {});
    setNextId({}); // First: what opens next is no choice of what comes after a pre-roll.
    Channel* const next = _channels.getChannelByRootId(id);
    if (Channel* const wanted = next ? next : _channels.defaultChannel())
        _channels.openChannel(wanted, false, true);
    for (QString const& each : beside)
        _channels.openChannel(each, false, false);
}
