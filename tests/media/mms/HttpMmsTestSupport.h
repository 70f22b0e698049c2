#pragma once

#include "Clips.h"
#include "HttpResponseHeader.h"

#include <QByteArray>
#include <QtEndian>

/// A chunk of MMS over HTTP. Those of header, data and metadata have eight bytes in front of their content.
inline QByteArray chunk(char type, QByteArray const& body)
{
    QByteArray bytes = QByteArray("$") + type + QByteArray(2, '\0');
    bool const hasPrefix = type == 'H' || type == 'D' || type == 'M';
    QByteArray const whole = hasPrefix ? QByteArray(8, '\0') + body : body;
    qToLittleEndian<quint16>(static_cast<quint16>(whole.size()), bytes.data() + 2);
    return bytes + whole;
}

inline QByteArray endChunk(quint32 reason)
{
    QByteArray body(4, '\0');
    qToLittleEndian<quint32>(reason, body.data());
    return chunk('E', body);
}

/// The header of a clip with its Data object's own header.
inline QByteArray asfHeader(int seconds = 2)
{
    QByteArray const film = Clips::bytes(Clips::wmv(seconds));
    return film.first(static_cast<qsizetype>(qFromLittleEndian<quint64>(film.constData() + 16)) + 50);
}

inline HttpResponseHeader response(int status, QString const& lines = {}, QString const& reason = "Status")
{
    return HttpResponseHeader("HTTP/1.1 " + QString::number(status) + " " + reason + "\r\n" + lines);
}
