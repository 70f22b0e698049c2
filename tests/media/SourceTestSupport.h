#pragma once

#include "GLMovieDataSource.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <functional>
#include <gtest/gtest.h>

/// Turns the event loop until the condition holds; false when it does not within ten seconds.
inline bool waitUntil(std::function<bool()> const& condition)
{
    return QTest::qWaitFor(condition, 10000);
}

/// Opens, and waits for the answer. Returns whether it opened.
inline bool openSource(GLMovieDataSource& source)
{
    QSignalSpy const opened(&source, &GLMovieDataSource::opened);
    QSignalSpy const error(&source, &GLMovieDataSource::error);
    source.open();
    waitUntil([&] { return !opened.isEmpty() || !error.isEmpty(); });
    return !opened.isEmpty();
}

/// What reading to the end brought.
struct ReadResult {
    int videoFrames = 0;
    int audioFrames = 0;
    quint64 bytes = 0;
    double latest = 0.0; ///< Seconds of a picture's time stamp.
    int end = 0;         ///< The result that was not a frame.
};

inline ReadResult readToEnd(GLMovieDataSource& source)
{
    ReadResult result;
    AVPacket* packet = av_packet_alloc();
    for (;;) {
        result.end = source.readFrame(packet);
        if (result.end == AVERROR(EAGAIN))
            continue;
        if (result.end < 0)
            break;
        result.bytes += static_cast<quint64>(packet->size);
        if (source.videoStream() && packet->stream_index == source.videoStream()->index) {
            ++result.videoFrames;
            double const seconds = static_cast<double>(packet->pts) * av_q2d(source.videoSnapshot().timeBase);
            result.latest = std::max(result.latest, seconds);
        }
        if (source.audioStream() && packet->stream_index == source.audioStream()->index)
            ++result.audioFrames;
        source.freeFrame(packet);
    }
    av_packet_free(&packet);
    return result;
}

/// Reads on a thread of its own, as the movie does, while the event loop turns here.
class Reader
{
public:
    explicit Reader(GLMovieDataSource& source)
        : _source(source), _thread(QThread::create([this] {
              ReadResult const result = readToEnd(_source);
              std::lock_guard const lock(_mutex);
              _result = result;
              _done = true;
          }))
    {
        _thread->start();
    }
    ~Reader()
    {
        _source.setInterrupted(true);
        _thread->wait();
    }

    /// Waits for the end of the reading.
    ReadResult result()
    {
        EXPECT_TRUE(waitUntil([this] { return isDone(); }));
        _thread->wait();
        std::lock_guard const lock(_mutex);
        return _result;
    }
    bool isDone() const
    {
        std::lock_guard const lock(_mutex);
        return _done;
    }

private:
    GLMovieDataSource& _source;
    mutable std::mutex _mutex; ///< Guards _result and _done.
    ReadResult _result;
    bool _done = false;
    std::unique_ptr<QThread> _thread;
};
