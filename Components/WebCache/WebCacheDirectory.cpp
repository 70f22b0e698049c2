#include "WebCacheDirectory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "PFDDownload.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <limits>
#include <unistd.h>

namespace
{

/// Has a file or a directory written to the disk.
bool synchronise(QString const& path)
{
    int const descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    bool const isSynchronised = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return isSynchronised;
}

/// The files that belong together.
struct Copy {
    QStringList paths;
    qint64 bytes = 0;
    QDateTime lastUsed;
};

constexpr int secondsOfDownload = 86400; ///< A file of a download that is older than this was left behind.

} // namespace

Logger* WebCacheDirectory::log = LoggerManager::logger();

WebCacheDirectory::WebCacheDirectory(QString const& path) : _path(path) {}

QString WebCacheDirectory::md5(QString const& text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Md5).toHex());
}

QString WebCacheDirectory::filePath(Uri const& uri, char const* ending) const
{
    return QString("%1/%2%3").arg(_path, md5(uri.toString()), QLatin1String(ending));
}

QString WebCacheDirectory::dataFilePath(Uri const& uri) const
{
    return filePath(uri, ".data");
}

QString WebCacheDirectory::infoFilePath(Uri const& uri) const
{
    return filePath(uri, ".info");
}

QString WebCacheDirectory::tempDataFilePath(Uri const& uri) const
{
    return filePath(uri, "") + QString(".%1.part").arg(QCoreApplication::applicationPid());
}

std::optional<WebCacheInfo> WebCacheDirectory::info(Uri const& uri) const
{
    QFile file(infoFilePath(uri));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    std::optional<WebCacheInfo> const info = WebCacheInfo::parse(file.read(WebCacheInfo::maximumBytes + 1));
    if (!info)
        LOG_WARNING("%s cannot be read.", qPrintable(file.fileName()));
    return info;
}

std::optional<WebCacheDirectory::Held> WebCacheDirectory::held(Uri const& uri) const
{
    QMutexLocker const locker(&_mutex);
    auto const found = _held.constFind(uri);
    return found == _held.cend() ? std::nullopt : std::optional(*found);
}

bool WebCacheDirectory::hold(Uri const& uri, QByteArray const& content)
{
    QMutexLocker const locker(&_mutex);
    qint64 const bytes = _bytesHeld - _held.value(uri).content.size() + content.size();
    if (bytes > maximumBytesHeld)
        return false;
    _bytesHeld = bytes;
    _held[uri].content = content;
    return true;
}

void WebCacheDirectory::letGo(Uri const& uri)
{
    QMutexLocker const locker(&_mutex);
    _bytesHeld -= _held.take(uri).content.size();
}

bool WebCacheDirectory::isAvailable(Uri const& uri) const
{
    if (isHeld(uri))
        return true;
    if (!QFileInfo(dataFilePath(uri)).isFile())
        return false;
    std::optional<WebCacheInfo> const known = info(uri);
    if (!known || known->address.isEmpty() || known->address == uri.toString())
        return true;
    LOG_WARNING("%s belongs to %s, not to %s.", qPrintable(infoFilePath(uri)), qPrintable(known->address),
                qPrintable(uri.toString()));
    return false;
}

QByteArray WebCacheDirectory::content(Uri const& uri) const
{
    if (std::optional<Held> const copy = held(uri))
        return copy->content;
    QFile file(dataFilePath(uri));
    if (!isAvailable(uri) || !file.open(QIODevice::ReadOnly) || file.size() > PFDDownload::maximumBytes)
        return {};
    return file.readAll();
}

qint64 WebCacheDirectory::contentLength(Uri const& uri) const
{
    if (std::optional<Held> const copy = held(uri))
        return copy->content.size();
    return isAvailable(uri) ? QFileInfo(dataFilePath(uri)).size() : 0;
}

QDateTime WebCacheDirectory::lastUpdated(Uri const& uri) const
{
    if (std::optional<Held> const copy = held(uri))
        return copy->lastModified;
    if (!isAvailable(uri))
        return {};
    if (std::optional<WebCacheInfo> const known = info(uri); known && known->lastModified.isValid())
        return known->lastModified;
    QDateTime const modified = QFileInfo(dataFilePath(uri)).lastModified().toUTC();
    LOG_DEBUG("Using filesystem timestamp to generate lastModified %s with time spec %d.",
              qPrintable(modified.toString(Qt::ISODate)), static_cast<int>(modified.timeSpec()));
    return modified;
}

qint64 WebCacheDirectory::maxAgeSeconds(Uri const& uri) const
{
    std::optional<WebCacheInfo> const known = info(uri);
    qint64 const now = QDateTime::currentSecsSinceEpoch();
    return known && known->expiresAt > now ? known->expiresAt - now : 0;
}

bool WebCacheDirectory::create() const
{
    if (QDir().mkpath(_path))
        return true;
    LOG_ERROR("The cache directory %s cannot be made.", qPrintable(_path));
    return false;
}

bool WebCacheDirectory::hasContentOf(Uri const& uri, QString const& path) const
{
    constexpr qint64 pieceBytes = 64 << 10;
    QFile mine(dataFilePath(uri));
    QFile other(path);
    if (isHeld(uri) || !isAvailable(uri) || !mine.open(QIODevice::ReadOnly) || !other.open(QIODevice::ReadOnly) ||
        mine.size() != other.size())
        return false;
    while (!mine.atEnd()) {
        QByteArray const piece = mine.read(pieceBytes);
        if (piece.isEmpty() || piece != other.read(pieceBytes))
            return false;
    }
    return true;
}

bool WebCacheDirectory::replaceData(Uri const& uri, QString const& path)
{
    QByteArray const from = QFile::encodeName(path);
    QByteArray const to = QFile::encodeName(dataFilePath(uri));
    if (synchronise(path) && std::rename(from.constData(), to.constData()) == 0) {
        synchronise(_path);
        letGo(uri);
        return true;
    }
    LOG_ERROR("%s cannot be put in the place of %s: %s.", from.constData(), to.constData(),
              qPrintable(qt_error_string(errno)));
    QFile file(path);
    bool const isHeldNow = file.open(QIODevice::ReadOnly) && hold(uri, file.readAll());
    file.remove();
    return isHeldNow;
}

bool WebCacheDirectory::writeInfo(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds)
{
    QMutexLocker locker(&_mutex);
    if (auto const copy = _held.find(uri); copy != _held.end()) {
        copy->lastModified = lastModified.isValid() ? lastModified : QDateTime::currentDateTimeUtc();
        return true;
    }
    locker.unlock();
    WebCacheInfo const known{lastModified, QDateTime::currentSecsSinceEpoch() + maxAgeSeconds, uri.toString()};
    QSaveFile file(infoFilePath(uri)); // Which synchronises it, too.
    QByteArray const xml = known.toXml();
    if (file.open(QIODevice::WriteOnly) && file.write(xml) == xml.size() && file.commit())
        return true;
    LOG_ERROR("%s cannot be written: %s.", qPrintable(file.fileName()), qPrintable(file.errorString()));
    return false;
}

qint64 WebCacheDirectory::size() const
{
    return trim(std::numeric_limits<qint64>::max());
}

qint64 WebCacheDirectory::trim(qint64 maximumBytes) const
{
    QDateTime const now = QDateTime::currentDateTimeUtc();
    QHash<QString, Copy> copies;
    qint64 bytes = 0;
    for (QFileInfo const& file : QDir(_path).entryInfoList(QDir::Files | QDir::Hidden)) {
        if (file.suffix() == "part" && file.lastModified().secsTo(now) > secondsOfDownload) {
            QFile::remove(file.filePath());
            continue;
        }
        Copy& copy = copies[file.baseName()];
        copy.paths.append(file.filePath());
        copy.bytes += file.size();
        copy.lastUsed = std::max(copy.lastUsed, file.lastModified());
        bytes += file.size();
    }
    if (bytes <= maximumBytes)
        return bytes;
    QList<Copy> oldestFirst = copies.values();
    std::sort(oldestFirst.begin(), oldestFirst.end(),
              [](Copy const& a, Copy const& b) { return a.lastUsed < b.lastUsed; });
    for (auto copy = oldestFirst.cbegin(); copy != oldestFirst.cend() && bytes > maximumBytes; ++copy) {
        for (QString const& path : copy->paths)
            QFile::remove(path);
        bytes -= copy->bytes;
    }
    return bytes;
}
