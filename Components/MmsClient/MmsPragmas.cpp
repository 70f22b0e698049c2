#include "MmsPragmas.h"

#include "HttpResponseHeader.h"

#include <algorithm>

namespace
{

/// What follows the word up to the next comma, and of that what stands after the last "=".
QString fieldOf(QString const& value, char const* word)
{
    QString const key = QLatin1String(word);
    qsizetype const start = value.indexOf(key, 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    QString const field = value.mid(start + key.size()).section(',', 0, 0);
    return field.contains('=') ? field.section('=', -1).trimmed() : QString();
}

/// What may stand in a header line that we send.
QString printable(QString text)
{
    text.removeIf([](QChar c) { return c < u'!' || c > u'~'; });
    return text;
}

} // namespace

MmsPragmas MmsPragmas::of(HttpResponseHeader const& header)
{
    MmsPragmas pragmas;
    for (QString const& value : header.allValues("Pragma"))
        pragmas.add(value);
    return pragmas;
}

void MmsPragmas::add(QString const& value)
{
    if (qsizetype const features = value.indexOf("features"); features >= 0) {
        isBroadcast = isBroadcast || value.indexOf("broadcast", features) >= 0;
        isPlaylist = isPlaylist || value.indexOf("playlist", features) >= 0;
    }
    if (value.contains("xResetStrm")) {
        hasResetStream = true;
        isLive = isLive || value.contains('1');
    }
    if (QString const id = printable(fieldOf(value, "client-id")); !id.isEmpty())
        clientId = id.left(maximumIdLength);
    bool isNumber = false;
    if (int const ms = fieldOf(value, "timeout").toInt(&isNumber); isNumber && ms > 0)
        timeout = std::clamp(ms, minimumTimeout, maximumTimeout);
}
