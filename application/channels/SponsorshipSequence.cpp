#include "SponsorshipSequence.h"

#include "AppData.h"
#include "BoundedImage.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "LoginManager.h"
#include "OwnChannels.h"
#include "SponsorshipSource.h"
#include "TickCounter.h"
#include "Timer.h"
#include "TimerFactory.h"
#include "WebCache.h"

#include <QDir>
#include <QSaveFile>
#include <QUrl>

#include <utility>

Logger* SponsorshipSequence::log = LoggerManager::logger();

SponsorshipSequence::SponsorshipSequence(AppData& appData, ChannelManager& channels, TimerFactory* timers,
                                         SponsorshipSource* source, QObject* parent)
    : QObject(parent), _appData(appData), _channels(channels), _timers(timers), _source(source),
      _timer(timers->createTimer())
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
    connect(appData.webCache(), &WebCache::updated, this, &SponsorshipSequence::onLogoUpdated);
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

void SponsorshipSequence::request(Channel* next, Channel const* previous, int previousSeconds)
{
    setNextId(next->desc.rootId());
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
    setNextId(next->desc.rootId());
    bufferNext();
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
    if (Channel* const next = _channels.getChannelByRootId(_nextId); next && !_channels.isChannelOpen(next))
        next->close();
    setNextId({});
}

void SponsorshipSequence::click()
{
    _source->onPlaybackClick();
}

void SponsorshipSequence::onSponsorshipRequestCompleted(bool ok, SponsorshipResponse const& response)
{
    if (!std::exchange(_isRequested, false))
        return; // Not wanted any more.
    if (!ok || !OwnChannels::isAddress(response.url)) {
        LOG_INFO("Request for sponsorship failed");
        openPostSponsorshipChannel();
        return;
    }
    LOG_INFO("Request for sponsorship succeeded");
    _response = response;
    _channels.openChannel(createSponsorshipChannel(response), false, true);
    bufferNext();
    emit sponsorshipLoadCompanionAds(response);
}

Channel* SponsorshipSequence::createSponsorshipChannel(SponsorshipResponse const& response)
{
    _appData.webCache()->ignore(std::exchange(_watched, {}));
    QString const id = QStringLiteral("file_sponsorship_%1").arg(response.id);
    ChannelDescription description;
    description.setId(id);
    description.setRootId(id);
    description.setChannelType(ChannelDescription::SponsorshipChannel);
    description.setTitle(response.title);
    description.setSummary(response.description);
    description.setWebsite(response.websiteUrl);
    description.setLogo(logo(response.logoUrl));
    description.appendStreamDescription(OwnChannels::streamWithBothTracks(Uri(mediaAddress(response.url))));
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

/// What is in the cache plays from a file of its own, since the cache may drop its copy at any time.
QString SponsorshipSequence::mediaAddress(QString const& url)
{
    Uri const uri(url);
    watch(url);
    QString const name = QUrl(url).fileName();
    QDir const directory(_appData.settings.dataDirectory() + "/Sponsorship");
    if (name.isEmpty() || name.startsWith('.') || !_appData.webCache()->isAvailable(uri) || !directory.mkpath(".")) {
        LOG_INFO("Opening sponsorship url %s", qUtf8Printable(url));
        return url;
    }
    QString const path = directory.filePath(name);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(_appData.webCache()->content(uri)) <= 0 || !file.commit()) {
        LOG_WARNING("%s: %s", qUtf8Printable(path), qUtf8Printable(file.errorString()));
        return url;
    }
    LOG_INFO("Opening cached sponsorship file %s", qUtf8Printable(path));
    return FileName::toAddress(path);
}

QImage SponsorshipSequence::logo(QString const& url)
{
    if (OwnChannels::isAddress(url)) {
        watch(url);
        if (QImage const cached = BoundedImage::decode(_appData.webCache()->content(Uri(url))); !cached.isNull()) {
            LOG_INFO("Sponsorship logo has been cached for url %s", qUtf8Printable(url));
            return cached;
        }
    }
    LOG_INFO("Setting default sponsorship logo to default for url %s", qUtf8Printable(url));
    return QImage(":/Resources/latte_en.png");
}

void SponsorshipSequence::watch(QString const& url)
{
    _appData.webCache()->watch(Uri(url));
    _watched.insert(Uri(url));
}

void SponsorshipSequence::onChannelClosed(Channel* channel)
{
    if (channel != _channel)
        return;
    // Later: whoever closes it still holds it.
    QMetaObject::invokeMethod(
        this,
        [this, channel] {
            if (channel == _channel && !_channels.isChannelOpen(channel))
                _channels.removeUserChannel(channel);
        },
        Qt::QueuedConnection);
}

void SponsorshipSequence::onLogoUpdated(Uri const& uri)
{
    if (!_channel || uri.toString() != _response.logoUrl)
        return;
    ChannelDescription description = _channel->desc;
    description.setLogo(logo(_response.logoUrl));
    _channels.onChannelLogoUpdated(description);
}

void SponsorshipSequence::onSponsorshipPlaybackStarted(Channel*, ChannelStream*)
{
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
    _source->onPlaybackError();
    finish();
}

void SponsorshipSequence::onSponsorshipStaticImageCompleted()
{
    _channel->disconnect(this);
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
    setNextId({}); // First: what opens next is no choice of what comes after a pre-roll.
    Channel* const next = _channels.getChannelByRootId(id);
    if (Channel* const wanted = next ? next : _channels.defaultChannel())
        _channels.openChannel(wanted, false, true);
}
