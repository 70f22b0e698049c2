#include "RtspStreamFinder.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <iterator>

Logger* RtspStreamFinder::log = LoggerManager::logger();

namespace
{

struct DecoderDeleter {
    void operator()(AVCodecContext* decoder) const { avcodec_free_context(&decoder); }
};
using DecoderPointer = std::unique_ptr<AVCodecContext, DecoderDeleter>;

struct FrameDeleter {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

} // namespace

void PacketDeleter::operator()(AVPacket* packet) const
{
    av_packet_free(&packet);
}

/// A stream that is to be passed on, and what is known of it.
struct RtspStreamFinder::Candidate {
    explicit Candidate(AVStream const& from) : index(from.index), timeBase(from.time_base)
    {
        parameters.reset(avcodec_parameters_alloc());
        avcodec_parameters_copy(parameters.get(), from.codecpar);
    }

    bool isVideo() const { return parameters->codec_type == AVMEDIA_TYPE_VIDEO; }

    bool isComplete() const
    {
        return isVideo() ? parameters->width > 0 && parameters->height > 0
                         : parameters->sample_rate > 0 && parameters->ch_layout.nb_channels > 0;
    }

    /// Looks into a packet for what is missing.
    void learn(AVPacket const& packet)
    {
        if (!decoder && !openDecoder())
            return;
        std::unique_ptr<AVFrame, FrameDeleter> const frame(av_frame_alloc());
        avcodec_send_packet(decoder.get(), &packet);
        avcodec_receive_frame(decoder.get(), frame.get());
        bool const known = isVideo() ? decoder->width > 0 && decoder->height > 0
                                     : decoder->sample_rate > 0 && decoder->ch_layout.nb_channels > 0;
        if (known)
            avcodec_parameters_from_context(parameters.get(), decoder.get());
    }

    bool openDecoder()
    {
        AVCodec const* const codec = avcodec_find_decoder(parameters->codec_id);
        if (!codec)
            return false;
        decoder.reset(avcodec_alloc_context3(codec));
        avcodec_parameters_to_context(decoder.get(), parameters.get());
        decoder->thread_count = 1;
        decoder->pkt_timebase = timeBase;
        return avcodec_open2(decoder.get(), codec, nullptr) >= 0;
    }

    int const index;
    AVRational const timeBase;
    CodecParametersPointer parameters;
    DecoderPointer decoder;
};

RtspStreamFinder::RtspStreamFinder(AVFormatContext const& context) : _context(context) {}

RtspStreamFinder::~RtspStreamFinder() = default;

void RtspStreamFinder::choose()
{
    for (unsigned int i = 0; i < _context.nb_streams; ++i) {
        AVStream const& stream = *_context.streams[i];
        AVMediaType const type = stream.codecpar->codec_type;
        bool const isVideo = type == AVMEDIA_TYPE_VIDEO;
        std::unique_ptr<Candidate>& chosen = isVideo ? _video : _audio;
        if ((chosen && chosen->index == stream.index) || _leftOut.count(stream.index) > 0)
            continue;
        bool const isWanted = isVideo || type == AVMEDIA_TYPE_AUDIO;
        if (isWanted && !chosen && RtspRemuxer::takes(*stream.codecpar)) {
            chosen = std::make_unique<Candidate>(stream);
            continue;
        }
        char const* const kind = av_get_media_type_string(type);
        LOG_INFO("Stream %d (%s, %s) is left out", stream.index, kind ? kind : "unknown",
                 avcodec_get_name(stream.codecpar->codec_id));
        _leftOut.insert(stream.index);
    }
}

bool RtspStreamFinder::take(AVPacket& packet)
{
    if (!_sinceFirst.isValid())
        _sinceFirst.start();
    if (!_sinceKept.isValid())
        choose(); // A transport stream inside RTP tells its streams late.
    if (!keep(packet))
        av_packet_unref(&packet);
    return isOver();
}

bool RtspStreamFinder::keep(AVPacket& packet)
{
    bool const isVideo = _video && packet.stream_index == _video->index;
    bool const isAudio = _audio && packet.stream_index == _audio->index;
    if (!isVideo && !isAudio)
        return false;
    if (!_sinceKept.isValid()) {
        bool const isKeyFrame = isVideo && packet.flags & AV_PKT_FLAG_KEY;
        if (_video && !isKeyFrame && !isKeyFrameDue())
            return false;
        if (_video && !isKeyFrame)
            LOG_WARNING("No key frame has come for %lld ms", static_cast<long long>(_sinceFirst.elapsed()));
        _sinceKept.start();
    }
    if (Candidate& candidate = isVideo ? *_video : *_audio; !candidate.isComplete())
        candidate.learn(packet);
    PacketPointer kept(av_packet_alloc());
    av_packet_move_ref(kept.get(), &packet);
    _keptBytes += kept->size;
    _packets.push_back(std::move(kept));
    return true;
}

bool RtspStreamFinder::isKeyFrameDue() const
{
    return _sinceFirst.elapsed() > keyFrameTimeout;
}

bool RtspStreamFinder::isOver() const
{
    if (!_video && !_audio)
        return isKeyFrameDue();
    if (!_sinceKept.isValid())
        return false;
    bool const isComplete = (!_video || _video->isComplete()) && (!_audio || _audio->isComplete());
    bool const areDated = isDated(_video.get()) && isDated(_audio.get());
    return (isComplete && areDated) || _sinceKept.elapsed() > analysisTimeout || _keptBytes > maximumKeptBytes;
}

bool RtspStreamFinder::isDated(Candidate const* candidate) const
{
    int stamped = 0;
    bool isFirst = true;
    for (PacketPointer const& packet : _packets) {
        if (!candidate || packet->stream_index != candidate->index)
            continue;
        if (packet->pts != AV_NOPTS_VALUE && (isFirst || ++stamped >= datingPackets))
            return true;
        isFirst = false;
    }
    return isFirst; // What has not come needs no date.
}

void RtspStreamFinder::date(Candidate const* candidate)
{
    std::vector<AVPacket*> undated;
    std::set<std::int64_t> stamps;
    for (PacketPointer const& packet : _packets) {
        if (!candidate || packet->stream_index != candidate->index)
            continue;
        if (packet->pts != AV_NOPTS_VALUE)
            stamps.insert(packet->pts);
        else if (stamps.empty())
            undated.push_back(packet.get());
    }
    if (stamps.size() < 2)
        return;
    // Pictures may come out of order: the smallest step between them is that of the frame rate.
    std::int64_t step = INT64_MAX;
    for (auto stamp = stamps.begin(), next = std::next(stamp); next != stamps.end(); ++stamp, ++next)
        step = std::min(step, *next - *stamp);
    std::int64_t stamp = *stamps.begin();
    for (auto packet = undated.rbegin(); packet != undated.rend(); ++packet)
        (*packet)->pts = stamp -= step;
}

std::deque<PacketPointer> RtspStreamFinder::takePackets()
{
    date(_video.get());
    date(_audio.get());
    return std::move(_packets);
}

std::vector<RtspStream> RtspStreamFinder::takeStreams()
{
    std::vector<RtspStream> streams;
    for (auto* candidate : {&_video, &_audio}) {
        if (!*candidate)
            continue;
        if ((*candidate)->isComplete())
            streams.push_back({(*candidate)->index, (*candidate)->timeBase, std::move((*candidate)->parameters)});
        else
            LOG_WARNING("Stream %d is left out: nothing tells its parameters", (*candidate)->index);
    }
    return streams;
}
