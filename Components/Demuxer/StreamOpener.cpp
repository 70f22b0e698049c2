#include "StreamOpener.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/codec_par.h>
#include <libavformat/avformat.h>
}

#include <string_view>

Logger* StreamOpener::log = LoggerManager::logger();

namespace
{

AVStream* firstStream(AVFormatContext const& context, AVMediaType type)
{
    for (unsigned int i = 0; i < context.nb_streams; ++i)
        if (context.streams[i]->codecpar->codec_type == type)
            return context.streams[i];
    return nullptr;
}

bool is(AVFormatContext const& context, std::string_view name)
{
    return context.iformat && context.iformat->name == name;
}

double secondsOf(std::int64_t time)
{
    return time == AV_NOPTS_VALUE ? 0.0 : static_cast<double>(time) / AV_TIME_BASE;
}

StreamSnapshot snapshotOf(AVStream const* stream)
{
    std::shared_ptr<AVCodecParameters> const copy(avcodec_parameters_alloc(),
                                                  [](AVCodecParameters* p) { avcodec_parameters_free(&p); });
    if (!stream || !copy || avcodec_parameters_copy(copy.get(), stream->codecpar) < 0)
        return {};
    return {.index = stream->index,
            .timeBase = stream->time_base,
            .aspectRatio = stream->sample_aspect_ratio,
            .frameRate = stream->avg_frame_rate,
            .isCover = (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0,
            .parameters = copy};
}

/// Whether nobody knows a length. Bitrates and sizes of playlists make FFmpeg guess one, which does not count.
bool isEndless(AVFormatContext const& context)
{
    if (context.flags & AVFMT_FLAG_CUSTOM_IO)
        return false;
    if (context.ctx_flags & AVFMTCTX_UNSEEKABLE)
        return true;
    bool const isStated = context.duration > 0 && context.duration_estimation_method == AVFMT_DURATION_FROM_STREAM;
    if (is(context, "dash")) // What it reads itself is the list.
        return !isStated;
    return !isStated && (!context.pb || avio_size(context.pb) < 0);
}

int indexOf(AVStream const* stream)
{
    return stream ? stream->index : -1;
}

} // namespace

FormatContextPointer StreamOpener::open(AVFormatContext* prepared, Input const& input, Demuxer const& demuxer,
                                        int* error)
{
    QByteArray const name = input.name.toUtf8();
    prepared->interrupt_callback = demuxer.interruptCallback();
    int result = FFwrapper::openContext(prepared, input.url.constData(), input.format);
    FormatContextPointer context(prepared);
    if (result < 0 && input.kind != Live && !demuxer.isAbandoned())
        LOG_ERROR("Could not open %s: %s", name.constData(), qPrintable(FFwrapper::errorText(result)));
    if (result >= 0)
        result = findStreams(context.get(), input, demuxer);
    if (error)
        *error = result < 0 ? result : AVERROR_STREAM_NOT_FOUND;
    if (demuxer.isAbandoned())
        return nullptr;
    if (result < 0 && input.kind == Live)
        LOG_ERROR("av_find_stream_info failed. Cannot play %s", name.constData());
    if (bool const accepted = !input.accepts || input.accepts(context.get()); result < 0 || !accepted)
        return nullptr;
    QByteArray const suffix = input.kind == File ? QByteArray() : QByteArray(" " + name);
    StreamInfo const info = describe(*context);
    if (info.isEmpty()) {
        LOG_ERROR("No video or audio streams found. Cannot play%s", suffix.constData());
        return nullptr;
    }
    LOG_INFO("Video stream index = %d Audio stream index = %d%s%s", indexOf(info.video), indexOf(info.audio),
             suffix.isEmpty() ? "" : " for", suffix.constData());
    return context;
}

int StreamOpener::findStreams(AVFormatContext* context, Input const& input, Demuxer const& demuxer)
{
    QByteArray const name = input.name.toUtf8();
    if (input.kind == Live)
        LOG_DEBUG("av_find_stream_info begin for %s", name.constData());
    int const result = avformat_find_stream_info(context, nullptr);
    if (input.kind == Live)
        LOG_DEBUG("av_find_stream_info end for %s", name.constData());
    if (result >= 0 || demuxer.isAbandoned() || input.kind == Live)
        return result;
    if (input.kind == Download)
        LOG_ERROR("av_find_stream_info failed with error code %d for %s", result, name.constData());
    else
        LOG_ERROR("av_find_stream_info failed. Cannot play");
    return result;
}

StreamInfo StreamOpener::describe(AVFormatContext const& context)
{
    StreamInfo info;
    info.video = firstStream(context, AVMEDIA_TYPE_VIDEO);
    info.audio = firstStream(context, AVMEDIA_TYPE_AUDIO);
    info.videoSnapshot = snapshotOf(info.video);
    info.audioSnapshot = snapshotOf(info.audio);
    info.duration = std::max(secondsOf(context.duration), 0.0);
    info.startTime = secondsOf(context.start_time);
    bool const refuses = (context.ctx_flags & AVFMTCTX_UNSEEKABLE) != 0;
    // Formats without an I/O of their own, such as segments, can seek as far as they know their length.
    info.endless = isEndless(context);
    info.listed = is(context, "hls") || is(context, "dash");
    info.seekable = !refuses && (context.pb ? context.pb->seekable != 0 : info.duration > 0.0);
    return info;
}
