// The audio watcher's side of a movie: from packets to the OpenAL source.

#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "Logger.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

namespace
{
constexpr double jumpBackSeconds = 10.0;  // A clock that goes back this far has been reset by the sender.
constexpr double shortestLateStart = 0.1; // Seconds; below this, picture and sound begin together.
constexpr double longestLateStart = 10.0;
constexpr qint64 lateStartPause = 5000; // µs
} // namespace

void GLMovie::handleAudioPacket(AVPacket* packet)
{
    QByteArray const data = decodeAudioPacket(packet);
    bool const isEnd = packet->size == 0;
    if (!isEnd && _waitingForFirstAudio)
        beginAudio(packet);
    if (!data.isEmpty() && !isStopRequested())
        queueAudioPacket(packet, data);
    if (isEnd)
        _audioWatcherIdle = true;
}

void GLMovie::beginAudio(AVPacket const* packet)
{
    waitForLateAudio();
    _firstAudioPts =
        packet->pts == AV_NOPTS_VALUE ? 0.0 : static_cast<double>(packet->pts) * av_q2d(_audioStream->time_base);
    LOG_DEBUG("First audio packet with pts %lf seconds", _firstAudioPts.load());
    emit firstAudioPacketReceived();
    _waitingForFirstAudio = false;
}

void GLMovie::waitForLateAudio()
{
    if (!_videoStream || _videoStream->start_time == AV_NOPTS_VALUE || _audioStream->start_time == AV_NOPTS_VALUE)
        return;
    double const gap = static_cast<double>(_audioStream->start_time) * av_q2d(_audioStream->time_base) -
                       static_cast<double>(_videoStream->start_time) * av_q2d(_videoStream->time_base);
    if (gap < shortestLateStart || gap > longestLateStart)
        return;
    while (!isStopRequested() && (_waitingForFirstVideo || masterClockTime() < gap))
        pauseFor(lateStartPause);
}

QByteArray GLMovie::decodeAudioPacket(AVPacket const* packet)
{
    QByteArray samples;
    if (avcodec_send_packet(_audioCodec.get(), packet->size == 0 ? nullptr : packet) < 0 && packet->size > 0)
        LOG_DEBUG("An audio packet could not be decoded");
    while (!isStopRequested() && avcodec_receive_frame(_audioCodec.get(), _audioFrame.get()) >= 0) {
        samples += convertSamples(_audioFrame.get());
        av_frame_unref(_audioFrame.get());
    }
    return samples;
}

QByteArray GLMovie::convertSamples(AVFrame* frame)
{
    int const channels = frame->ch_layout.nb_channels;
    auto const format = static_cast<AVSampleFormat>(frame->format);
    int const bytes = frame->nb_samples * channels * static_cast<int>(sizeof(qint16));
    if (format == AV_SAMPLE_FMT_S16)
        return {reinterpret_cast<char const*>(frame->data[0]), bytes};
    AVSampleFormat const packed = av_get_packed_sample_fmt(format);
    if (packed == AV_SAMPLE_FMT_U8 || packed == AV_SAMPLE_FMT_S32 || packed == AV_SAMPLE_FMT_S64)
        return QByteArray(bytes, '\0'); // Refused, in words, when it would be queued.

    SwrContext* context = _swrContext.release();
    int const result = swr_alloc_set_opts2(&context, &frame->ch_layout, AV_SAMPLE_FMT_S16, frame->sample_rate,
                                           &frame->ch_layout, format, frame->sample_rate, 0, nullptr);
    _swrContext.reset(context);
    if (result < 0 || (!swr_is_initialized(context) && swr_init(context) < 0))
        return {};
    QByteArray samples(bytes, Qt::Uninitialized);
    auto* out = reinterpret_cast<uint8_t*>(samples.data());
    auto** const in = const_cast<uint8_t const**>(frame->extended_data);
    int const converted = swr_convert(context, &out, frame->nb_samples, in, frame->nb_samples);
    samples.resize(std::max(converted, 0) * channels * static_cast<int>(sizeof(qint16)));
    return samples;
}

void GLMovie::queueAudioPacket(AVPacket const* packet, QByteArray const& data)
{
    if (!_renderAudio)
        return;
    _audio.waitForAudioQueue([this] { return isStopRequested(); });
    if (isStopRequested())
        return;
    bufferAudioData(packet, data);
    if (_audio.ensureAudioPlaying())
        LOG_INFO("Movie %s: Source was starved of audio data", qPrintable(_url));
}

bool GLMovie::isAudioFormatRefused() const
{
    int const channels = _audioCodec->ch_layout.nb_channels;
    if (channels != 1 && channels != 2) {
        LOG_INFO("We do not support %d channel audio", channels);
        return true;
    }
    switch (av_get_packed_sample_fmt(_audioCodec->sample_fmt)) {
    case AV_SAMPLE_FMT_U8:
        LOG_INFO("Unsigned 8 bit audio not supported");
        return true;
    case AV_SAMPLE_FMT_S32:
    case AV_SAMPLE_FMT_S64:
        LOG_INFO("32 bit audio not supported");
        return true;
    default:
        return false;
    }
}

void GLMovie::bufferAudioData(AVPacket const* packet, QByteArray const& data)
{
    double pts = computeAudioPacketPTS(packet->pts);
    if (_lastAudioPts - pts > jumpBackSeconds) {
        _firstAudioPts = _firstAudioPts + pts;
        pts = 0.0;
        _seenKeyframe = false;
        _dropUntilKeyframe = false;
        resetStartTime();
    }
    if (isAudioFormatRefused()) {
        if (!_videoStream && !_audioRefusalReported)
            emit error(this, UnsupportedAudioFormat);
        _audioRefusalReported = true;
        return;
    }
    _audio.bufferAudioData(data, {_audioCodec->ch_layout.nb_channels, _audioCodec->sample_rate}, pts);
    _lastAudioPts = pts;
    emit audioDataReceived(data);
    if (_syncToAudio && !_paused)
        emit movieTimeUpdated(pts);
}
