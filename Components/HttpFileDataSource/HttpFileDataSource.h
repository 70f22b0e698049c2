#pragma once

#include "GLMovieDataSource.h"

#include <QByteArray>
#include <QList>
#include <QNetworkReply>
#include <QSslError>

class DownloadBuffer;
class QNetworkAccessManager;

/// Downloads a whole file over HTTP and plays it meanwhile. The download stays in memory.
///
/// What has neither a length nor an end is no file, and not played here, but told by streamFound(). Without a length,
/// only chunks, or the frames of HTTP/2, can tell their end: in chunks it counts as a file until the server calls it
/// a broadcast, it breaks off, or it has kept pace with play for a minute. What states how long it lasts is no
/// broadcast.
class HttpFileDataSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    static constexpr qsizetype maximumBytes = qsizetype(1) << 30;      ///< A longer download ends as a failure.
    static constexpr qsizetype maximumProbeBytes = qsizetype(1) << 20; ///< By then a format is known, or never.
    static constexpr int defaultTransferTimeout = minimumFrameTimeout; ///< ms of silence that end the download.

    static constexpr qint64 paceTime = 60000;  ///< ms that tell a stream in chunks from a file,
    static constexpr qint64 leastAhead = 2000; ///< with as many ms of it unread.

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
    /// It is a stream, or nothing has come of it for a reason that may pass: for a source that tries again. Told
    /// once, and nothing more is to be had here.
    void streamFound();
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

private:
    /// How much had come, and how much of that had not been read, at a time in ms.
    struct Pace {
        qint64 time = 0;
        qint64 size = 0;
        qint64 unread = 0;
    };

    bool isBroadcast() const;
    bool keepsPace();
    void leaveToStream();
    void attempt();
    int status() const;
    bool mayPass() const;
    QString errorReason() const;
    void breakOff();
    void fail(QString const& reason = {});
    static FormatContextPointer tryOpen(QString const& name, DownloadBuffer& buffer, std::atomic<bool>& needsMore,
                                        Demuxer const& demuxer);

    static Logger* log;

    std::unique_ptr<QNetworkAccessManager> _manager;
    std::unique_ptr<QNetworkReply> _reply;
    int _transferTimeout = defaultTransferTimeout;
    bool _isClosed = true;
    bool _opened = false;
    bool _isStream = false;
    bool _isUntrusted = false;                     ///< By its certificate.
    QString _failure;                              ///< Of the download, for a viewer.
    Pace _pace;                                    ///< When it was looked at last.
    qsizetype _triedBytes = 0;                     ///< How many bytes the last attempt to open had.
    std::shared_ptr<DownloadBuffer> _buffer;       ///< With the demuxer.
    std::shared_ptr<std::atomic<bool>> _needsMore; ///< The last attempt to open had too few bytes to tell.
};
