// What an open stream tells of itself.

#include "StreamInformation.h"

#include "Channel.h"
#include "ChannelStream.h"
#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "LatteClient.h"

QString StreamInformation::asText() const
{
    QString const text =
        QStringLiteral("channel: %1\naddress: %2\ntransport: %3\npicture: %4, %5 x %6, %7 per second, %8 bit/s\n")
            .arg(channel, address, transport, videoCodec)
            .arg(size.width())
            .arg(size.height())
            .arg(frameRate)
            .arg(videoBitrate);
    return text +
           QStringLiteral("sound: %1, %2 Hz, %3 channels, %4 bit/s\n")
               .arg(audioCodec)
               .arg(sampleRate)
               .arg(audioChannels)
               .arg(audioBitrate) +
           QStringLiteral(
               "pictures: %1 shown, %2 dropped\npackets lost: %3 of pictures, %4 of sound\nbytes read: %5\n"
               "buffer: %6 of %7 bytes\n")
               .arg(picturesShown)
               .arg(picturesDropped)
               .arg(videoLost)
               .arg(audioLost)
               .arg(bytesRead)
               .arg(buffered)
               .arg(bufferSize) +
           QStringLiteral("time: %1 of %2 s\nsound before the picture: %3 ms")
               .arg(time)
               .arg(duration)
               .arg(hasSoundOffset ? QString::number(qRound(soundOffset * 1000.0)) : QStringLiteral("unknown"));
}

StreamInformation ChannelStream::information() const
{
    StreamInformation result;
    result.channel = _channel->desc.title();
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
