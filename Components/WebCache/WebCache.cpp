#include "WebCache.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "PipelinedFileDownloader.h"
#include "RandomGenerator.h"
#include "WebCacheCallMemo.h"
#include "WebCacheDownloadMemo.h"

#include <QMutexLocker>

#include <algorithm>
#include <utility>

namespace
{

constexpr qint64 msPerSecond = 1000;
constexpr int looksPerMemo = 100; ///< Others have work for the thread, too.

} // namespace

Logger* WebCache::log = LoggerManager::logger();

WebCache::WebCache(PipelinedFileDownloader* downloader, RandomGenerator* randomGenerator, MemoQueue* memoQueue,
                   TickCounter* tickCounter, QString const& directory, QObject* parent)
    : QObject(parent), _downloader(downloader), _randomGenerator(randomGenerator), _queue(memoQueue),
      _directory(directory), _schedule(*tickCounter, *randomGenerator)
{
    _queue->acquire(this);
    followDownloader();
}

WebCache::~WebCache()
{
    _queue->release(this);
}

/// The downloader signals on the queue's thread, and may do so while this is being deleted there or here: only a memo
/// reaches the cache for certain, or not at all.
void WebCache::followDownloader()
{
    auto const post = [cache = this, queue = _queue](std::function<void(WebCache&)> const& call) {
        queue->handleNow(new WebCacheCallMemo(cache, call));
    };
    using Downloader = PipelinedFileDownloader;
    connect(
        _downloader, &Downloader::error, this,
        [post](Uri const& uri, QString const& text) { post([=](WebCache& cache) { cache.onError(uri, text); }); },
        Qt::DirectConnection);
    connect(
        _downloader, &Downloader::downloaded, this,
        [post](Uri const& uri, QString const& path, QDateTime const& lastModified, int maxAge) {
            post([=](WebCache& cache) { cache.onDownloaded(uri, path, lastModified, maxAge); });
        },
        Qt::DirectConnection);
    connect(
        _downloader, &Downloader::downloadedToMemory, this,
        [post](Uri const& uri, QByteArray const& content, QDateTime const& lastModified, int maxAge) {
            post([=](WebCache& cache) { cache.onDownloadedToMemory(uri, content, lastModified, maxAge); });
        },
        Qt::DirectConnection);
    connect(
        _downloader, &Downloader::unmodified, this,
        [post](Uri const& uri, QDateTime const& lastModified, int maxAge) {
            post([=](WebCache& cache) { cache.onUnmodified(uri, lastModified, maxAge); });
        },
        Qt::DirectConnection);
}

void WebCache::start()
{
    LOG_INFO("Starting WebCache...");
    QMutexLocker locker(&_mutex);
    _isStopped = false;
    QList<Uri> const uris = _entries.keys();
    locker.unlock();
    for (Uri const& uri : uris) {
        qint64 const ms = _randomGenerator->qint32rand(StartupPeriodMs);
        if (schedule(uri, ms))
            LOG_DEBUG("In %dms, will grab %s", static_cast<int>(ms), qPrintable(uri.toString()));
    }
}

void WebCache::stop()
{
    LOG_INFO("Stopping WebCache...");
    QMutexLocker locker(&_mutex);
    _isStopped = true;
    locker.unlock();
    dropUnwantedSoon();
}

void WebCache::watch(Uri const& uri, WebCacheInterest const& interest)
{
    LOG_DEBUG("Watching %s", qPrintable(uri.toString()));
    QMutexLocker locker(&_mutex);
    bool const isNew = !_entries.contains(uri);
    if (isNew || interest.check) // Who has no check does not take away that of another.
        _entries[uri].interest = interest;
    if (!isNew)
        return;
    bool const isMemoNeeded = _unseen.isEmpty();
    _unseen.append(uri);
    locker.unlock();
    emit watched(uri);
    if (isMemoNeeded)
        _queue->handleNow(new WebCacheCallMemo(this, [](WebCache& cache) { cache.lookAtWatched(); }));
}

void WebCache::ignore(Uri const& uri)
{
    ignore(QSet<Uri>{uri});
}

void WebCache::ignore(QSet<Uri> const& uris)
{
    QList<Uri> ignoredUris;
    QMutexLocker locker(&_mutex);
    for (Uri const& uri : uris)
        if (_entries.remove(uri))
            ignoredUris.append(uri);
    locker.unlock();
    for (Uri const& uri : std::as_const(ignoredUris)) {
        LOG_DEBUG("Ignoring %s.", qPrintable(uri.toString()));
        emit ignored(uri);
    }
    if (!ignoredUris.isEmpty())
        dropUnwantedSoon();
}

void WebCache::dropUnwantedSoon()
{
    QMutexLocker locker(&_mutex);
    if (_downloading.isEmpty() || std::exchange(_isDropPosted, true))
        return;
    locker.unlock();
    _queue->handleNow(new WebCacheCallMemo(this, [](WebCache& cache) { cache.dropUnwanted(); }));
}

/// Of what was handed to the downloader only what it has begun is left to it.
void WebCache::dropUnwanted()
{
    QMutexLocker locker(&_mutex);
    _isDropPosted = false;
    QSet<Uri> unwanted;
    for (Uri const& uri : std::as_const(_downloading))
        if (_isStopped || !_entries.contains(uri))
            unwanted.insert(uri);
    locker.unlock();
    QSet<Uri> const dropped = _downloader->dropWaiting(unwanted);
    locker.relock();
    _downloading.subtract(dropped);
}

void WebCache::update(Uri const& uri)
{
    QMutexLocker locker(&_mutex);
    auto const entry = _entries.find(uri);
    if (entry == _entries.end())
        return;
    entry->isForced = true;
    int const updates = entry->updates++;
    locker.unlock();
    schedule(uri, updates == 0 ? 0 : _schedule.growingDelay(updates - 1, msPerSecond, MinRefreshMs));
}

bool WebCache::isWatched(Uri const& uri) const
{
    QMutexLocker locker(&_mutex);
    return _entries.contains(uri);
}

bool WebCache::isAvailable(Uri const& uri) const
{
    {
        QMutexLocker locker(&_mutex);
        if (auto const entry = _entries.constFind(uri); entry != _entries.cend() && entry->isSeen)
            return entry->isAvailable;
    }
    return _directory.isAvailable(uri);
}

void WebCache::lookAtWatched()
{
    QMutexLocker locker(&_mutex);
    QList<Uri> const uris = _unseen.first(std::min<qsizetype>(_unseen.size(), looksPerMemo));
    _unseen.remove(0, uris.size());
    bool const isMemoNeeded = !_unseen.isEmpty();
    locker.unlock();
    for (Uri const& uri : uris)
        lookAt(uri);
    if (isMemoNeeded)
        _queue->handleNow(new WebCacheCallMemo(this, [](WebCache& cache) { cache.lookAtWatched(); }));
}

void WebCache::lookAt(Uri const& uri)
{
    bool const isHere = _directory.isAvailable(uri);
    QMutexLocker locker(&_mutex);
    auto const entry = _entries.find(uri);
    if (entry == _entries.end())
        return; // Ignored meanwhile.
    entry->isSeen = true;
    entry->isAvailable = isHere;
    locker.unlock();
    if (!isHere) {
        LOG_DEBUG("  Scheduling immediate download.");
        schedule(uri, 0);
        return;
    }
    LOG_DEBUG("  Found pre-cached file for %s.", qPrintable(uri.toString()));
    emit available(uri, _directory.lastUpdated(uri));
    // A server cannot have meant more; a clock that has been set can.
    qint64 const ms = std::min<qint64>(_directory.maxAgeSeconds(uri), MaxRefreshMs / msPerSecond) * msPerSecond;
    if (schedule(uri, ms))
        LOG_DEBUG("  In %dms, will refresh %s", static_cast<int>(ms), qPrintable(uri.toString()));
}

/// Has the address fetched in so many milliseconds. False when it will be, as soon, anyway.
bool WebCache::schedule(Uri const& uri, qint64 ms)
{
    std::optional<int> const number = _schedule.plan(uri, ms);
    if (number)
        _queue->handleSoon(static_cast<unsigned int>(ms), new WebCacheDownloadMemo(*this, uri, *number));
    return number.has_value();
}

void WebCache::scheduleUpdateWithinLimits(Uri const& uri, qint64 ms)
{
    qint64 const limited = std::clamp<qint64>(ms, MinRefreshMs, MaxRefreshMs);
    if (schedule(uri, limited))
        LOG_DEBUG("In %dms, will refresh %s", static_cast<int>(limited), qPrintable(uri.toString()));
}

/// After a success.
void WebCache::scheduleNext(Uri const& uri, qint64 maxAgeSeconds, bool isOverdue)
{
    if (isOverdue)
        schedule(uri, 0);
    else
        scheduleUpdateWithinLimits(uri, maxAgeSeconds * msPerSecond);
}

/// For what is not here yet, or is known to be old, a viewer waits.
void WebCache::scheduleRetry(Uri const& uri, bool isNetworkAtFault)
{
    QMutexLocker locker(&_mutex);
    auto const entry = _entries.find(uri);
    if (entry == _entries.end())
        return;
    int const failures = entry->failures++;
    bool const isMissed = !entry->isAvailable && (isNetworkAtFault || entry->interest.isUrgent);
    bool const isSoon = entry->isForced || isMissed;
    locker.unlock();
    if (isSoon)
        schedule(uri, _schedule.growingDelay(failures, FirstRetryMs, MinRefreshMs));
    else
        scheduleUpdateWithinLimits(uri, 0);
}

void WebCache::refresh(Uri const& uri, int number)
{
    if (!_schedule.take(uri, number))
        return;
    QMutexLocker locker(&_mutex);
    bool const isWanted = _entries.contains(uri) && !_isStopped;
    locker.unlock();
    if (isWanted)
        download(uri);
}

void WebCache::download(Uri const& uri)
{
    QMutexLocker locker(&_mutex);
    auto const entry = _entries.find(uri);
    if (entry == _entries.end())
        return;
    if (_downloading.contains(uri)) {
        entry->isOverdue = entry->isForced; // It may have been asked for before it changed.
        return;
    }
    _downloading.insert(uri);
    bool const isForced = entry->wasForced = std::exchange(entry->isForced, false);
    bool const isUrgent = entry->interest.isUrgent;
    locker.unlock();
    LOG_DEBUG("Downloading %s", qPrintable(uri.toString()));
    // What is held in memory only is asked for anew: the disk may take it by now.
    bool const isWhole = isForced || _directory.isHeld(uri);
    QDateTime const lastModified = isWhole ? QDateTime() : _directory.lastUpdated(uri);
    _directory.create(); // Where it cannot be made, what comes is held.
    if (!_downloader->downloadFile(uri, _directory.tempDataFilePath(uri), lastModified, isUrgent))
        onError(uri, QStringLiteral("Could not start download."));
}
