#pragma once

#include "Demuxer.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

class Logger;
class PacketRecorder;

/// Where a GLMovie reads demuxed packets from, wherever the bytes come from.
///
/// Carries what all sources share: the demuxer, the read watchdog that turns a silent stream into an error, the byte
/// count and the recording.
///
/// Lives on the thread that made it, with its watchdog, and emits its signals there; readFrame() is called on the
/// movie's reader thread, seekFrame() on any thread but the owner's, and setInterrupted() on any. Nothing else waits:
/// not for a network, nor for a disk, nor for a thread that does.
class GLMovieDataSource : public QObject
{
    Q_OBJECT

public:
    static constexpr int firstFrameTimeout = 60000;   ///< ms of silence allowed before the first frame.
    static constexpr int minimumFrameTimeout = 20000; ///< ms of silence always allowed after it.

    explicit GLMovieDataSource(QString const& uri, QObject* parent = nullptr);
    ~GLMovieDataSource() override;

    /// Begins to open, and clears an interruption; opened() or error() tells the end of it.
    virtual void open() = 0;

    /// Ends what open() began, in any state and at once: FFmpeg, if it is held up, ends by itself later. The streams
    /// are gone then, and no read may be running, which setInterrupted() ends.
    virtual void close() = 0;

    /// Starts the watchdog and the counters. Implementations call this body.
    virtual void start() = 0;

    /// Stops the watchdog and clears a standing error. Implementations call this body.
    virtual void stop() = 0;

    /// Reads one packet, blocking; the caller owns its data and gives it back with freeFrame().
    /// Returns 0, or FFmpeg's negative error: AVERROR(EAGAIN) to try again, AVERROR_EOF for the end, AVERROR_EXIT
    /// when interrupted, anything else for a loss, which the viewer learns from error().
    virtual int readFrame(AVPacket* packet);
    virtual void freeFrame(AVPacket* packet);

    /// Seeks a stream to a time stamp in its own time base, blocking; FFmpeg's running read gives way. Backwards, it
    /// finds the key frame before, whatever the format; a cover is sought by the sound. Returns
    /// FFmpeg's result, negative on failure, AVERROR_EXIT when interrupted.
    virtual int seekFrame(AVStream* stream, long long timestamp, int flags);

    /// Whether seekFrame() can do anything for what is open. A live stream cannot be sought. Waits for nothing.
    virtual bool isSeekable() const;

    /// Tells the last return of a sender that, when it was lost and is there again, begins with what it has sent
    /// already, without closed(): a number that no other return has, 0 when there was none lately. Nothing for all
    /// other sources. Any thread.
    virtual std::optional<qint64> comeback() const { return std::nullopt; }

    /// Seconds; 0 when it is not known.
    virtual double duration() const;

    /// Bytes of packets read since start().
    virtual quint64 bytesRead() const;

    QString uri() const { return _uri; }

    /// The chosen streams, owned by the format context; null when absent or not opened.
    AVStream* videoStream() const { return _streams.video; }
    AVStream* audioStream() const { return _streams.audio; }

    /// What they were when they were opened, with null parameters when absent. For any thread from opened() to
    /// close(), which the streams themselves are not: FFmpeg may change them while it reads.
    StreamSnapshot const& videoSnapshot() const { return _streams.videoSnapshot; }
    StreamSnapshot const& audioSnapshot() const { return _streams.audioSnapshot; }

    /// The time stamp of the film's beginning in seconds, 0 when it is not known.
    double startTime() const { return _streams.startTime; }

    /// While set, readFrame() and seekFrame() return at once with AVERROR_EXIT, whatever FFmpeg is held up by. What
    /// it reads meanwhile is kept for later. Any thread.
    void setInterrupted(bool interrupted);
    bool isInterrupted() const { return _interrupted; }

    /// Records from the next key frame on to "<directory>/<name><yyMMddhhmmss>.mkv", making the directory when needed
    /// and adding a number to a name that is taken; with `dump`, also each packet's raw bytes, from now on, to the
    /// same name with ".dump". Does nothing unless open. A failure, now or later, is told by recordingFailed(), also
    /// when what was left has failed after stopRecording(). A stream that opens anew must be told again.
    void startRecording(QString const& directoryAndName, bool dump = false);
    void stopRecording();
    bool isRecording() const;

signals:
    void opened(GLMovieDataSource* source);
    /// What was open goes, for the source opens anew by itself: whoever reads must have stopped, and forgotten the
    /// streams, when this returns.
    void closed(GLMovieDataSource* source);
    /// A text for the viewer; the empty text says that the last error has passed.
    void error(GLMovieDataSource* source, QString text);
    void stateChanged(GLMovieDataSource* source, QString text);
    /// What stateChanged() told of is over: a stream that can be lost is there, at first or again.
    void playing(GLMovieDataSource* source);
    /// Recording has ended by itself, or its end could not be written, with a reason for the viewer.
    void recordingFailed(GLMovieDataSource* source, QString reason);
    /// Crosses from the reader thread to the watchdog's.
    void resetErrorTimer();

protected slots:
    void onResetErrorTimer();
    void onErrorTimer();

protected:
    /// Lets a demuxer open within so many milliseconds, -1 for as long as it takes; onOpeningEnded() tells the end of
    /// it. What is open stays until another is, and closed() is told before it goes.
    void startDemuxer(Demuxer::Opening opening, int deadline = firstFrameTimeout);

    /// Leaves the demuxer that opens, if any, to end by itself.
    void cancelOpening();

    /// The same for what is open, too: forgets the streams and ends the recording.
    void dropDemuxer();
    bool hasDemuxer() const { return _opening || demuxer(); }

    /// Whether what has opened anew takes the place of what is open; if not, it is closed, and nothing is told. On
    /// the owner's thread.
    virtual bool goesOnWith(StreamInfo const&) { return true; }

    /// What is open, or null. Any thread.
    std::shared_ptr<Demuxer> demuxer() const;

    /// The demuxer has opened, and its streams are known, or it has failed and is gone. On the owner's thread.
    virtual void onOpeningEnded(bool success) = 0;

    /// Has readFrame() return AVERROR(ETIMEDOUT) after so many milliseconds without a packet, or three times the
    /// longest wait for one since start() when that is longer; -1, as at first, for never. While nobody reads.
    void setSilenceLimit(int milliseconds) { _silenceLimit = milliseconds; }

    /// What is played from; on the owner's thread, with no read running.
    void setStreams(StreamInfo const& streams) { _streams = streams; }
    StreamInfo const& streams() const { return _streams; }

    /// Emits error() with a text for the viewer, which stands until the next frame or stop().
    void raiseError(QString const& text);

    /// Raises "Stream unavailable", unless an error stands, for a stream that ended before its end. Any thread.
    void reportLoss();

    /// A frame has been read between start() and stop(). On the owner's thread, some time later.
    virtual void onFrameRead() {}

    /// Milliseconds of a clock that never goes back.
    virtual qint64 currentMilliseconds() const;

private:
    void onDemuxed();
    void takeDemuxer(std::shared_ptr<Demuxer> const& opened);
    int silenceLimit() const;
    void record(AVPacket const& packet);
    void countFrame(AVPacket const& packet, qint64 waited);

    static Logger* log;

    QString const _uri;
    std::atomic<bool> _interrupted{false};
    StreamInfo _streams;               ///< Changed on the owner's thread only, while nobody reads.
    std::shared_ptr<Demuxer> _opening; ///< Is not open yet. On the owner's thread, as is the next.
    unsigned int _openingNumber = 0;   ///< Tells the opening of now from those before.
    int _silenceLimit = -1;            ///< ms
    mutable std::mutex _demuxerMutex;  ///< Guards the pointer.
    std::shared_ptr<Demuxer> _demuxer; ///< What is open.

    QTimer _errorTimer;
    mutable std::mutex _mutex; ///< Guards the watchdog's state and the counters below.
    bool _watching = false;
    int _errorTimeout = firstFrameTimeout;
    bool _inError = false;
    qint64 _frameTime = 0; ///< When the last frame came, by currentMilliseconds().
    quint64 _framesRead = 0;
    double _totalFrameTime = 0.0;   ///< ms
    double _averageFrameTime = 0.0; ///< ms
    qint64 _longestWait = 0;        ///< ms
    quint64 _byteCount = 0;

    unsigned int _recordingNumber = 0; ///< Tells the recording of now from those before. On the owner's thread.
    mutable std::mutex _recordMutex;   ///< Guards the pointer, set on the owner's thread and fed from by the reader.
    std::shared_ptr<PacketRecorder> _recorder;
    std::vector<std::weak_ptr<PacketRecorder>> _finishing; ///< May still tell of a failure. On the owner's thread.
};
