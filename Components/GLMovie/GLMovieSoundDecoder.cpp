#include "GLMovieSoundDecoder.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

Logger* GLMovieSoundDecoder::log = LoggerManager::logger();

namespace
{

constexpr int maximumSampleRate = 768000; // Hz; what exceeds it is damage.
constexpr AVSampleFormat outputFormat = AV_SAMPLE_FMT_S16;

char const* textOf(AVSampleFormat format)
{
    switch (av_get_packed_sample_fmt(format)) {
    case AV_SAMPLE_FMT_U8:
        return " unsigned 8 bit";
    case AV_SAMPLE_FMT_S16:
        return " signed 16 bit";
    case AV_SAMPLE_FMT_S32:
        return " signed 32 bit";
    case AV_SAMPLE_FMT_FLT:
    case AV_SAMPLE_FMT_DBL:
        return " floating point";
    default:
        return " unknown format";
    }
}

/// The layout of a frame; of one that tells a number only, the usual one of that number.
struct Layout {
    explicit Layout(AVChannelLayout const& given)
    {
        if (given.order == AV_CHANNEL_ORDER_UNSPEC)
            av_channel_layout_default(&layout, given.nb_channels);
        else
            av_channel_layout_copy(&layout, &given);
    }
    ~Layout() { av_channel_layout_uninit(&layout); }
    Layout(Layout const&) = delete;
    Layout& operator=(Layout const&) = delete;

    AVChannelLayout layout{};
};

} // namespace

GLMovieSoundDecoder::GLMovieSoundDecoder() = default;
GLMovieSoundDecoder::~GLMovieSoundDecoder() = default;

int GLMovieSoundDecoder::open(AVStream const* stream)
{
    _stream = stream;
    AVCodec const* const codec = avcodec_find_decoder(stream->codecpar->codec_id);
    _codec.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    _frame.reset(av_frame_alloc());
    if (!_codec || !_frame)
        return AVERROR_DECODER_NOT_FOUND;
    if (int const result = avcodec_parameters_to_context(_codec.get(), stream->codecpar); result < 0)
        return result;
    _codec->pkt_timebase = stream->time_base;
    return avcodec_open2(_codec.get(), codec, nullptr);
}

QString GLMovieSoundDecoder::name() const
{
    return _codec ? QString::fromLatin1(_codec->codec->name) : QString();
}

QString GLMovieSoundDecoder::formatText() const
{
    int const channels = _codec->ch_layout.nb_channels;
    QString const layout = channels == 1   ? QStringLiteral("Mono")
                           : channels == 2 ? QStringLiteral("Stereo")
                                           : QString::asprintf("%d Channel", channels);
    return "Audio format: " + layout + textOf(_codec->sample_fmt) + QString::asprintf(" %d hz", _codec->sample_rate);
}

QList<GLMovieSound> GLMovieSoundDecoder::decodeAudioPacket(AVPacket const* packet)
{
    QList<GLMovieSound> sounds;
    if (avcodec_send_packet(_codec.get(), packet) < 0 && packet)
        LOG_DEBUG("An audio packet could not be decoded");
    while (avcodec_receive_frame(_codec.get(), _frame.get()) >= 0) {
        append(_frame.get(), sounds);
        av_frame_unref(_frame.get());
    }
    return sounds;
}

void GLMovieSoundDecoder::flush()
{
    if (_codec)
        avcodec_flush_buffers(_codec.get());
}

void GLMovieSoundDecoder::append(AVFrame const* frame, QList<GLMovieSound>& sounds)
{
    if (frame->nb_samples <= 0 || !follow(frame))
        return;
    bool const isFirst = sounds.isEmpty() || sounds.constLast().format != _format;
    if (isFirst) {
        GLMovieSound sound;
        sound.format = _format;
        if (frame->best_effort_timestamp != AV_NOPTS_VALUE)
            sound.seconds = static_cast<double>(frame->best_effort_timestamp) * av_q2d(_stream->time_base);
        sounds.append(sound);
    }
    QByteArray& samples = sounds.last().samples;
    int const bytesPerSample = _format.channels * av_get_bytes_per_sample(outputFormat);
    qsizetype const before = samples.size();
    samples.resize(before + static_cast<qsizetype>(frame->nb_samples) * bytesPerSample);
    auto* out = reinterpret_cast<uint8_t*>(samples.data()) + before;
    auto** const in = const_cast<uint8_t const**>(frame->extended_data);
    int const converted = swr_convert(_swrContext.get(), &out, frame->nb_samples, in, frame->nb_samples);
    samples.resize(before + static_cast<qsizetype>(std::max(converted, 0)) * bytesPerSample);
    if (samples.isEmpty())
        sounds.removeLast();
}

bool GLMovieSoundDecoder::follow(AVFrame const* frame)
{
    bool const isLike = _like && _like->format == frame->format && _like->sample_rate == frame->sample_rate &&
                        av_channel_layout_compare(&_like->ch_layout, &frame->ch_layout) == 0;
    if (isLike)
        return _swrContext != nullptr;
    logReason(frame);
    _like.reset(av_frame_alloc());
    _like->format = frame->format;
    _like->sample_rate = frame->sample_rate;
    av_channel_layout_copy(&_like->ch_layout, &frame->ch_layout);
    _refused = !convertFrom(frame);
    if (_refused)
        LOG_ERROR("This sound cannot be converted");
    return !_refused;
}

bool GLMovieSoundDecoder::convertFrom(AVFrame const* frame)
{
    _swrContext.reset();
    _format = {frame->ch_layout.nb_channels == 1 ? 1 : 2, frame->sample_rate};
    if (frame->sample_rate <= 0 || frame->sample_rate > maximumSampleRate)
        return false;
    Layout from(frame->ch_layout);
    AVChannelLayout to{};
    av_channel_layout_default(&to, _format.channels);
    SwrContext* context = nullptr;
    int result = swr_alloc_set_opts2(&context, &to, outputFormat, frame->sample_rate, &from.layout,
                                     static_cast<AVSampleFormat>(frame->format), frame->sample_rate, 0, nullptr);
    _swrContext.reset(context);
    if (result >= 0)
        result = swr_init(context);
    if (result < 0)
        _swrContext.reset();
    return result >= 0;
}

void GLMovieSoundDecoder::logReason(AVFrame const* frame) const
{
    int const channels = frame->ch_layout.nb_channels;
    if (channels != 1 && channels != 2)
        LOG_INFO("We do not support %d channel audio", channels);
    switch (av_get_packed_sample_fmt(static_cast<AVSampleFormat>(frame->format))) {
    case AV_SAMPLE_FMT_U8:
        LOG_INFO("Unsigned 8 bit audio not supported");
        break;
    case AV_SAMPLE_FMT_S32:
    case AV_SAMPLE_FMT_S64:
        LOG_INFO("32 bit audio not supported");
        break;
    default:
        return;
    }
}
