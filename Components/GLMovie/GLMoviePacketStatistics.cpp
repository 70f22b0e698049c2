#include "GLMoviePacketStatistics.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QtDebug>

#include <cmath>

namespace
{

constexpr double gapSteps = 1.75;        // One step is the rule, and clocks jitter.
constexpr double longestGapSeconds = 60; // A jump beyond this is a new clock, not a loss.

double percent(qint64 lost, qint64 count)
{
    return 100.0 * static_cast<double>(lost) / static_cast<double>(count + lost);
}

} // namespace

void GLMoviePacketCounter::countVideo(AVPacket const& packet, AVStream const* stream)
{
    std::lock_guard const lock(_mutex);
    Times const before = _video;
    int const lost = packetsLost(packet, stream, _video);
    if (before.hasLast && _video.last > before.last)
        _silence += static_cast<double>(_video.last - before.last) * av_q2d(stream->time_base);
    ++_statistics.videoCount;
    _statistics.videoBytes += packet.size;
    _statistics.videoLost += lost;
    if (lost > 0)
        qDebug("Video Packet loss detected lost %d packets. Percent video packet loss %.2lf", lost,
               percent(_statistics.videoLost, _statistics.videoCount));
}

void GLMoviePacketCounter::countAudio(AVPacket const& packet, AVStream const* stream)
{
    std::lock_guard const lock(_mutex);
    int const lost = packetsLost(packet, stream, _audio);
    _silence = 0.0;
    ++_statistics.audioCount;
    _statistics.audioBytes += packet.size;
    _statistics.audioLost += lost;
    if (lost > 0)
        qDebug("Audio Packet loss detected lost %d packets. Percent audio packet loss %.2lf", lost,
               percent(_statistics.audioLost, _statistics.audioCount));
}

bool GLMoviePacketCounter::isSoundMissing() const
{
    std::lock_guard const lock(_mutex);
    return _silence > soundlessSeconds;
}

void GLMoviePacketCounter::forgetTimes()
{
    std::lock_guard const lock(_mutex);
    _video = {};
    _audio = {};
    _silence = 0.0;
}

void GLMoviePacketCounter::reset()
{
    std::lock_guard const lock(_mutex);
    _statistics = {};
    _video = {};
    _audio = {};
    _silence = 0.0;
}

GLMoviePacketStatistics GLMoviePacketCounter::statistics() const
{
    std::lock_guard const lock(_mutex);
    return _statistics;
}

int GLMoviePacketCounter::packetsLost(AVPacket const& packet, AVStream const* stream, Times& times)
{
    if (packet.dts == AV_NOPTS_VALUE)
        return 0;
    Times const before = times;
    times = {packet.dts, true};
    // The spacing of packets in the stream's time base: what the packet says, else the frame rate.
    double spacing = static_cast<double>(packet.duration);
    if (spacing <= 0.0 && stream->avg_frame_rate.num > 0)
        spacing = av_q2d(av_inv_q(av_mul_q(stream->avg_frame_rate, stream->time_base)));
    if (!before.hasLast || spacing <= 0.0)
        return 0;
    double const steps = static_cast<double>(packet.dts - before.last) / spacing;
    bool const isGap = steps > gapSteps && steps * spacing * av_q2d(stream->time_base) < longestGapSeconds;
    return isGap ? static_cast<int>(std::lround(steps)) - 1 : 0;
}
