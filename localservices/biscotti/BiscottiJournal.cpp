#include "BiscottiJournal.h"

#include "BiscottiLimits.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QSaveFile>

Logger* BiscottiJournal::log = LoggerManager::logger();

namespace
{
constexpr qint64 maximumLine = 4096; // An id of BiscottiLimits::id characters takes up to 12 bytes for each.
constexpr QIODevice::OpenMode appending = QIODevice::Append | QIODevice::Unbuffered;
} // namespace

bool BiscottiJournal::open(QString const& path, qint64 msNow, QString& error)
{
    _file.setFileName(path);
    if (_file.open(QIODevice::ReadOnly))
        load(msNow);
    else if (_file.exists()) {
        error = QStringLiteral("cannot read %1: %2").arg(path, _file.errorString());
        return false;
    }
    if (rewrite(_entries))
        return true;
    error = QStringLiteral("cannot write %1").arg(path);
    return false;
}

/// A line that makes no sense is left out: the last one may have been cut off.
void BiscottiJournal::load(qint64 msNow)
{
    qint64 read = 0;
    while (!_file.atEnd() && read <= 2 * maximumBytes) {
        QByteArray const line = _file.readLine(maximumLine);
        read += line.size();
        bool isNumber = false;
        qint64 const ms = line.left(line.indexOf(' ')).toLongLong(&isNumber);
        QString const id =
            QString::fromUtf8(QByteArray::fromPercentEncoding(line.mid(line.indexOf(' ') + 1).trimmed()));
        if (line.endsWith('\n') && isNumber && !id.isEmpty() && id.size() <= BiscottiLimits::id &&
            msNow - ms <= BiscottiLimits::msAbsent)
            _entries.append({ms, CentralisedBiscottiMessageId(id)});
    }
    _file.close();
}

void BiscottiJournal::append(qint64 ms, CentralisedBiscottiMessageId const& id)
{
    if (!isOpen())
        return;
    QByteArray const line = lineOf({ms, id});
    bool const failed = _file.write(line) != line.size();
    if (failed && !_isFailing)
        LOG_ERROR("Cannot write %s: %s. Posts are not remembered beyond the end of the server",
                  qUtf8Printable(_file.fileName()), qUtf8Printable(_file.errorString()));
    _isFailing = failed;
}

bool BiscottiJournal::rewrite(QList<Entry> const& entries)
{
    QSaveFile next(_file.fileName());
    if (!next.open(QIODevice::WriteOnly))
        return false;
    for (Entry const& entry : entries)
        next.write(lineOf(entry));
    if (!next.commit())
        return false;
    _file.close();
    return _file.open(appending);
}

QByteArray BiscottiJournal::lineOf(Entry const& entry)
{
    return QByteArray::number(entry.ms) + ' ' + entry.id.toString().toUtf8().toPercentEncoding() + '\n';
}
