#pragma once

#include "../asf/ChunkBytes.h"
#include "Clips.h"
#include "HttpResponseHeader.h"

/// The header of a clip with its Data object's own header.
inline QByteArray asfHeader()
{
    static QByteArray const film = Clips::bytes(Clips::wmv());
    return film.first(qFromLittleEndian<qint64>(film.constData() + 16) + 50);
}

inline HttpResponseHeader response(int status, QString const& lines = {}, QString const& reason = "Status")
{
    return HttpResponseHeader("HTTP/1.1 " + QString::number(status) + " " + reason + "\r\n" + lines);
}
