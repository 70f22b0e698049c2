#include "Channel.h"

#include "AppData.h"
#include "ChannelGrid.h"
#include "GLControl.h"
#include "GLControlLayout.h"
#include "GLTextArea.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>

Logger* Channel::log = LoggerManager::logger();

namespace
{
constexpr double overlayTextWidth = 0.8; // Of the picture's.
constexpr int noticeTime = 5000;         // ms
} // namespace

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

void Channel::createStream(StreamDescription const& description)
{
    _streams.push_back(std::make_unique<ChannelStream>(_appData, this, description));
    connectStream(_streams.back().get());
}

void Channel::connectStream(ChannelStream* stream)
{
    connect(stream, &ChannelStream::opened, this, &Channel::onStreamOpened);
    connect(stream, &ChannelStream::error, this, &Channel::onStreamError);
    connect(stream, &ChannelStream::stateChanged, this, &Channel::onStreamStateChanged);
    connect(stream, &ChannelStream::playing, this, &Channel::onStreamPlaying);
    connect(stream, &ChannelStream::notice, this, &Channel::onStreamNotice);
    connect(stream, &ChannelStream::pictureUpdated, this, &Channel::pictureUpdated);
    connect(stream, &ChannelStream::timeUpdated, this,
            [this](ChannelStream* s, double seconds) { emit streamTimeUpdated(this, s, seconds); });
    connect(stream, &ChannelStream::completed, this, [this](ChannelStream* s) { emit streamCompleted(this, s); });
    connect(stream, &ChannelStream::needsLoop, this, [this](ChannelStream* s) { emit streamNeedsLoop(this, s); });
    connect(stream, &ChannelStream::looped, this, [this](ChannelStream* s) { emit streamLooped(this, s); });
    connect(stream, &ChannelStream::closing, this, [this](ChannelStream* s) { emit streamClosing(this, s); });
    connect(stream, &ChannelStream::closed, this, [this](ChannelStream* s) { emit streamClosed(this, s); });
    connect(stream, &ChannelStream::mutedChanged, this,
            [this](ChannelStream* s, bool muted) { emit streamMutedChanged(this, s, muted); });
    connect(stream, &ChannelStream::volumeChanged, this,
            [this](ChannelStream* s, double volume) { emit streamVolumeChanged(this, s, volume); });
}

void Channel::open()
{
    if (_layout)
        return;
    _openTime = QDateTime::currentSecsSinceEpoch();
    _hasError = false;
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
    _hasError = false;
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
    QTimer::singleShot(ms, this, &Channel::onCloseTimer);
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

void Channel::addStream(StreamDescription const& description)
{
    desc.appendStreamDescription(description);
    createStream(description);
    ChannelStream* const stream = _streams.back().get();
    stream->setVolume(_streams.size() == 1 ? _streams.front()->volume() : 0.0);
    if (_layout)
        openStream(*stream);
    emit streamAdded(this, stream);
}

void Channel::removeStream(StreamDescription const& description)
{
    desc.removeStreamDescription(description);
    std::erase_if(_streams, [&](auto const& stream) { return stream->description() == description; });
    emit pictureUpdated();
}

std::unique_ptr<ChannelStream> Channel::takeStream(StreamDescription const& description)
{
    for (auto& stream : _streams)
        if (stream && stream->description() == description)
            return std::move(stream);
    return nullptr;
}

void Channel::resetStreams()
{
    double const volume = _streams.empty() ? 1.0 : _streams.front()->volume();
    std::vector<std::unique_ptr<ChannelStream>> streams;
    for (StreamDescription const& description : desc.streamDescriptions()) {
        std::unique_ptr<ChannelStream> stream = takeStream(description);
        if (!stream) {
            stream = std::make_unique<ChannelStream>(_appData, this, description);
            connectStream(stream.get());
        }
        streams.push_back(std::move(stream));
    }
    std::swap(_streams, streams);
    streams.clear(); // Those that are left close.
    setVolume(volume);
    if (_layout)
        for (auto const& stream : _streams)
            openStream(*stream);
    emit pictureUpdated();
}

void Channel::setDesc(ChannelDescription const& description, bool rebuild)
{
    desc = description;
    if (!rebuild)
        return;
    close();
    _streams.clear();
    for (StreamDescription const& stream : desc.streamDescriptions())
        createStream(stream);
}

void Channel::updateVideoTexture()
{
    for (auto const& stream : _streams)
        stream->updateVideoTexture();
}

QRect Channel::streamArea(QRect const& area, size_t index) const
{
    return ChannelGrid::cell(area, static_cast<int>(_streams.size()), static_cast<int>(index));
}

void Channel::drawOrthoVideoArray(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    for (size_t i = 0; i < _streams.size(); ++i)
        _streams[i]->drawVideoOrthoMode(streamArea(area, i), mode);
}

bool Channel::hasOverlay() const
{
    return _layout && !_textArea->text().isEmpty();
}

bool Channel::isPlain() const
{
    return !hasOverlay() &&
           std::all_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isPlain(); });
}

void Channel::appendPlainPictures(QRect const& area, GLMovieRenderer::DrawMode mode,
                                  std::vector<GLMoviePicture>& pictures)
{
    for (size_t i = 0; i < _streams.size(); ++i)
        if (auto const picture = _streams[i]->plainPicture(streamArea(area, i), mode))
            pictures.push_back(*picture);
}

void Channel::drawOverlay(QRect const& area)
{
    if (!hasOverlay())
        return;
    _layout->setSize(QSizeF(area.right() + 1, area.bottom() + 1));
    _control->setGeometry(QRectF(area)); // What it holds counts from its corner.
    QSizeF const size = _textArea->sizeForWidth(area.width() * overlayTextWidth);
    _textArea->setGeometry(
        QRectF(QPointF((area.width() - size.width()) / 2, (area.height() - size.height()) / 2), size));
    _layout->render(1.0);
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

void Channel::onStreamOpened(ChannelStream* stream)
{
    setOverlayText({});
    emit streamOpened(this, stream);
}

void Channel::onStreamError(ChannelStream* stream, QString text)
{
    _hasError = !text.isEmpty();
    _error = text;
    if (!text.isEmpty())
        text += tr("\nClick here to reconnect");
    setOverlayText(text);
    emit streamError(this, stream, text);
}

void Channel::onStreamStateChanged(ChannelStream* stream, QString text)
{
    if (!_hasError)
        setOverlayText(text);
    emit streamStateChanged(this, stream, text);
}

void Channel::onStreamPlaying(ChannelStream* stream)
{
    if (stream->isOpen() && !_hasError)
        setOverlayText({});
}

void Channel::onStreamNotice(ChannelStream*, QString text)
{
    if (_hasError)
        return; // What the viewer has to act on stays.
    setOverlayText(text);
    QTimer::singleShot(noticeTime, this, [this, text] {
        if (_textArea && _textArea->text() == text)
            setOverlayText({});
    });
}

void Channel::setOverlayText(QString const& text)
{
    if (_textArea)
        _textArea->setText(text);
    emit pictureUpdated();
}
