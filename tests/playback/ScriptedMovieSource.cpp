#include "ScriptedMovieSource.h"

#include "StreamOpener.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/time.h>
}

#include <algorithm>
#include <cmath>
#include <cstring>

namespace
{
constexpr int timeBase = 1000; // Time stamps are milliseconds.
constexpr double soundSeconds = 0.02;
} // namespace

ScriptedMovieSource::ScriptedMovieSource() : GLMovieDataSource("scripted")
{
    setFormatContext(FormatContextPointer(avformat_alloc_context()));
}

void ScriptedMovieSource::setFormatContext(FormatContextPointer context)
{
    _formatContext = std::move(context);
    setStreams(StreamOpener::describe(*_formatContext));
}

void ScriptedMovieSource::addVideo(int codecId)
{
    AVStream* const stream = avformat_new_stream(_formatContext.get(), nullptr);
    stream->time_base = {1, timeBase};
    stream->avg_frame_rate = {25, 1};
    stream->codecpar->codec_type = AVMEDIA_TYPE_VIDEO;
    stream->codecpar->codec_id = static_cast<AVCodecID>(codecId);
    stream->codecpar->format = AV_PIX_FMT_YUV420P;
    stream->codecpar->width = side;
    stream->codecpar->height = side;
    _videoIndex = stream->index;
    setFormatContext(std::move(_formatContext));
}

void ScriptedMovieSource::addAudio(int codecId, int channels)
{
    AVStream* const stream = avformat_new_stream(_formatContext.get(), nullptr);
    stream->time_base = {1, timeBase};
    stream->codecpar->codec_type = AVMEDIA_TYPE_AUDIO;
    stream->codecpar->codec_id = static_cast<AVCodecID>(codecId);
    stream->codecpar->sample_rate = sampleRate;
    av_channel_layout_default(&stream->codecpar->ch_layout, channels);
    _audioIndex = stream->index;
    setFormatContext(std::move(_formatContext));
}

void ScriptedMovieSource::scriptClip(double seconds, bool video, bool audio)
{
    int const steps = static_cast<int>(std::lround(seconds / 0.02));
    for (int i = 0; i < steps; ++i) {
        if (video && i % 2 == 0)
            append({true, i * 0.02});
        if (audio)
            append({false, i * 0.02});
    }
}

void ScriptedMovieSource::append(Packet const& packet)
{
    _script.append(packet);
}

QByteArray ScriptedMovieSource::payload(Packet const& packet) const
{
    if (packet.isVideo && _formatContext->streams[_videoIndex]->codecpar->codec_id == AV_CODEC_ID_RAWVIDEO)
        return QByteArray(side * side * 3 / 2, '\x50');
    if (packet.isVideo && packet.isKey) // Not compressed, 32 bits a pixel, in one block.
        return QByteArray::fromHex("01000100081010") + QByteArray(4 * side * side, '\x50');
    if (packet.isVideo)
        return QByteArray(5, '\0'); // Nothing has moved.
    AVCodecParameters const* const parameters = _formatContext->streams[_audioIndex]->codecpar;
    int const bits = av_get_bits_per_sample(parameters->codec_id);
    auto const samples = static_cast<int>(std::lround(soundSeconds * sampleRate));
    return QByteArray(samples * bits / 8 * parameters->ch_layout.nb_channels, '\0');
}

int ScriptedMovieSource::readFrame(AVPacket* packet)
{
    if (_next >= _script.size()) {
        while (_live && !isInterrupted())
            av_usleep(500);
        if (_lost) {
            reportLoss();
            return AVERROR(EIO);
        }
        return _live ? AVERROR_EXIT : AVERROR_EOF;
    }
    Packet const& scripted = _script.at(_next++);
    QByteArray const bytes = scripted.isEmpty ? QByteArray() : payload(scripted);
    if (int const result = av_new_packet(packet, static_cast<int>(bytes.size())); result < 0)
        return result;
    std::memcpy(packet->data, bytes.constData(), static_cast<size_t>(bytes.size()));
    packet->stream_index = scripted.isVideo ? _videoIndex : _audioIndex;
    packet->pts = std::llround(scripted.seconds * timeBase);
    packet->dts = packet->pts;
    packet->flags = scripted.isKey ? AV_PKT_FLAG_KEY : 0;
    return 0;
}

int ScriptedMovieSource::seekFrame(AVStream*, long long timestamp, int)
{
    if (!_seekable)
        return -1;
    double const seconds = static_cast<double>(timestamp) / timeBase;
    // As a demultiplexer: the last key frame that is not behind the target.
    int found = 0;
    for (int i = 0; i < _script.size(); ++i)
        if (_script.at(i).isKey && _script.at(i).isVideo == (_videoIndex >= 0) && _script.at(i).seconds <= seconds)
            found = i;
    _next = found;
    return 0;
}
