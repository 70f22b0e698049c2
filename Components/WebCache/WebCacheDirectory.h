#pragma once

#include "Uri.h"
#include "WebCacheInfo.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QMutex>
#include <QSet>
#include <QString>

class Logger;

/// The files of a WebCache: for each address one with the data and one with what is known about it, named after the
/// MD5 of the address. Both are replaced at once, so that whoever reads finds the old or the new. What is broken is
/// never taken for what it should be, and a failure leaves what was there. What the disk does not take is held in
/// memory, as a copy like the others, until it can be written or the program ends.
///
/// Any thread reads; one writes. Another process may use the same directory.
class WebCacheDirectory
{
public:
    static constexpr qint64 maximumBytesHeld = qint64{32} << 20;

    explicit WebCacheDirectory(QString const& path);

    /// In hexadecimal, lower case.
    static QString md5(QString const& text);

    QString dataFilePath(Uri const& uri) const;
    QString infoFilePath(Uri const& uri) const;
    /// Where a download goes; of this process alone.
    QString tempDataFilePath(Uri const& uri) const;

    /// Whether there is a copy of this address, and not of another one under its name.
    bool isAvailable(Uri const& uri) const;

    /// The copy; empty when there is none, and for one that is longer than a download may be.
    QByteArray content(Uri const& uri) const;
    qint64 contentLength(Uri const& uri) const;

    /// What the server told, or else the time of the file; not valid without a copy.
    QDateTime lastUpdated(Uri const& uri) const;

    /// For how many seconds from now the copy is good, by the system's clock; 0 when that is over or not known.
    qint64 maxAgeSeconds(Uri const& uri) const;

    /// Makes the directory if need be; false when it is not there then.
    bool create() const;

    /// Whether the file is the same as the copy on the disk, byte for byte.
    bool hasContentOf(Uri const& uri, QString const& path) const;

    /// Makes the file the copy: it is on the disk before the old one goes, or else held. False with the reason in the
    /// log; the file is gone either way.
    bool replaceData(Uri const& uri, QString const& path);

    /// Makes this the copy, without the disk. False when that would be more than may be held.
    bool hold(Uri const& uri, QByteArray const& content);
    bool isHeld(Uri const& uri) const { return held(uri).has_value(); }

    /// Likewise writes what is known about the copy; that it was used now is known from then on.
    bool writeInfo(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds);

    /// Bytes of all files.
    qint64 size() const;

    /// Removes what was not used for the longest time, and what downloads left behind, until the files have so many
    /// bytes at most. Returns how many they have.
    qint64 trim(qint64 maximumBytes) const;

private:
    struct Held {
        QByteArray content;
        QDateTime lastModified;
    };

    QString filePath(Uri const& uri, char const* ending) const;
    std::optional<WebCacheInfo> info(Uri const& uri) const;
    std::optional<Held> held(Uri const& uri) const;
    void letGo(Uri const& uri);

    static Logger* log;

    QString const _path;

    mutable QMutex _mutex; ///< Guards the two below. A leaf.
    QHash<Uri, Held> _held;
    qint64 _bytesHeld = 0;
};
