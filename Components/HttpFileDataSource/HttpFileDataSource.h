#pragma once

#include "GLMovieDataSource.h"

#include <QByteArray>
#include <QList>
#include <QNetworkReply>
#include <QSslError>

class DownloadBuffer;
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
    void close() override;
    void start() override;
    void stop() override;

    int readFrame(AVPacket* packet) override;

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

protected:
    void onOpeningEnded(bool success) override;

    DownloadBuffer& buffer() { return *_buffer; }

private:
    void attempt();
    void fail();
    static FormatContextPointer tryOpen(QString const& name, DownloadBuffer& buffer, std::atomic<bool>& needsMore,
                                        Demuxer const& demuxer);

    static Logger* log;

    std::unique_ptr<QNetworkAccessManager> _manager;
    std::unique_ptr<QNetworkReply> _reply;
    int _transferTimeout = defaultTransferTimeout;
    bool _opened = false;
    qsizetype _triedBytes = 0;                     ///< How many bytes the last attempt to open had.
    std::shared_ptr<DownloadBuffer> _buffer;       ///< With the demuxer.
    std::shared_ptr<std::atomic<bool>> _needsMore; ///< The last attempt to open had too few bytes to tell.
};
