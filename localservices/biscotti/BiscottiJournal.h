#pragma once

#include "CentralisedBiscottiMessageId.h"

#include <QFile>
#include <QList>
#include <QString>

class Logger;

/// The ids of the posts that were taken, in a file, so that a post that is sent again is recognised also after the
/// server itself was ended. A line for each: the time in milliseconds, a blank, and the id, percent-encoded. Each
/// line is with the system before append() returns.
///
/// Not for several servers at a time.
class BiscottiJournal
{
public:
    struct Entry {
        qint64 ms = 0;
        CentralisedBiscottiMessageId id;
    };

    static constexpr qint64 maximumBytes = 16 << 20; ///< Of the file. Then it is written anew.

    /// Opens or makes the file, and drops the lines that are too old. False, and a text that tells why, if it cannot
    /// be had.
    bool open(QString const& path, qint64 msNow, QString& error);

    /// What was in the file, the oldest first. To be taken once.
    QList<Entry> takeEntries() { return std::exchange(_entries, {}); }

    bool isOpen() const { return _file.isOpen(); }

    /// A failure is logged, once for each row of failures: what is taken is served all the same.
    void append(qint64 ms, CentralisedBiscottiMessageId const& id);

    /// Whether the file is to be written anew.
    bool isFull() const { return _file.size() > maximumBytes; }
    bool rewrite(QList<Entry> const& entries);

private:
    static QByteArray lineOf(Entry const& entry);
    void load(qint64 msNow);

    QFile _file;
    QList<Entry> _entries;
    bool _isFailing = false;

    static Logger* log;
};
