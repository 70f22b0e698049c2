#include "RtspRemuxer.h"

#include "FFwrapper.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <utility>

Logger* RtspRemuxer::log = LoggerManager::logger();

namespace
{

constexpr int ioBytes = 4096;       // Holds what comes before a packet's payload, which goes past it.
constexpr int framingReserve = 256; // Bytes that a packet may need besides its own.

AVOutputFormat const* container()
{
    return av_guess_format("nut", nullptr, nullptr);
}

} // namespace

void CodecParametersDeleter::operator()(AVCodecParameters* parameters) const
{
    avcodec_parameters_free(&parameters);
}

RtspRemuxer::RtspRemuxer() = default;

RtspRemuxer::~RtspRemuxer()
{
    closeContainer();
}

bool RtspRemuxer::takes(AVCodecParameters const& parameters)
{
    return avformat_query_codec(container(), parameters.codec_id, FF_COMPLIANCE_NORMAL) == 1;
}

bool RtspRemuxer::begin(std::vector<RtspStream> streams, std::int64_t start)
{
    _streams = std::move(streams);
    _timeline.emplace(start);
    if (!openContainer())
        return false;
    _header = std::exchange(_sink, {});
    return true;
}

bool RtspRemuxer::openContainer()
{
    closeContainer();
    avformat_alloc_output_context2(&_context, container(), nullptr, nullptr);
    _context->flags |= AVFMT_FLAG_CUSTOM_IO | AVFMT_FLAG_BITEXACT; // No header tells FFmpeg's version.
    auto* const buffer = static_cast<unsigned char*>(av_malloc(ioBytes));
    _context->pb = avio_alloc_context(buffer, ioBytes, 1, this, nullptr, &writeCallback, nullptr);
    _context->pb->direct = AVIO_FLAG_DIRECT;
    for (RtspStream const& stream : _streams) {
        AVStream* const out = avformat_new_stream(_context, nullptr);
        avcodec_parameters_copy(out->codecpar, stream.parameters.get());
        out->codecpar->codec_tag = 0; // Each container has its own.
        out->time_base = stream.timeBase;
    }
    AVDictionary* options = nullptr;
    av_dict_set(&options, "write_index", "0", 0); // It would grow for as long as the stream lasts.
    int const result = avformat_write_header(_context, &options);
    av_dict_free(&options);
    avio_flush(_context->pb);
    if (result < 0)
        LOG_ERROR("No header for these streams: %s", qPrintable(FFwrapper::errorText(result)));
    return result >= 0;
}

void RtspRemuxer::closeContainer()
{
    if (!_context)
        return;
    if (_context->pb)
        av_freep(&_context->pb->buffer);
    avio_context_free(&_context->pb);
    avformat_free_context(std::exchange(_context, nullptr));
}

RtspRemuxer::Chunk RtspRemuxer::write(AVPacket& packet)
{
    auto const found = std::find_if(_streams.begin(), _streams.end(), [&packet](RtspStream const& stream) {
        return stream.index == packet.stream_index;
    });
    if (found == _streams.end() || packet.size <= 0)
        return {};
    auto const index = static_cast<unsigned int>(found - _streams.begin());
    AVRational const timeBase = _context->streams[index]->time_base; // May be coarser than the input's.
    av_packet_rescale_ts(&packet, found->timeBase, timeBase);
    auto const stamps = _timeline->next(index, timeBase, {packet.pts, packet.dts, packet.duration});
    packet.pts = stamps.pts;
    packet.dts = stamps.dts;
    packet.stream_index = static_cast<int>(index);
    packet.pos = -1;
    bool const isEntry = beginsEntry(packet);
    if (isEntry && !openContainer())
        return {};
    _sink.clear();
    _sink.reserve(packet.size + framingReserve);
    int const result = av_write_frame(_context, &packet);
    avio_flush(_context->pb);
    if (result >= 0)
        return {std::exchange(_sink, {}), isEntry};
    if (!std::exchange(_refusalLogged, true))
        LOG_WARNING("A packet does not fit the container: %s", qPrintable(FFwrapper::errorText(result)));
    return {};
}

bool RtspRemuxer::beginsEntry(AVPacket const& packet)
{
    AVRational const timeBase = _context->streams[packet.stream_index]->time_base;
    std::int64_t const time = av_rescale_q(packet.pts, timeBase, {1, AV_TIME_BASE});
    // The picture comes first among the streams, if there is one.
    bool const isKey = packet.stream_index == 0 && packet.flags & AV_PKT_FLAG_KEY;
    if (_lastEntry && (!isKey || time < *_lastEntry + entryInterval))
        return false;
    _lastEntry = time;
    return true;
}

int RtspRemuxer::writeCallback(void* opaque, unsigned char* data, int size)
{
    static_cast<RtspRemuxer*>(opaque)->_sink.append(reinterpret_cast<char const*>(data), size);
    return size;
}
