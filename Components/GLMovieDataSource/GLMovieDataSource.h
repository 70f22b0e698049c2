#pragma once

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <memory>

class Logger;
class QDataStream;
class QFile;
struct AVFormatContext;
struct AVPacket;
struct AVStream;

/// Where a GLMovie reads demuxed packets from, wherever the bytes come from.
///
/// Carries what all sources share: the read watchdog that turns a silent stream into an error, the byte count, the
/// raw recording and the interruption of blocked reads.
///
/// Lives on the thread that made it, with its watchdog; readFrame() is called on the movie's reader thread and
/// interrupt() from any thread.
class GLMovieDataSource : public QObject
{
    Q_OBJECT

public:
    static constexpr int firstFrameTimeout = 60000;   ///< ms of silence allowed before the first frame.
    static constexpr int minimumFrameTimeout = 20000; ///< ms of silence always allowed after it.

    explicit GLMovieDataSource(QString const& uri, QObject* parent = nullptr);
    ~GLMovieDataSource() override;

    /// Begins to open; opened() or error() tells the end of it.
    virtual void open() = 0;

    /// Ends what open() began, in any state, and frees the format context. No read may be running.
    virtual void close() = 0;

    /// Starts the watchdog and the counters. Implementations call this body.
    virtual void start() = 0;

    /// Stops the watchdog and clears a standing error. Implementations call this body.
    virtual void stop() = 0;

    /// Reads one packet, blocking; the caller owns its data and gives it back with freeFrame().
    /// Returns 0, or FFmpeg's negative error: AVERROR(EAGAIN) to try again, anything else for the end.
    virtual int readFrame(AVPacket* packet);
    virtual void freeFrame(AVPacket* packet);

    /// Seeks a stream to a time stamp in its own time base. Returns FFmpeg's result, negative on failure.
    virtual int seekFrame(AVStream* stream, long long timestamp, int flags);

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
    void setInterrupted(bool interrupted) { _interrupted.store(interrupted); }
    bool isInterrupted() const { return _interrupted.load(); }

    /// Writes each packet's raw bytes, from now on, to a file "<directory>/<name><yyMMddhhmmss>.dump".
    /// Returns false when the file cannot be made.
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

    /// Finds the first video and audio stream of the format context.
    void findStreams();

    AVFormatContext* _formatContext = nullptr; ///< Set by the implementation when it opens.
    int _videoStreamIndex = -1;
    int _audioStreamIndex = -1;

private:
    void recordBytes(AVPacket const& packet);
    void countFrame(AVPacket const& packet);
    void clearError();

    static Logger* log;

    QString const _uri;
    std::atomic<bool> _interrupted{false};

    QTimer _errorTimer;
    mutable QMutex _mutex; ///< Guards the watchdog's state and the counters below.
    int _errorTimeout = firstFrameTimeout;
    bool _inError = false;
    QElapsedTimer _frameTime;
    quint64 _framesRead = 0;
    double _totalFrameTime = 0.0;   ///< ms
    double _averageFrameTime = 0.0; ///< ms
    quint64 _byteCount = 0;

    mutable QMutex _recordMutex; ///< Guards the recording, started on the owner's thread and fed by the reader.
    std::unique_ptr<QFile> _recordFile;
    std::unique_ptr<QDataStream> _recordStream;
    qint64 _recordedBytes = 0;
    bool _recording = false;
};
