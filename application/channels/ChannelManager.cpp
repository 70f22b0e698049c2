#include "ChannelManager.h"

#include "AppData.h"
#include "Channel.h"
#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "Uri.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTimer>

#include <algorithm>
#include <cmath>

Logger* ChannelManager::log = LoggerManager::logger();

namespace
{

char const* titleOf(Channel const* channel, QByteArray& storage)
{
    storage = channel ? channel->desc.title().toUtf8() : QByteArray("None");
    return storage.constData();
}

StreamDescription streamWithBothTracks(Uri const& uri)
{
    StreamDescription stream;
    stream.setUri(uri);
    TrackDescription track;
    track.setLanguageId(LanguageId::English());
    track.setTrackType(TrackDescription::VideoTrack);
    stream.appendTrackDescription(track);
    track.setTrackType(TrackDescription::AudioTrack);
    stream.appendTrackDescription(track);
    return stream;
}

ChannelDescription channelOf(QString const& rootId, QString const& title, ChannelDescription::ChannelType type,
                             Uri const& uri)
{
    ChannelDescription description;
    description.setId(rootId);
    description.setRootId(rootId);
    description.setTitle(title);
    description.setChannelType(type);
    description.setChannelMediaTypes(ChannelDescription::AudioMedia | ChannelDescription::VideoMedia);
    description.setHasChat(false);
    description.setHasAlerts(false);
    description.appendStreamDescription(streamWithBothTracks(uri));
    return description;
}

} // namespace

ChannelManager::ChannelManager(AppData& appData, QObject* parent) : QObject(parent), _appData(appData) {}

ChannelManager::~ChannelManager()
{
    closeAllChannels();
}

Channel* ChannelManager::addUserChannel(ChannelDescription const& description)
{
    if (Channel* const known = getChannelByRootId(description.rootId())) {
        known->setDesc(description, false);
        return known;
    }
    Channel* const channel = addChannel(std::make_unique<Channel>(_appData, description));
    emit channelAdded(description);
    emit channelsUpdated();
    return channel;
}

Channel* ChannelManager::addChannel(std::unique_ptr<Channel> channel)
{
    Channel* const added = channel.get();
    _channels.push_back(std::move(channel));
    _byRootId.insert(added->desc.rootId(), added);
    connect(added, &Channel::streamError, this, &ChannelManager::onChannelStreamError);
    connect(added, &Channel::streamStateChanged, this, &ChannelManager::onChannelStreamStateChanged);
    connect(added, &Channel::streamNeedsLoop, this, &ChannelManager::onChannelStreamNeedsLoop);
    connect(added, &Channel::streamOpened, this, &ChannelManager::streamOpened);
    connect(added, &Channel::pictureUpdated, this, &ChannelManager::pictureUpdated);
    LOG_INFO("Added channel %d %s", static_cast<int>(_channels.size()), qPrintable(added->desc.title()));
    return added;
}

void ChannelManager::removeUserChannel(Channel* channel)
{
    closeChannel(channel);
    LOG_INFO("Removed channel %d %s", static_cast<int>(_channels.size()), qPrintable(channel->desc.title()));
    _byRootId.remove(channel->desc.rootId());
    ChannelDescription const description = channel->desc;
    std::erase_if(_channels, [channel](auto const& owned) { return owned.get() == channel; });
    emit channelRemoved(description);
    emit channelsUpdated();
}

void ChannelManager::openChannel(Channel* channel, bool nonMultiview, int index)
{
    if (nonMultiview) {
        openChannelNonMultiview(channel);
    } else if (!_pendingChannelId.isEmpty()) {
        _waitingIds.append(channel->desc.rootId());
    } else if (isChannelOpen(channel)) {
        setActiveChannel(channel);
    } else {
        openChannelMultiview(channel, index);
    }
}

void ChannelManager::openChannelNonMultiview(Channel* channel)
{
    _waitingIds.clear();
    _pendingChannelId = channel->desc.rootId();
    if (_openChannels.isEmpty())
        openPending();
    else
        fadeAndCloseAllChannels(fadeTime);
}

void ChannelManager::openChannelMultiview(Channel* channel, int index)
{
    bool const isFirst = _openChannels.isEmpty();
    _openChannels.insert(index < 0 ? _openChannels.size() : std::min<qsizetype>(index, _openChannels.size()),
                         channel);
    channel->setWatched(_watched);
    channel->setVolume(0.0);
    channel->setOpacity(0.0);
    channel->setSpeed(_speed);
    channel->open();
    channel->setMuted(!isFirst || _muted);
    channel->fadeIn(fadeTime, _volume, true, true);
    if (isFirst)
        setActiveChannel(channel);
    emit channelOpened(channel);
}

void ChannelManager::fadeAndCloseAllChannels(int ms)
{
    for (Channel* const channel : std::as_const(_openChannels))
        channel->fadeOut(ms, true, true);
    QTimer::singleShot(ms, this, &ChannelManager::onFadeAndCloseAllChannels);
}

void ChannelManager::onFadeAndCloseAllChannels()
{
    if (!_pendingChannelId.isEmpty())
        openPending();
}

void ChannelManager::openPending()
{
    QStringList const ids = QStringList(_pendingChannelId) + std::exchange(_waitingIds, {});
    _pendingChannelId.clear();
    closeAllChannels();
    for (QString const& id : ids)
        if (Channel* const channel = getChannelByRootId(id); channel && !isChannelOpen(channel))
            openChannelMultiview(channel, -1);
}

void ChannelManager::closeChannel(Channel* channel)
{
    if (!_openChannels.removeOne(channel))
        return;
    if (channel == _activeChannel)
        setActiveChannel(_openChannels.isEmpty() ? nullptr : _openChannels.constFirst());
    channel->close();
    emit channelClosed(channel);
    emit pictureUpdated();
}

void ChannelManager::closeAllChannels()
{
    if (_openChannels.isEmpty())
        return;
    saveLastChannels();
    QList<Channel*> const closing = std::exchange(_openChannels, {});
    setActiveChannel(nullptr);
    for (Channel* const channel : closing) {
        channel->close();
        emit channelClosed(channel);
    }
    emit pictureUpdated();
}

void ChannelManager::saveLastChannels()
{
    _lastChannelIds.clear();
    for (Channel const* const channel : std::as_const(_openChannels))
        _lastChannelIds.append(channel->desc.rootId());
    _lastChannelId = _activeChannel ? _activeChannel->desc.rootId() : QString();
}

void ChannelManager::closeForLater()
{
    QStringList pending = std::exchange(_waitingIds, {});
    if (!_pendingChannelId.isEmpty())
        pending.prepend(std::exchange(_pendingChannelId, {}));
    closeAllChannels();
    if (pending.isEmpty())
        return;
    _lastChannelId = pending.constFirst();
    _lastChannelIds = pending;
}

void ChannelManager::openLastChannels()
{
    for (QString const& id : QStringList(_lastChannelIds))
        if (Channel* const channel = getChannelByRootId(id))
            openChannel(channel, false);
    if (Channel* const active = getChannelByRootId(_lastChannelId); active && isChannelOpen(active))
        setActiveChannel(active);
}

void ChannelManager::reconnectChannel(Channel* channel)
{
    int const position = static_cast<int>(_openChannels.indexOf(channel));
    bool const wasActive = channel == _activeChannel;
    closeChannel(channel);
    openChannelMultiview(channel, position);
    if (wasActive)
        setActiveChannel(channel);
}

bool ChannelManager::isAddress(QString const& text)
{
    static QRegularExpression const shape(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*://."));
    return shape.match(text).hasMatch();
}

void ChannelManager::openUserStream(QString const& url, QString const& title, bool nonMultiview)
{
    LOG_INFO("Open Latte Stream %s", qPrintable(url));
    QString const rootId = "latte_" + channelIdFromFileName(url);
    openChannel(addUserChannel(channelOf(rootId, title, ChannelDescription::UserStreamChannel, Uri(url))),
                nonMultiview);
}

void ChannelManager::openFile(QString const& path, bool nonMultiview)
{
    QString const name = FileName::fromAddress(path);
    QString const absolute = FileName::isAddress(name) ? name : QFileInfo(name).absoluteFilePath();
    QString const rootId = "file_" + channelIdFromFileName(absolute);
    ChannelDescription const description = channelOf(
        rootId, FileName::title(absolute), ChannelDescription::FileChannel, Uri(FileName::toAddress(absolute)));
    openChannel(addUserChannel(description), nonMultiview);
}

void ChannelManager::setActiveChannel(Channel* channel)
{
    if (channel == _activeChannel)
        return;
    Channel* const before = _activeChannel;
    QByteArray beforeTitle;
    QByteArray nowTitle;
    LOG_INFO("Channel changing from %s to %s", titleOf(before, beforeTitle), titleOf(channel, nowTitle));
    emit channelChanging(before, channel);
    _activeChannel = channel;
    for (Channel* const other : std::as_const(_openChannels))
        if (other != channel)
            other->setMuted(true);
    if (channel) {
        channel->setVolume(_volume);
        channel->setMuted(_muted);
        if (!channel->isFading())
            channel->fadeIn(fadeTime, _volume, false, true);
    }
    LOG_INFO("Channel changed from %s to %s", titleOf(before, beforeTitle), titleOf(channel, nowTitle));
    emit channelChanged(before, channel);
}

void ChannelManager::setVolume(double volume)
{
    _volume = volume;
    for (Channel* const channel : std::as_const(_openChannels))
        channel->setVolume(volume);
}

void ChannelManager::setWatched(bool watched)
{
    if (std::exchange(_watched, watched) == watched)
        return;
    for (Channel* const channel : std::as_const(_openChannels))
        channel->setWatched(watched);
}

void ChannelManager::setMuted(bool muted)
{
    _muted = muted;
    if (_activeChannel)
        _activeChannel->setMuted(muted);
}

void ChannelManager::setSpeed(double speed)
{
    _speed = speed;
    for (Channel* const channel : std::as_const(_openChannels))
        channel->setSpeed(speed);
    emit speedChanged();
}

bool ChannelManager::canChangeSpeed() const
{
    return _openChannels.isEmpty() || std::ranges::any_of(_openChannels, [](Channel const* channel) {
               return channel->isSeekable() || channel->isBuffering();
           });
}

void ChannelManager::seekForwards(double seconds)
{
    if (_activeChannel)
        _activeChannel->seekForwards(seconds);
}

void ChannelManager::seekBackwards(double seconds)
{
    if (_activeChannel)
        _activeChannel->seekBackwards(seconds);
}

QString ChannelManager::channelIdFromFileName(QString const& name)
{
    return QString::fromLatin1(name.toUtf8().toHex());
}

QRect ChannelManager::cell(QRect const& area, int index) const
{
    int const count = static_cast<int>(_openChannels.size());
    int const columns = static_cast<int>(std::ceil(std::sqrt(count)));
    int const rows = (count + columns - 1) / columns;
    int const column = index % columns;
    int const row = index / columns;
    int const left = area.width() * column / columns;
    int const top = area.height() * row / rows;
    int const right = area.width() * (column + 1) / columns;
    int const bottom = area.height() * (row + 1) / rows;
    return {area.x() + left, area.y() + top, right - left, bottom - top};
}

void ChannelManager::renderVideoOrtho(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    _lastArea = area;
    for (int i = 0; i < _openChannels.size(); ++i) {
        Channel* const channel = _openChannels.at(i);
        channel->updateVideoTexture();
        channel->drawOrthoVideoArray(cell(area, i), mode);
        channel->drawOverlay(cell(area, i));
    }
}

bool ChannelManager::isPlain() const
{
    return std::all_of(_openChannels.cbegin(), _openChannels.cend(), [](Channel const* c) { return c->isPlain(); });
}

std::vector<GLMoviePicture> ChannelManager::plainPictures(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    _lastArea = area;
    std::vector<GLMoviePicture> pictures;
    for (int i = 0; i < _openChannels.size(); ++i)
        _openChannels.at(i)->appendPlainPictures(cell(area, i), mode, pictures);
    return pictures;
}

Channel* ChannelManager::channelAt(QPointF point) const
{
    for (int i = 0; i < _openChannels.size(); ++i)
        if (cell(_lastArea, i).contains(point.toPoint()))
            return _openChannels.at(i);
    return nullptr;
}

QCursor ChannelManager::cursorAt(QPointF point) const
{
    Channel const* const channel = channelAt(point);
    bool const clickPlays = channel && (channel->hasError() || channel != _activeChannel);
    return clickPlays ? *_appData.playCursor() : QCursor(Qt::ArrowCursor);
}

void ChannelManager::videoMousePress(QPointF point)
{
    Channel* const channel = channelAt(point);
    if (!channel)
        return;
    if (channel->hasError())
        reconnectChannel(channel);
    else
        setActiveChannel(channel);
}

void ChannelManager::onChannelStreamError(Channel* channel, ChannelStream*, QString text)
{
    QByteArray title;
    if (!text.isEmpty())
        LOG_ERROR("Error for channel %s %s", titleOf(channel, title), qPrintable(text));
    emit channelError(channel, text);
}

void ChannelManager::onChannelStreamStateChanged(Channel* channel, ChannelStream*, QString text)
{
    QByteArray title;
    LOG_INFO("StateChanged for channel %s %s", titleOf(channel, title), qPrintable(text));
    emit channelStateChanged(channel, text);
}

void ChannelManager::onChannelStreamNeedsLoop(Channel* channel, ChannelStream*)
{
    // The stream that asks must be out of its own call before it is closed.
    QTimer::singleShot(0, channel, [this, channel] {
        if (isChannelOpen(channel))
            reconnectChannel(channel);
    });
}

void ChannelManager::onMuteChanged()
{
    setMuted(_appData.settings.muted());
}

void ChannelManager::onVolumeChanged()
{
    setVolume(_appData.settings.volume());
}
