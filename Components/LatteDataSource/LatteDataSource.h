#pragma once

#include "GLMovieDataSource.h"
#include "NetworkErrors.h"
#include "StreamDescription.h"

#include <QByteArray>

#include <optional>

class Latte;
class LatteClient;
class LatteInput;

/// Feeds FFmpeg from a LatteClient, which lives on a thread of its own while it delivers.
///
/// Goes through closed, buffering, open (FFmpeg reads through the callback), resetting (from a change of the stream's
/// header to closed()), and back to buffering. Listeners of closed() must have stopped reading, and forgotten the
/// streams, when they return.
class LatteDataSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    static constexpr int minimumBufferedBytes = 128000;   ///< For schemes that have no start-up rule of their own.
    static constexpr int maximumBufferedBytes = 32 << 20; ///< More waits in the client until the source is open.
    static constexpr int openDelay = 5000;       ///< ms from a failed attempt to the next; usually also from open().
    static constexpr int resetDelay = 3000;      ///< ms from a new stream header to closed().
    static constexpr int flowTime = 1000;        ///< ms without a frame after which nothing is left to be shown.
    static constexpr int repetitionTime = 30000; ///< ms of a comeback(): as long as a client's buffer, twice.

    /// The Latte must outlive this object. An empty name stands for the address of the stream.
    LatteDataSource(Latte* latte, StreamDescription const& streamDescription, QString const& name,
                    QObject* parent = nullptr);
    ~LatteDataSource() override;

    /// How long data is gathered from open() to the first attempt, in ms; with 0 there is one with the first data.
    void setStartDelay(int milliseconds) { _attemptDelay = milliseconds; }

    /// An address that no client takes leaves the source closed and is an error for the viewer.
    void open() override;
    void close() override;
    void start() override;
    void stop() override;
    int readFrame(AVPacket* packet) override;
    /// Does nothing and returns 0: what is live cannot be sought.
    int seekFrame(AVStream* stream, long long timestamp, int flags) override;
    bool isSeekable() const override { return false; }
    /// For a while after the client has come back to its server.
    std::optional<qint64> comeback() const override;

    // What the client says of a lost connection is held back as long as there are frames in its buffer: nothing is to
    // be seen of the loss then, and it may be over in time.

    /// What delivers the bytes; null unless open. Lives on a thread of its own.
    LatteClient const* client() const { return _client; }

signals:
    /// The address turned out to be a plain audio or video file, which this source cannot play.
    void plainFileFound();

public slots:
    void onLatteBytesReady(LatteClient* client);
    void onLatteDescriptorChanged(LatteClient* client, qint64 offset);
    void onLatteStateChanged(LatteClient* client);
    void onLatteError(LatteClient* client, NetworkErrors::NetworkError code);
    void onReset();
    void onProgressChanged(LatteClient* client, QString const& text);
    void onLattePlaying(LatteClient* client);

protected:
    void onOpeningEnded(bool success) override;
    void onFrameRead() override;

private:
    class LatteDataSourceThread;

    bool takeBytes(LatteClient* client);
    bool isExhausted() const;
    void tryOpen();
    int contextFromHeader(QByteArray const& header);
    void leaveInput();
    void onFlowEnded();
    void forgetHeldBack();
    static FormatContextPointer openFormat(QString const& address, QByteArray const& header,
                                           std::shared_ptr<LatteInput> const& input, Demuxer const& demuxer);

    static Logger* log;
    static constexpr qint64 never = -1;

    Latte* const _latte;
    StreamDescription const _streamDescription;
    LatteClient* _client = nullptr; ///< Null unless open; changed only while no read runs.
    std::unique_ptr<LatteDataSourceThread> _thread;
    QTimer _retryTimer; ///< Comes back to bytes that came too early for an attempt.
    QTimer _resetTimer;
    QTimer _flowTimer;             ///< Runs while frames come, from one to the next.
    QString _heldBackState;        ///< To be told when it has run out; empty for none.
    QString _heldBackError;        ///< Likewise.
    int _attemptDelay = openDelay; ///< ms from _openTime to the next attempt.
    qint64 _openTime = 0;          ///< When open() was called or the last attempt failed, by currentMilliseconds().

    std::shared_ptr<LatteInput> _input; ///< With the demuxer; null before the first attempt to open.
    QByteArray _dataBuffer;             ///< Read from the client before the source was open.
    std::atomic<bool> _opened{false};   ///< These two are told to the reader.
    std::atomic<bool> _resetPending{false};
    /// By currentMilliseconds(), 0 for not yet. The client's thread sets it.
    std::atomic<qint64> _repeatsUntil{never};
};
