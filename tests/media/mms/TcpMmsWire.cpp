#include "TcpMmsWire.h"

#include "Clips.h"

#include <QtEndian>

#include <bit>

namespace TcpMmsWire
{

QByteArray u16(quint16 value)
{
    return {QByteArray(1, static_cast<char>(value & 0xFF)) + static_cast<char>(value >> 8)};
}

QByteArray u32(quint32 value)
{
    return u16(value & 0xFFFF) + u16(value >> 16);
}

QByteArray numbers(QList<quint32> const& values)
{
    QByteArray bytes;
    for (quint32 const value : values)
        bytes += u32(value);
    return bytes;
}

QByteArray real(double value)
{
    auto const bits = std::bit_cast<quint64>(value);
    return u32(bits & 0xFFFFFFFF) + u32(bits >> 32);
}

QByteArray text(QString const& text)
{
    QByteArray bytes;
    for (QChar const unit : text)
        bytes += u16(unit.unicode());
    return bytes + u16(0);
}

QByteArray message(quint32 type, QByteArray const& body, quint16 sequence)
{
    auto const chunks = static_cast<quint32>((8 + body.size() + 7) / 8);
    return QByteArray::fromHex("01000000CEFA0BB0") + u32(16 + 8 * chunks) + "MMS " + u32(chunks + 2) + u16(sequence) +
           QByteArray(10, '\0') + u32(chunks) + u32(type) +
           body.leftJustified(static_cast<qsizetype>(chunks) * 8 - 8, '\0');
}

QByteArray messageOfLength(quint32 type, quint32 messageLength)
{
    QByteArray bytes = message(type, {});
    bytes.replace(8, 4, u32(messageLength));
    return bytes;
}

QByteArray data(quint32 locationId, QByteArray const& payload, int size)
{
    return u32(locationId) + char(1) + char(0) + u16(static_cast<quint16>(size < 0 ? payload.size() + 8 : size)) +
           payload;
}

QByteArray asfHeader()
{
    static QByteArray const film = Clips::bytes(Clips::wmv());
    return film.first(qFromLittleEndian<qint64>(film.constData() + 16) + 50);
}

QList<QByteArray> parts(QByteArray const& bytes, int count)
{
    QList<QByteArray> result;
    for (int i = 0; i < count; ++i)
        result.append(bytes.mid(bytes.size() * i / count, bytes.size() * (i + 1) / count - bytes.size() * i / count));
    return result;
}

QByteArray connectedEx(quint32 result, quint32 mark)
{
    return message(0x40001, numbers({result, mark, 0x0004000B, 0x0003001C}) + real(1.0) +
                                numbers({1, 1, 0x8000, 10000000, 12, 1, 1, 5}) + text("9.1.0.12345") + text("") +
                                text("") + text("NTLM"));
}

QByteArray funnelInfo(quint32 result)
{
    return message(0x40015, numbers({result, 0, 8, 1, 0x10000, 0, 1, 1, 0, 0}));
}

QByteArray connectedFunnel(quint32 result)
{
    return message(0x40002, numbers({result, 3, 0}) + text("Funnel Of The Gods"));
}

QByteArray openedFile(quint32 result)
{
    return message(0x40006, numbers({result, 1, 7, 0, 0, 0}) + real(60.0) + u32(60) + QByteArray(16 + 16 + 36, '\1'));
}

QByteArray readBlock(quint32 result)
{
    return message(0x40011, numbers({result, 1, 0}));
}

QByteArray header()
{
    QList<QByteArray> const pieces = parts(asfHeader(), 3);
    return data(0, pieces[0]) + data(1, pieces[1]) + data(2, pieces[2]);
}

QByteArray streamSwitch(quint32 result)
{
    return message(0x40021, u32(result));
}

QByteArray startedPlaying(quint32 result)
{
    return message(0x40005, numbers({result, 1, 0, 0}));
}

} // namespace TcpMmsWire
