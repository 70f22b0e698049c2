#pragma once

#include "NetworkErrors.h"
#include "Uri.h"
#include "WebCacheDirectory.h"
#include "WebCacheEntry.h"
#include "WebCacheSchedule.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QSet>

#include <atomic>
#include <functional>

class Logger;
class MemoQueue;
class PipelinedFileDownloader;
class RandomGenerator;
class TickCounter;

/// Local copies of what is watched on the web, and word when one has changed. Each address is fetched again on a
/// schedule of its own, as its server allows but within limits; copies outlast the program, and failures.
///
/// All operations may be called from any thread. The work is done by memos on the queue's thread, and there all
/// signals are emitted but `watched` and `ignored`. What reads a copy reads the disk at once; what asks whether there
/// is one does so too, unless the address is watched.
class WebCache : public QObject
{
    Q_OBJECT

public:
    static constexpr int MinRefreshMs = 1200000;
    static constexpr int MaxRefreshMs = 86400000;
    static constexpr int StartupPeriodMs = 1000;
    static constexpr int FirstRetryMs = 5000; ///< Where there is no copy yet; doubles up to MinRefreshMs.
    static constexpr qint64 DefaultLimit = qint64{256} << 20;

    /// Everything but the parent is borrowed. The clock goes on evenly; any thread may ask for chance.
    WebCache(PipelinedFileDownloader* downloader, RandomGenerator* randomGenerator, MemoQueue* memoQueue,
             TickCounter* tickCounter, QString const& directory, QObject* parent = nullptr);
    ~WebCache() override;

    static QString md5(QString const& text) { return WebCacheDirectory::md5(text); }

    /// The bytes that all copies may have; those not used for the longest time go.
    void setLimit(qint64 bytes) { _limit = bytes; }

    /// The queue that the work is done on, for those who follow the signals with memos of their own.
    MemoQueue* memoQueue() const { return _queue; }

    /// Removes all copies, soon; cleared() tells when that is done. What is watched is fetched again when its time
    /// comes.
    void clear();

    /// Fetches all that is watched, within StartupPeriodMs.
    void start();

    /// From now on nothing is fetched until start(), save what is on its way.
    void stop();

    /// Keeps the address fresh from now on; fetches it at once if there is no copy. Only content that passes the
    /// check becomes the copy.
    void watch(Uri const& uri, WebCacheInterest const& interest = {});

    /// The copy stays as it is: what is on its way for it is dropped.
    void ignore(Uri const& uri);
    void ignore(QSet<Uri> const& uris);

    /// Fetches a watched address at once, even if it has not changed; after some time when that is asked for again
    /// and again.
    void update(Uri const& uri);

    bool isWatched(Uri const& uri) const;
    bool isAvailable(Uri const& uri) const;

    /// The copy, and how long it is; empty when there is none.
    QByteArray content(Uri const& uri) const { return _directory.content(uri); }
    qint64 contentLength(Uri const& uri) const { return _directory.contentLength(uri); }

    /// When the copy changed, as far as is known; not valid when there is none.
    QDateTime lastUpdated(Uri const& uri) const { return _directory.lastUpdated(uri); }

    // What the memos do, on the queue's thread.
    void lookAtWatched();
    void refresh(Uri const& uri, int number);

signals:
    void watched(Uri uri);
    void ignored(Uri uri);

    /// There is a copy: it was here already when it began to be watched, or it is the first.
    void available(Uri uri, QDateTime lastUpdated);

    /// There is none, and it could not be fetched.
    void unavailable(Uri uri, NetworkErrors::NetworkError error);

    /// It was fetched; and has it changed?
    void updated(Uri uri, bool hasChanged, QDateTime lastUpdated);

    /// All copies are gone; what remains could not be removed.
    void cleared(qint64 bytesLeft);

    /// What was fetched did not pass its check, and the copy stays as it is; the fault in words.
    void refused(Uri uri, QString fault);

public slots:
    /// How a download ended. On the queue's thread.
    void onError(Uri const& uri, QString const& text);
    void onDownloaded(Uri const& uri, QString const& path, QDateTime const& lastModified, int maxAgeSeconds);
    void onDownloadedToMemory(Uri const& uri, QByteArray const& content, QDateTime const& lastModified,
                              int maxAgeSeconds);
    void onUnmodified(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds);

private:
    void followDownloader();
    void dropUnwantedSoon();
    void dropUnwanted();
    void lookAt(Uri const& uri);
    void download(Uri const& uri);
    bool accept(Uri const& uri, std::function<QByteArray()> const& read);
    void onCopied(Uri const& uri, bool hasChanged, QDateTime const& lastModified, int maxAgeSeconds);
    void touchUri(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds);
    bool schedule(Uri const& uri, qint64 ms);
    void scheduleUpdateWithinLimits(Uri const& uri, qint64 ms);
    void scheduleNext(Uri const& uri, qint64 maxAgeSeconds, bool isOverdue);
    void scheduleRetry(Uri const& uri, bool isNetworkAtFault);
    void keepWithinLimit(qint64 bytesWritten);
    void trim(qint64 bytes);

    static Logger* log;

    PipelinedFileDownloader* const _downloader;
    RandomGenerator* const _randomGenerator;
    MemoQueue* const _queue;
    WebCacheDirectory _directory;
    WebCacheSchedule _schedule;
    std::atomic<qint64> _limit{DefaultLimit};

    mutable QMutex _mutex; ///< Guards the tables below. Never held while a signal is emitted or a file is touched.
    QHash<Uri, WebCacheEntry> _entries; ///< What is watched.
    QSet<Uri> _downloading;
    QList<Uri> _unseen; ///< Watched, and not yet looked for on the disk.
    bool _isStopped = false;
    bool _isDropPosted = false;

    qint64 _bytes = -1; ///< Of all copies, about; -1 before they were counted. Of the queue's thread.
};
