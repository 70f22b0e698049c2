#pragma once

#include "Uri.h"
#include "WebCacheInfo.h"

#include <QByteArray>
#include <QDateTime>
#include <QSet>
#include <QString>

class Logger;

/// The files of a WebCache: for each address one with the data and one with what is known about it, named after the
/// MD5 of the address. Both are replaced at once, so that whoever reads finds the old or the new. What is broken is
/// never taken for what it should be, and a failure leaves what was there.
///
/// Any thread reads; one writes. Another process may use the same directory.
class WebCacheDirectory
{
public:
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

    /// Whether the file is the same as the copy, byte for byte.
    bool hasContentOf(Uri const& uri, QString const& path) const;

    /// Makes the file the copy: it is on the disk before the old one goes. False with the reason in the log; the
    /// file is gone either way.
    bool replaceData(Uri const& uri, QString const& path) const;

    /// Likewise writes what is known about the copy; that it was used now is known from then on.
    bool writeInfo(Uri const& uri, QDateTime const& lastModified, int maxAgeSeconds) const;

    /// Bytes of all files.
    qint64 size() const;

    /// Removes what was not used for the longest time, and what downloads left behind, until the files have so many
    /// bytes at most. Returns how many they have.
    qint64 trim(qint64 maximumBytes) const;

private:
    QString filePath(Uri const& uri, char const* ending) const;
    std::optional<WebCacheInfo> info(Uri const& uri) const;

    static Logger* log;

    QString const _path;
};
