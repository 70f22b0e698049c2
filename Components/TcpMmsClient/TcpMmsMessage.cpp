#include "TcpMmsMessage.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>

TcpMmsMessage::TcpMmsMessage(QDataStream& stream) : _header(stream)
{
    stream >> _chunkLength >> _type;
}

void TcpMmsMessage::getObjectData(QDataStream& stream)
{
    QByteArray body;
    QDataStream bodyStream(&body, QIODevice::WriteOnly);
    bodyStream.setByteOrder(QDataStream::LittleEndian);
    writeBody(bodyStream);
    qsizetype const chunks = (bytesBeforeBody - TcpMmsHeader::bytes + body.size() + 7) / 8;
    body.append(chunks * 8 - (bytesBeforeBody - TcpMmsHeader::bytes) - body.size(), '\0');

    _chunkLength = static_cast<quint32>(chunks);
    _header.setChunkLength(_chunkLength);
    _header.getObjectData(stream);
    stream << _chunkLength << _type;
    stream.writeRawData(body.constData(), static_cast<int>(body.size()));
}

void TcpMmsMessage::verify() const
{
    _header.verify();
}

void TcpMmsMessage::expect(char const* message, char const* field, quint32 value, quint32 expected)
{
    if (value == expected)
        return;
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", expected);
    throw std::out_of_range(std::string(message) + " " + field + " != " + number);
}

void TcpMmsMessage::writeText(QDataStream& stream, QString const& text)
{
    for (QChar const unit : text)
        stream << static_cast<quint16>(unit.unicode());
    stream << quint16(0);
}

QString TcpMmsMessage::readText(QDataStream& stream)
{
    constexpr qsizetype unitBytes = sizeof(char16_t);
    QByteArray const left = stream.device()->peek(std::min<qint64>(stream.device()->bytesAvailable(), maximumBytes));
    qsizetype const units = left.size() / unitBytes;
    QString text(units, Qt::Uninitialized);
    qFromLittleEndian<quint16>(left.constData(), units, text.data());
    qsizetype const end = text.indexOf(QChar(u'\0'));
    stream.skipRawData(static_cast<int>((end < 0 ? units : end + 1) * unitBytes));
    return end < 0 ? text : text.first(end);
}

QString TcpMmsMessage::readText(QDataStream& stream, quint32 units)
{
    if (stream.status() != QDataStream::Ok || units > stream.device()->bytesAvailable() / qint64(sizeof(char16_t))) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return {};
    }
    // Fits: it is no more than what has arrived.
    QByteArray bytes(static_cast<qsizetype>(units * sizeof(char16_t)), Qt::Uninitialized);
    stream.readRawData(bytes.data(), static_cast<int>(bytes.size()));
    QString text(static_cast<qsizetype>(units), Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.constData(), static_cast<qsizetype>(units), text.data());
    qsizetype const end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
}
