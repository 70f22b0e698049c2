// What an open stream tells of itself.

#include "StreamInformation.h"

#include "Channel.h"
#include "ChannelStream.h"
#include "ChannelTitle.h"
#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "LatteClient.h"

/// Put together rather than filled in: a title or an address may have "%1" of its own.
QString StreamInformation::asText() const
{
    auto const number = [](auto value) { return QString::number(value); };
    QStringList picture = {videoCodec, number(size.width()) + " x " + number(size.height())};
    if (frameRate > 0.0)
        picture.append(number(frameRate) + " per second");
    picture.append(number(videoBitrate) + " bit/s");
    QString const offset = hasSoundOffset ? number(qRound(soundOffset * 1000.0)) : QStringLiteral("unknown");
    QStringList const lines = {
        "channel: " + channel,
        "address: " + address,
        "transport: " + transport,
        "picture: " + picture.join(", "),
        "sound: " + audioCodec + ", " + number(sampleRate) + " Hz, " + number(audioChannels) + " channels, " +
            number(audioBitrate) + " bit/s",
        "pictures: " + number(picturesShown) + " shown, " + number(picturesDropped) + " dropped",
        "packets lost: " + number(videoLost) + " of pictures, " + number(audioLost) + " of sound",
        "bytes read: " + number(bytesRead),
        "buffer: " + number(buffered) + " of " + number(bufferSize) + " bytes",
        "time: " + number(time) + " of " + number(duration) + " s",
        "sound before the picture: " + offset + " ms",
    };
    return lines.join('\n');
}

StreamInformation ChannelStream::information() const
{
    StreamInformation result;
    result.channel = ChannelTitle::shown(_channel->desc.title());
    result.address = Uri::withoutUserInfo(_description.uri().toString());
    GLMovie const* const movie = _renderer ? _renderer->movie() : nullptr;
    if (!movie)
        return result;
    QString const scheme = _description.uri().scheme().toString();
    LatteClient const* const client = latteClient();
    if (client) {
        result.buffered = client->bytesBuffered();
        result.bufferSize = client->bufferByteLength();
    }
    result.transport = isSeekable() ? scheme == "file" ? tr("a file on this computer") : tr("%1, a file").arg(scheme)
                       : client != nullptr ? tr("%1, live, through a buffer").arg(scheme)
                                           : tr("%1, live").arg(scheme);
    result.bytesRead = _dataSource->bytesRead();
    result.time = movie->movieTime();
    result.duration = movie->movieDuration();
    if (movie->hasVideo()) {
        result.videoCodec = movie->videoCodecName();
        result.size = {movie->codecWidth(), movie->codecHeight()};
        result.aspectRatio = movie->aspectRatio();
        result.frameRate = movie->videoFramerate();
        result.videoBitrate = movie->videoBitrate();
        GLMoviePictureStatistics const pictures = movie->pictureStatistics();
        result.picturesShown = pictures.shown;
        result.picturesDropped = pictures.dropped;
        result.soundOffset = pictures.soundAhead;
        result.hasSoundOffset = movie->hasAudio() && pictures.isSynchronous;
    }
    if (movie->hasAudio()) {
        result.audioCodec = movie->audioCodecName();
        result.sampleRate = movie->audioSampleRate();
        result.audioChannels = movie->audioChannels();
        result.audioBitrate = movie->audioBitrate();
    }
    GLMoviePacketStatistics const packets = movie->packetStatistics();
    result.videoLost = packets.videoLost;
    result.audioLost = packets.audioLost;
    return result;
}

QList<StreamInformation> Channel::streamInformation() const
{
    QList<StreamInformation> all;
    for (auto const& stream : _streams)
        all.append(stream->information());
    return all;
}
