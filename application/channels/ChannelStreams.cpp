// The streams of a channel, and what they say.

#include "Channel.h"
#include "GLTextArea.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace
{
constexpr int noticeTime = 5000; // ms
} // namespace

void Channel::createStream(StreamDescription const& description)
{
    _streams.push_back(std::make_unique<ChannelStream>(_appData, this, description));
    connectStream(_streams.back().get());
}

void Channel::connectStream(ChannelStream* stream)
{
    connect(stream, &ChannelStream::opened, this, &Channel::onStreamOpened);
    connect(stream, &ChannelStream::timeUpdated, this, &Channel::onStreamTimeUpdated);
    connect(stream, &ChannelStream::error, this, &Channel::onStreamError);
    connect(stream, &ChannelStream::stateChanged, this, &Channel::onStreamStateChanged);
    connect(stream, &ChannelStream::closing, this, &Channel::onStreamClosing);
    connect(stream, &ChannelStream::closed, this, &Channel::onStreamClosed);
    connect(stream, &ChannelStream::completed, this, &Channel::onStreamCompleted);
    connect(stream, &ChannelStream::looped, this, &Channel::onStreamLooped);
    connect(stream, &ChannelStream::needsLoop, this, &Channel::onStreamNeedsLoop);
    connect(stream, &ChannelStream::mutedChanged, this, &Channel::onStreamMutedChanged);
    connect(stream, &ChannelStream::volumeChanged, this, &Channel::onStreamVolumeChanged);
    connect(stream, &ChannelStream::playing, this, &Channel::onStreamPlaying);
    connect(stream, &ChannelStream::notice, this, &Channel::onStreamNotice);
    connect(stream, &ChannelStream::pictureUpdated, this, &Channel::pictureUpdated);
}

void Channel::addStream(StreamDescription const& description)
{
    desc.appendStreamDescription(description);
    createStream(description);
    ChannelStream* const stream = _streams.back().get();
    if (_streams.size() > 1)
        stream->playBeside(*_streams.front());
    if (_layout)
        openStream(*stream);
    onStreamAdded(stream);
}

void Channel::removeStream(StreamDescription const& description)
{
    desc.removeStreamDescription(description);
    double const volume = _streams.empty() ? 1.0 : _streams.front()->volume();
    auto const found =
        std::ranges::find_if(_streams, [&](auto const& stream) { return stream->description() == description; });
    if (found == _streams.end())
        return;
    std::unique_ptr<ChannelStream> stream = std::move(*found);
    _streams.erase(found);
    _errors.remove(stream.get());
    stream.reset();    // Whoever is told of its end finds the others.
    setVolume(volume); // The first of those that are left has the sound.
    emit pictureUpdated();
}

/// What is equal, and so plays on, may have other keys at its next opening.
void Channel::renewDescriptions()
{
    for (auto const& stream : _streams)
        for (StreamDescription const& description : desc.streamDescriptions())
            if (stream->description() == description)
                stream->setDescription(description);
}

void Channel::resetStreams()
{
    std::vector<std::unique_ptr<ChannelStream>> before = std::exchange(_streams, {});
    ChannelStream const* const first = before.empty() ? nullptr : before.front().get();
    double const volume = first ? first->volume() : 1.0;
    for (StreamDescription const& description : desc.streamDescriptions()) {
        auto const same = std::ranges::find_if(
            before, [&](auto const& stream) { return stream && stream->description() == description; });
        if (same != before.end()) {
            _streams.push_back(std::move(*same));
        } else {
            _streams.push_back(std::make_unique<ChannelStream>(_appData, this, description));
            connectStream(_streams.back().get());
            if (first)
                _streams.back()->playBeside(*first);
        }
    }
    for (auto const& left : before)
        _errors.remove(left.get());
    before.clear(); // Those that are left close.
    setVolume(volume);
    if (_layout)
        for (auto const& stream : _streams)
            openStream(*stream);
    emit pictureUpdated();
}

void Channel::onStreamOpened(ChannelStream* stream)
{
    _errors.remove(stream);
    showErrorOr({});
    emit streamOpened(this, stream);
}

QString Channel::errorText() const
{
    for (auto const& stream : _streams)
        if (auto const error = _errors.constFind(stream.get()); error != _errors.cend())
            return *error;
    return _errors.isEmpty() ? QString() : *_errors.cbegin();
}

/// A text that the viewer has to act on stays.
void Channel::showErrorOr(QString const& text)
{
    setOverlayText(hasError() ? errorText() + tr("\nClick here to reconnect") : text);
}

void Channel::onStreamError(ChannelStream* stream, QString text)
{
    if (text.isEmpty())
        _errors.remove(stream);
    else
        _errors.insert(stream, text);
    showErrorOr({});
    emit streamError(this, stream, text.isEmpty() ? text : text + tr("\nClick here to reconnect"));
}

void Channel::onStreamStateChanged(ChannelStream* stream, QString text)
{
    showErrorOr(text);
    emit streamStateChanged(this, stream, text);
}

void Channel::onStreamTimeUpdated(ChannelStream* stream, double seconds)
{
    emit streamTimeUpdated(this, stream, seconds);
}

void Channel::onStreamAdded(ChannelStream* stream)
{
    emit streamAdded(this, stream);
}

void Channel::onStreamClosing(ChannelStream* stream)
{
    emit streamClosing(this, stream);
}

void Channel::onStreamClosed(ChannelStream* stream)
{
    emit streamClosed(this, stream);
}

void Channel::onStreamCompleted(ChannelStream* stream)
{
    emit streamCompleted(this, stream);
}

void Channel::onStreamLooped(ChannelStream* stream)
{
    emit streamLooped(this, stream);
}

void Channel::onStreamNeedsLoop(ChannelStream* stream)
{
    emit streamNeedsLoop(this, stream);
}

void Channel::onStreamMutedChanged(ChannelStream* stream, bool muted)
{
    emit streamMutedChanged(this, stream, muted);
}

void Channel::onStreamVolumeChanged(ChannelStream* stream, double volume)
{
    emit streamVolumeChanged(this, stream, volume);
}

void Channel::onStreamPlaying(ChannelStream* stream)
{
    if (stream->isOpen())
        showErrorOr({});
}

void Channel::onStreamNotice(ChannelStream*, QString text)
{
    if (hasError())
        return;
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
