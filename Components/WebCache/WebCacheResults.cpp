// What the cache makes of a download that has ended. On the thread of its queue.

#include "Logger.h"
#include "MemoQueue.h"
#include "WebCache.h"
#include "WebCacheCallMemo.h"

#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>

#include <utility>

void WebCache::onError(Uri const& uri, QString const& text)
{
    LOG_WARNING("Error '%s' watching %s", qPrintable(text), qPrintable(uri.toString()));
    bool const isNetworkAtFault = text.startsWith("Network error ");
    QMutexLocker locker(&_mutex);
    _downloading.remove(uri);
    auto const entry = _entries.find(uri);
    bool const isMissed = entry != _entries.end() && !entry->isAvailable;
    if (entry != _entries.end() && std::exchange(entry->wasForced, false))
        entry->isForced = true; // It is still to be done.
    locker.unlock();
    if (isMissed)
        emit unavailable(uri,
                         isNetworkAtFault ? NetworkErrors::CouldNotConnect : NetworkErrors::ResourceNotAvailable);
    scheduleRetry(uri, isNetworkAtFault);
}

void WebCache::onDownloaded(Uri const& uri, QString const& path, QDateTime const& lastModified, int maxAgeSeconds)
{
    LOG_DEBUG("Downloaded %s to %s. Last modified %s. Max. age is %d seconds.", qPrintable(uri.toString()),
              qPrintable(path), qPrintable(lastModified.toString(Qt::ISODate)), maxAgeSeconds);
    auto const read = [&path] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    if (!accept(uri, read)) {
        QFile::remove(path);
        return;
    }
    bool const isSame = _directory.hasContentOf(uri, path);
    qint64 const bytes = QFileInfo(path).size();
    if (isSame) {
        LOG_DEBUG("Touching %s.", qPrintable(uri.toString()));
        QFile::remove(path);
    } else {
        LOG_DEBUG("Updating %s.", qPrintable(uri.toString()));
        if (!_directory.replaceData(uri, path)) {
            onError(uri, QStringLiteral("Could not write the copy."));
            return;
        }
    }
    onCopied(uri, !isSame, lastModified, maxAgeSeconds);
    keepWithinLimit(isSame ? 0 : bytes);
}

/// The disk did not take it.
void WebCache::onDownloadedToMemory(Uri const& uri, QByteArray const& content, QDateTime const& lastModified,
                                    int maxAgeSeconds)
{
    if (!accept(uri, [&content] { return content; }))
        return;
    bool const isSame = _directory.isAvailable(uri) && _directory.content(uri) == content;
    if (!isSame && !_directory.hold(uri, content)) {
        onError(uri, QStringLiteral("Could not write the copy."));
        return;
    }
    onCopied(uri, !isSame, lastModified, maxAgeSeconds);
}

/// The copy is what was fetched.
void WebCache::onCopied(Uri const& uri, bool hasChanged, QDateTime const& lastModified, int maxAgeSeconds)
{
    touchUri(uri, lastModified, maxAgeSeconds);
    LOG_DEBUG("Cached %s", qPrintable(uri.toString()));
    QMutexLocker locker(&_mutex);
    _downloading.remove(uri);
    auto const entry = _entries.find(uri);
    bool const isWatched = entry != _entries.end();
    bool const isFirst = isWatched && !entry->isAvailable;
    bool const isOverdue = isWatched && std::exchange(entry->isOverdue, false);
    if (isWatched) {
        entry->isSeen = entry->isAvailable = true;
        entry->updates = entry->failures = 0;
    }
    locker.unlock();
    QDateTime const lastUpdate = _directory.lastUpdated(uri);
    if (isFirst)
        emit available(uri, lastUpdate);
    if (isWatched) {
        emit updated(uri, hasChanged, lastUpdate);
        scheduleNext(uri, maxAgeSeconds, isOverdue);
    }
}

/// Whether what was fetched passes its check. It is read only where there is one.
bool WebCache::accept(Uri const& uri, std::function<QByteArray()> const& read)
{
    QMutexLocker locker(&_mutex);
    auto const entry = _entries.constFind(uri);
    if (entry == _entries.cend()) { // Ignored meanwhile: nobody is left to say what it should be.
        _downloading.remove(uri);
        return false;
    }
    WebCacheInterest::Check const check = entry->interest.check;
    locker.unlock();
    if (!check)
        return true;
    QString const fault = check(read());
    if (fault.isEmpty())
        return true;
    LOG_WARNING("%s is not what it should be: %s", qPrintable(uri.toString()), qPrintable(fault));
    locker.relock();
    _downloading.remove(uri);
    locker.unlock();
    scheduleUpdateWithinLimits(uri, 0);
    emit refused(uri, fault);
    return false;
}

void WebCache::onUnmodified(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds)
{
    LOG_DEBUG("%s is unmodified. Last modified %s. Max. age is %d seconds.", qPrintable(uri.toString()),
              qPrintable(lastModified.toString(Qt::ISODate)), maxAgeSeconds);
    bool const isHere = _directory.isAvailable(uri);
    QMutexLocker locker(&_mutex);
    _downloading.remove(uri);
    bool isOverdue = false;
    if (auto const entry = _entries.find(uri); entry != _entries.end()) {
        entry->failures = 0;
        entry->isAvailable = isHere;
        isOverdue = std::exchange(entry->isOverdue, false);
    }
    locker.unlock();
    if (!isHere) {
        update(uri); // It went while it was asked for.
        return;
    }
    touchUri(uri, lastModified.isValid() ? lastModified : _directory.lastUpdated(uri), maxAgeSeconds);
    scheduleNext(uri, maxAgeSeconds, isOverdue);
}

void WebCache::touchUri(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds)
{
    LOG_DEBUG("Updating info for %s", qPrintable(uri.toString()));
    _directory.writeInfo(uri, lastModified, maxAgeSeconds);
}

/// Counts the files only when they may be over the limit, and then makes some room.
void WebCache::keepWithinLimit(qint64 bytesWritten)
{
    constexpr qint64 shareToKeep = 9;
    constexpr qint64 shares = 10;
    qint64 const limit = _limit;
    _bytes = _bytes < 0 ? _directory.size() : _bytes + bytesWritten;
    if (_bytes > limit)
        trim(limit / shares * shareToKeep);
}

void WebCache::clear()
{
    _queue->handleNow(new WebCacheCallMemo(this, [](WebCache& cache) {
        cache.trim(0);
        emit cache.cleared(cache._directory.size());
    }));
}

void WebCache::trim(qint64 bytes)
{
    _bytes = _directory.trim(bytes);
    QMutexLocker locker(&_mutex);
    for (WebCacheEntry& entry : _entries)
        entry.isSeen = false; // The disk is asked again.
}
