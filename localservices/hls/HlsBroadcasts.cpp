#include "HlsBroadcasts.h"

#include "TickCounter.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>

bool HlsBroadcasts::add(QString const& name, QString const& playlist, QString& error)
{
    QFile file(playlist);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: %2").arg(playlist, file.errorString());
        return false;
    }
    Film film;
    qint64 ms = 0;
    for (int lines = 0; !file.atEnd() && lines < 4 * maximumSegments; ++lines) {
        QString const line = QString::fromUtf8(file.readLine(4096)).trimmed();
        if (line.startsWith("#EXTINF:"))
            ms = std::llround(line.mid(8).section(',', 0, 0).toDouble() * 1000);
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        // The playlist is the operator's own, but its segments are files beside it all the same.
        QString const segment = QFileInfo(playlist).absolutePath() + '/' + QFileInfo(line).fileName();
        if (ms < 1 || ms > 60'000 || !QFileInfo(segment).isFile() || QFileInfo(segment).size() > maximumSegment) {
            error = QStringLiteral("%1: the segment %2 has no length or is not there").arg(playlist, line);
            return false;
        }
        film.segments.append({segment, ms});
        film.ms += ms;
    }
    if (film.segments.isEmpty()) {
        error = QStringLiteral("%1 lists no segments").arg(playlist);
        return false;
    }
    film.msStart = _tickCounter.msSinceEpoch();
    _films.insert_or_assign(name, film);
    return true;
}

QStringList HlsBroadcasts::names() const
{
    QStringList names;
    for (auto const& [name, film] : _films)
        names.append(name);
    return names;
}

/// What lies before now, as if the film had run for ever: the newest segment listed is the last one that is over.
QByteArray HlsBroadcasts::playlist(Film const& film) const
{
    qint64 const count = film.segments.size();
    // One whole run in front, so that the first viewer finds segments.
    qint64 const ms = _tickCounter.msSinceEpoch() - film.msStart + film.ms;
    qint64 next = ms / film.ms * count;
    for (qint64 left = ms % film.ms; left >= film.segments.at(next % count).ms; ++next)
        left -= film.segments.at(next % count).ms;
    qint64 const first = std::max<qint64>(next - segmentsListed, 0);
    qint64 longest = 0;
    for (Segment const& segment : film.segments)
        longest = std::max(longest, segment.ms);
    QByteArray text =
        "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:" + QByteArray::number((longest + 999) / 1000) +
        "\n#EXT-X-MEDIA-SEQUENCE:" + QByteArray::number(first) +
        "\n#EXT-X-DISCONTINUITY-SEQUENCE:" + QByteArray::number(first > 0 ? (first - 1) / count : 0) + '\n';
    for (qint64 i = first; i < next; ++i) {
        if (i % count == 0 && i > 0)
            text += "#EXT-X-DISCONTINUITY\n";
        text += "#EXTINF:" + QByteArray::number(static_cast<double>(film.segments.at(i % count).ms) / 1000, 'f', 3) +
                ",\n" + QByteArray::number(i % count) + ".ts\n";
    }
    return text;
}

WebAnswer HlsBroadcasts::answer(QString const& path) const
{
    static QRegularExpression const form(QStringLiteral("^/([^/]+)/(?:(live\\.m3u8)|([0-9]{1,5})\\.ts)$"));
    QRegularExpressionMatch const match = form.match(path);
    auto const film = _films.find('/' + match.captured(1));
    if (film == _films.end())
        return WebAnswer::text(404, QStringLiteral("There is no such stream here."));
    if (!match.captured(2).isEmpty())
        return {200, "application/vnd.apple.mpegurl", playlist(film->second), {{"Cache-Control", "no-cache"}}};
    int const number = match.captured(3).toInt();
    bool const isThere = number < film->second.segments.size();
    QFile file(isThere ? film->second.segments.at(number).file : QString());
    if (!isThere || !file.open(QIODevice::ReadOnly))
        return WebAnswer::text(404, QStringLiteral("There is no such segment here."));
    return {200, "video/mp2t", file.read(maximumSegment), {}};
}
