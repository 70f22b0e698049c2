#pragma once

#include "Uri.h"

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QString>

class Logger;
class MemoQueue;
class PFDDownload;
class PFDHost;
class PFDNetwork;
class QNetworkReply;
class TickCounter;
struct DownloadableObject;

/// Fetches files over HTTP, one at a time from each server, with conditional requests.
///
/// All of it is done by memos on the thread of the queue, network and files alike; the signals are emitted there.
/// Servers that speak https have to prove who they are. Redirections are followed, but to nothing less safe.
class PipelinedFileDownloader : public QObject
{
    Q_OBJECT

public:
    static constexpr int SilenceMs = 30000;  ///< A server that sends nothing for so long is given up ...
    static constexpr int LongestMs = 600000; ///< ... and so is a download that has not ended by then.

    /// Queue and clock are borrowed. The clock goes on evenly.
    PipelinedFileDownloader(MemoQueue* queue, TickCounter* tickCounter, QObject* parent = nullptr);
    ~PipelinedFileDownloader() override;

    /// Fetches an object into a file, which is written over, unless the server says that it has not changed since
    /// the date, if there is one. An urgent object goes before those that wait. False when the address is none of a
    /// web server; otherwise one of the signals tells how it went. Any thread.
    bool downloadFile(Uri const& uri, QString const& destination, QDateTime const& lastModified,
                      bool isUrgent = false);

    /// Forgets those of the addresses of which no object has been asked for yet, and returns them: no signal tells of
    /// them. On the queue's thread.
    QSet<Uri> dropWaiting(QSet<Uri> const& uris);

    // What the memos do, on the queue's thread.
    void queueObject(DownloadableObject const& object);
    void readDownload(QString const& host, int number);
    void finishDownload(QString const& host, int number);
    void reapReplies();

public slots:
    /// Ends a download that is over one of its limits, or looks again when it would be.
    void onTimeout(QString const& host, int number);

signals:
    /// Begins with "Network error " or "HTTP error ". The file is gone.
    void error(Uri uri, QString text);

    /// The date is not valid if the server told none; the age is the number of seconds that it allows.
    void downloaded(Uri uri, QString destination, QDateTime lastModified, int maxAgeSeconds);
    /// Likewise, where the file could not be written.
    void downloadedToMemory(Uri uri, QByteArray content, QDateTime lastModified, int maxAgeSeconds);
    void unmodified(Uri uri, QDateTime lastModified, int maxAgeSeconds);

private:
    PFDNetwork& network();
    PFDDownload* currentDownload(QString const& host, int number);
    void doNext(QString const& host);
    void send(QString const& host, PFDHost& state, DownloadableObject const& object);
    QDateTime lastModifiedOf(QNetworkReply const& reply) const;
    int maxAgeSecondsOf(QNetworkReply const& reply) const;
    void report(PFDDownload& download, int statusCode);
    void queueOldReplyForCleanup(QString const& host, PFDHost& state, PFDDownload* download);

    static Logger* log;

    MemoQueue* const _queue;
    TickCounter* const _tickCounter;

    // Of the queue's thread.
    PFDNetwork* _network = nullptr; ///< Lives there, and is deleted there.
    int _lastNumber = 0;
};
