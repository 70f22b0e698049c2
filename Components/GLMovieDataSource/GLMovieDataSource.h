#pragma once

#include "FFwrapper.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <memory>
#include <mutex>

class Logger;
class QDataStream;
class QFile;
struct AVPacket;
struct AVStream;

/// Where a GLMovie reads demuxed packets from, wherever the bytes come from.
///
/// Carries what all sources share: the read watchdog that turns a silent stream into an error, the byte count, the
/// raw recording and the interruption of blocked reads.
///
/// Lives on the thread that made it, with its watchdog, and emits its signals there; readFrame() is called on the
/// movie's reader thread and setInterrupted() from any thread.
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

    /// Ends what open() began, in any state, and frees the format context. No read may be running.
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

    /// Seeks a stream to a time stamp in its own time base; waits for a running read to end. Returns FFmpeg's result,
    /// negative on failure.
    virtual int seekFrame(AVStream* stream, long long timestamp, int flags);

    /// Whether seekFrame() can do anything for what is open. A live stream cannot be sought. Waits for nothing.
    virtual bool isSeekable() const;

    /// Seconds; 0 when it is not known.
    virtual double duration() const;

    /// Bytes of packets read since start().
    virtual quint64 bytesRead() const;

    QString uri() const { return _uri; }

    /// The chosen streams, owned by the format context; null when absent or not opened.
    AVStream* videoStream() const;
    AVStream* audioStream() const;

    /// The time stamp of the film's beginning in seconds, 0 when it is not known.
    double startTime() const;

    /// While set, every blocked FFmpeg call of this source returns at once with an error. Any thread.
    void setInterrupted(bool interrupted) { _interruption->store(interrupted); }
    bool isInterrupted() const { return _interruption->load(); }

    /// Writes each packet's raw bytes, from now on, to a file "<directory>/<name><yyMMddhhmmss>.dump", making the
    /// directory when needed. Returns false when the file cannot be made.
    bool startRecording(QString const& directoryAndName);
    void stopRecording();
    bool isRecording() const;

signals:
    void opened(GLMovieDataSource* source);
    void closed(GLMovieDataSource* source);
    /// A text for the viewer; the empty text says that the last error has passed.
    void error(GLMovieDataSource* source, QString text);
    void stateChanged(GLMovieDataSource* source, QString text);
    /// Crosses from the reader thread to the watchdog's.
    void resetErrorTimer();

protected slots:
    void onResetErrorTimer();
    void onErrorTimer();

protected:
    /// FFmpeg's interrupt callback; opaque is the data source.
    static int url_interrupt_cb(void* opaque);

    /// The first stream of a kind, an AVMediaType, or -1.
    static int firstStream(AVFormatContext const* context, int mediaType);

    /// Takes over an opened context and finds its streams, with no read running; null closes the present one.
    void setFormatContext(FormatContextPointer context);

    /// Whether readFrame() may touch the format context now. Called with contextMutex() locked, on any thread.
    virtual bool isReadable() const { return _formatContext != nullptr; }

    /// Emits error() with a text for the viewer, which stands until the next frame or stop().
    void raiseError(QString const& text);

    /// Raises "Stream unavailable", unless an error stands, for a stream that ended before its end. Any thread.
    void reportLoss();

    /// Milliseconds of a clock that never goes back.
    virtual qint64 currentMilliseconds() const;

    /// Locked around every use of the format context that another thread's could meet.
    std::mutex& contextMutex() { return _contextMutex; }

    FormatContextPointer _formatContext; ///< Changed on the owner's thread only, under contextMutex().
    std::shared_ptr<std::atomic<bool>> const _interruption; ///< Shared with opening threads that may outlive this.

private:
    void recordBytes(AVPacket const& packet);
    void countFrame(AVPacket const& packet);

    static Logger* log;

    QString const _uri;
    std::mutex _contextMutex;
    int _videoStreamIndex = -1;
    int _audioStreamIndex = -1;

    QTimer _errorTimer;
    mutable std::mutex _mutex; ///< Guards the watchdog's state and the counters below.
    bool _watching = false;
    int _errorTimeout = firstFrameTimeout;
    bool _inError = false;
    qint64 _frameTime = 0; ///< When the last frame came, by currentMilliseconds().
    quint64 _framesRead = 0;
    double _totalFrameTime = 0.0;   ///< ms
    double _averageFrameTime = 0.0; ///< ms
    quint64 _byteCount = 0;

    mutable std::mutex _recordMutex; ///< Guards the recording, started on the owner's thread and fed by the reader.
    std::unique_ptr<QFile> _recordFile;
    std::unique_ptr<QDataStream> _recordStream;
    qint64 _recordedBytes = 0;
    bool _recording = false;
};
