#pragma once

#include "WebRequest.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <map>

class TickCounter;

/// Endless live broadcasts by HTTP Live Streaming (RFC 8216), each made of a film that has been cut into segments: a
/// playlist of the last few, which a clock moves through the film again and again. Lives on one thread.
class HlsBroadcasts
{
public:
    static constexpr int segmentsListed = 4;
    static constexpr int maximumSegments = 10'000;
    static constexpr qint64 maximumSegment = 64 << 20; ///< Bytes.

    /// The clock is borrowed.
    explicit HlsBroadcasts(TickCounter& tickCounter) : _tickCounter(tickCounter) {}

    /// Adds the film of a playlist file, as "/NAME". False, and a text that tells why, when it is none or its
    /// segments are not beside it.
    bool add(QString const& name, QString const& playlist, QString& error);

    QStringList names() const;

    /// Answers for a path such as "/NAME/live.m3u8" or "/NAME/3.ts".
    WebAnswer answer(QString const& path) const;

private:
    struct Segment {
        QString file;
        qint64 ms = 0;
    };

    struct Film {
        QList<Segment> segments;
        qint64 ms = 0; ///< Of all.
        qint64 msStart = 0;
    };

    QByteArray playlist(Film const& film) const;

    TickCounter& _tickCounter;
    std::map<QString, Film> _films;
};
