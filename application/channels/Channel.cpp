#include "Channel.h"

#include "AppData.h"
#include "GLControl.h"
#include "GLControlLayout.h"
#include "GLTextArea.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>

Logger* Channel::log = LoggerManager::logger();

Channel::Channel(AppData& appData, ChannelDescription const& description) : desc(description), _appData(appData)
{
    for (StreamDescription const& stream : desc.streamDescriptions())
        createStream(stream);
}

Channel::~Channel()
{
    close();
}

QByteArray Channel::logTitle(Channel const* channel)
{
    return channel ? channel->desc.title().toUtf8() : QByteArray("None");
}

void Channel::open()
{
    if (_layout)
        return;
    ++_openings;
    _openTime = QDateTime::currentSecsSinceEpoch();
    _errors.clear();
    createOverlay();
    for (auto const& stream : _streams)
        openStream(*stream);
}

void Channel::openStream(ChannelStream& stream)
{
    QString const rootId = desc.rootId();
    if (rootId.startsWith("file_sponsorship_")) {
        stream.setLoop(false);
        stream.open(true);
    } else if (rootId.startsWith("file_")) {
        stream.setLoop(true);
        stream.open(true);
    } else if (_appData.settings.demoMode()) {
        stream.setLoop(false);
        stream.open(true);
    } else {
        stream.open(false);
    }
}

void Channel::createOverlay()
{
    _layout = std::make_unique<GLControlLayout>();
    _control = std::make_unique<GLControl>("Channel Overlay");
    _textArea = std::make_unique<GLTextArea>("Channel Text");
    _control->addControl(_textArea.get());
    _layout->addControl(_control.get());
}

void Channel::close()
{
    for (auto const& stream : _streams)
        stream->close();
    _layout.reset();
    _textArea.reset();
    _control.reset();
    deleteLogoTexture();
    _errors.clear();
    _openTime = 0;
    emit pictureUpdated();
}

void Channel::reconnect()
{
    close();
    open();
}

void Channel::fadeAndClose(int ms)
{
    fadeOut(ms, true, true);
    QTimer::singleShot(ms, this, [this, opening = _openings] {
        if (opening == _openings)
            onCloseTimer(); // Else it has been opened anew meanwhile.
    });
}

void Channel::onCloseTimer()
{
    close();
    emit fadeAndCloseComplete(this);
}

void Channel::fadeIn(int ms, double volume, bool fadeVideo, bool fadeAudio)
{
    for (auto const& stream : _streams)
        stream->fadeIn(ms, stream == _streams.front() ? volume : 0.0, fadeVideo, fadeAudio);
}

void Channel::fadeOut(int ms, bool fadeVideo, bool fadeAudio)
{
    for (auto const& stream : _streams)
        stream->fadeOut(ms, fadeVideo, fadeAudio);
}

void Channel::setDesc(ChannelDescription const& description, bool rebuild)
{
    _isLogoChanged = _isLogoChanged || desc.packedLogo().key() != description.packedLogo().key();
    desc = description;
    if (!rebuild) {
        renewDescriptions();
        return;
    }
    close();
    _streams.clear();
    for (StreamDescription const& stream : desc.streamDescriptions())
        createStream(stream);
}

bool Channel::isOpen() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isOpen(); });
}

bool Channel::isPlaying() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isPlaying(); });
}

bool Channel::isBuffering() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isBuffering(); });
}

bool Channel::isFading() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isFading(); });
}

bool Channel::hasVideo() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->hasVideo(); });
}

bool Channel::hasAudio() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->hasAudio(); });
}

bool Channel::isSeekable() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isSeekable(); });
}

void Channel::setMuted(bool muted)
{
    for (auto const& stream : _streams)
        stream->setMuted(muted);
}

void Channel::setVolume(double volume)
{
    for (auto const& stream : _streams)
        stream->setVolume(stream == _streams.front() ? volume : 0.0);
}

void Channel::setWatched(bool watched)
{
    for (auto const& stream : _streams)
        stream->setWatched(watched);
}

void Channel::setUnseen(bool unseen)
{
    for (auto const& stream : _streams)
        stream->setUnseen(unseen);
}

void Channel::setOpacity(double opacity)
{
    for (auto const& stream : _streams)
        stream->setOpacity(opacity);
}

void Channel::setSpeed(double speed)
{
    for (auto const& stream : _streams)
        stream->setSpeed(speed);
}

void Channel::seekForwards(double seconds)
{
    for (auto const& stream : _streams)
        stream->seekForwards(seconds);
}

void Channel::seekBackwards(double seconds)
{
    for (auto const& stream : _streams)
        stream->seekBackwards(seconds);
}

bool Channel::hitTest(QPointF point) const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [&](auto const& s) { return s->hitTest(point); });
}

QList<LatteClient const*> Channel::latteClients() const
{
    QList<LatteClient const*> clients;
    for (auto const& stream : _streams)
        if (LatteClient const* const client = stream->latteClient())
            clients.append(client);
    return clients;
}

QRect Channel::videoWindow() const
{
    return _streams.empty() ? QRect() : _streams.front()->videoWindow();
}

QSize Channel::movieSize() const
{
    return _streams.empty() ? QSize() : _streams.front()->movieSize();
}
