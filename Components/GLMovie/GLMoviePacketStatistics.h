#pragma once

#include <QtGlobal>

#include <mutex>

struct AVPacket;
struct AVStream;

/// What has been read of a movie since it began, or since it last looped.
struct GLMoviePacketStatistics {
    qint64 videoCount = 0;
    qint64 videoBytes = 0;
    qint64 videoLost = 0; ///< Estimated from gaps in the time stamps.
    qint64 audioCount = 0;
    qint64 audioBytes = 0;
    qint64 audioLost = 0; ///< Estimated likewise.
};

/// Counts a movie's packets on the reader's thread, for any thread to look at.
class GLMoviePacketCounter
{
public:
    void countVideo(AVPacket const& packet, AVStream const* stream);
    void countAudio(AVPacket const& packet, AVStream const* stream);
    /// Whether pictures have been read for so many seconds, in their own time, without any sound.
    bool isSoundMissing() const;
    static constexpr double soundlessSeconds = 10.0;

    /// The next packets follow from nothing that was counted: no gap before them.
    void forgetTimes();
    void reset();
    GLMoviePacketStatistics statistics() const;

private:
    struct Times {
        qint64 last = 0; ///< In the stream's time base.
        bool hasLast = false;
    };

    static int packetsLost(AVPacket const& packet, AVStream const* stream, Times& times);

    mutable std::mutex _mutex; ///< Guards everything below.
    GLMoviePacketStatistics _statistics;
    Times _video;
    Times _audio;
    double _silence = 0.0; ///< Seconds of pictures since the last sound.
};
