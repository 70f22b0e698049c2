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
#include "Timer.h"
#include "TimerFactory.h"

#include <algorithm>
#include <limits>
#include <utility>

Logger* SponsorshipSequence::log = LoggerManager::logger();

SponsorshipSequence::SponsorshipSequence(AppData& appData, ChannelManager& channels, TimerFactory* timers,
                                         SponsorshipSource* source, QObject* parent)
    : QObject(parent), _appData(appData), _channels(channels), _timers(timers), _source(source),
      _timer(timers->createTimer()),
      _media(appData.webCache(), appData.memoThread(), appData.settings.dataDirectory() + "/Sponsorship")
{
    _timer->setSingleShot(true);
    connect(_timer, &Timer::timeout, this, &SponsorshipSequence::onTimeout);
    connect(source, &SponsorshipSource::sponsorshipRequestCompleted, this,
            &SponsorshipSequence::onSponsorshipRequestCompleted);
    connect(&channels, &ChannelManager::channelClosed, this, &SponsorshipSequence::onChannelClosed);
    connect(&channels, &ChannelManager::channelRemoved, this, [this](ChannelDescription const& description) {
        if (!_channel || _channel->desc.rootId() != description.rootId())
            return;
        _channel = nullptr;
        if (!_isRequested) // Otherwise that of the next one.
            _media.forget();
    });
    connect(&_media, &SponsorshipMedia::prepared, this, &SponsorshipSequence::onMediaPrepared);
    connect(&_media, &SponsorshipMedia::logoUpdated, this, &SponsorshipSequence::onLogoUpdated);
}

SponsorshipSequence::~SponsorshipSequence()
{
    _timers->disposeTimer(_timer);
}

void SponsorshipSequence::wait(Wait what, qint64 ms)
{
    _wait = what;
    if (what == Wait::None)
        _timer->stop();
    else
        _timer->start(static_cast<int>(std::min<qint64>(ms, std::numeric_limits<int>::max())));
}

void SponsorshipSequence::onTimeout()
{
    Wait const over = std::exchange(_wait, Wait::None);
    if (over == Wait::StillImage)
        onSponsorshipStaticImageCompleted();
    else if (over == Wait::Start)
        giveUp();
    else
        openPostSponsorshipChannel();
}

/// Nobody waits for a pre-roll for ever.
void SponsorshipSequence::giveUp()
{
    LOG_WARNING("No pre-roll has begun in %d ms", startTime);
    if (std::exchange(_isRequested, false)) {
        _source->cancelRequest();
        _media.cancel();
    } else if (_channel) {
        _channel->disconnect(this);
        _source->onPlaybackError();
    }
    emit sponsorshipCloseCompanionAds();
    openPostSponsorshipChannel();
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
    wait(Wait::Start, startTime);
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
    wait(Wait::None, 0);
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
        wait(Wait::None, 0);
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
    if (!_isRequested)
        return;
    _response = response;
    Channel* const channel = createSponsorshipChannel(address, logo);
    _isRequested = false;
    _channels.openChannel(channel, false, true);
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
    if (_wait != Wait::WantedChannel)
        wait(Wait::None, 0);
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
