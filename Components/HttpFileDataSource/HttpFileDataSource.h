#pragma once

#include "GLMovieDataSource.h"

#include <QByteArray>
#include <QList>
#include <QNetworkReply>
#include <QSslError>

class QNetworkAccessManager;

/// Downloads a whole file over HTTP and plays it meanwhile. The download stays in memory.
class HttpFileDataSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    static constexpr qsizetype maximumBytes = qsizetype(1) << 30;      ///< A longer download ends as a failure.
    static constexpr qsizetype maximumProbeBytes = qsizetype(1) << 20; ///< By then a format is known, or never.
    static constexpr int defaultTransferTimeout = minimumFrameTimeout; ///< ms of silence that end the download.

    explicit HttpFileDataSource(QString const& url, QObject* parent = nullptr);
    ~HttpFileDataSource() override;

    void open() override;
    /// Returns at once in any state.
    void close() override;
    void start() override;
    void stop() override;

    int readFrame(AVPacket* packet) override;
    /// Seeks within what has been downloaded; beyond that it fails.
    int seekFrame(AVStream* stream, long long timestamp, int flags) override;

    /// Bytes downloaded.
    quint64 bytesRead() const override;
    /// Where FFmpeg reads next, in bytes from the beginning.
    virtual qint64 position() const;

    /// Starts and ends the download.
    void startBuffering();
    void stopBuffering();

    void setTransferTimeout(int milliseconds) { _transferTimeout = milliseconds; }

signals:
    void downloadProgressChanged(qint64 received, qint64 total);
    void downloadComplete();

private slots:
    void onReadyRead();
    void onError(QNetworkReply::NetworkError code);
    void onSslErrors(QList<QSslError> const& errors);
    void onDownloadProgress(qint64 received, qint64 total);
    void onFinished();

private:
    class HttpFileDataSourceThread;
    enum OpenResult { OpenSucceeded, OpenNeedsMore, OpenFailed };

    void startThread();
    void onThreadFinished();
    OpenResult tryOpen();
    bool isWaitingForBytes() const;
    int readBytes(unsigned char* buffer, int size);
    void fail();
    static int readCallback(void* userData, unsigned char* buffer, int size);
    static std::int64_t seekCallback(void* userData, std::int64_t offset, int origin);

    static Logger* log;

    std::unique_ptr<QNetworkAccessManager> _manager;
    std::unique_ptr<QNetworkReply> _reply;
    std::unique_ptr<HttpFileDataSourceThread> _thread; ///< While an attempt to open runs.
    int _transferTimeout = defaultTransferTimeout;
    bool _opened = false;
    qsizetype _triedBytes = 0;         ///< How many bytes the last attempt to open had.
    std::atomic<bool> _seeking{false}; ///< On the owner's thread, where nothing may wait for the network.

    mutable std::mutex _bufferMutex; ///< Guards what follows.
    QByteArray _buffer;
    qint64 _position = 0;
    qint64 _contentLength = -1;
    bool _running = false;               ///< The download goes on.
    bool _finished = false;              ///< Every byte has come.
    bool _failed = false;                ///< The download has ended early.
    FormatContextPointer _openedContext; ///< From the opening thread to the owner's.
};
