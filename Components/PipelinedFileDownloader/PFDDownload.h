#pragma once

#include "DownloadableObject.h"

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QString>

class Logger;
class MemoQueue;
class PipelinedFileDownloader;
class QNetworkReply;

/// One object on its way from the network into its file, or into memory where the file cannot be written: a disk that
/// is full or protected keeps nobody from what comes. Lives on the thread of the memo queue; what the reply
/// signals becomes memos, so that it reaches the downloader only as long as that exists.
class PFDDownload : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 maximumBytes = 64 << 20; ///< A longer object is given up.

    /// The downloader is the owner of the memos, and not called from here. The reply is borrowed. `number` tells this
    /// download from those before and after it.
    PFDDownload(PipelinedFileDownloader& downloader, MemoQueue& queue, DownloadableObject const& object, int number,
                QNetworkReply* reply, qint64 msNow, QObject* parent);

    DownloadableObject const& object() const { return _object; }
    int number() const { return _number; }
    QNetworkReply* reply() const { return _reply; }
    qint64 msStarted() const { return _msStarted; }

    /// The status of the reply; 0 when there is none.
    int statusCode() const;

    /// Keeps what has come, if it is what was asked for, and otherwise drops it. A failure ends the reply.
    void read();

    /// Gives up, for a reason in words.
    void abort(QString const& reason);

    /// Closes the file; one that is not wanted is removed.
    void close(bool isWanted);

    /// Whether what has come is in memory, and not in the file.
    bool isInMemory() const { return _isInMemory; }
    QByteArray const& bytesInMemory() const { return _memory; }

    /// Why this end was made; empty when it was not from here.
    QString failure() const { return _failure; }

public slots:
    void onReadyRead();
    void onFinished();

private:
    bool write(QByteArray const& bytes);
    bool moveToMemory();

    static Logger* log;

    PipelinedFileDownloader& _downloader;
    MemoQueue& _queue;
    DownloadableObject const _object;
    int const _number;
    QNetworkReply* const _reply;
    qint64 const _msStarted;
    QFile _file;
    qint64 _size = 0; ///< Of what has come, in bytes.
    bool _isInMemory = false;
    QByteArray _memory;
    QString _failure;
    bool _isReadPosted = false;
};
