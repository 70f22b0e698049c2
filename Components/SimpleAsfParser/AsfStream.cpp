#include "AsfStream.h"

#include <QIODevice>
#include <QString>

#include <algorithm>

void AsfStream::littleEndian(QDataStream& stream)
{
    stream.setByteOrder(QDataStream::LittleEndian);
}

qint64 AsfStream::left(QDataStream const& stream)
{
    return stream.device()->bytesAvailable();
}

QByteArray AsfStream::readBytes(QDataStream& stream, qint64 length)
{
    return stream.device()->read(std::clamp<qint64>(length, 0, left(stream)));
}

void AsfStream::writeBytes(QDataStream& stream, QByteArray const& bytes)
{
    stream.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
}

QUuid AsfStream::readGuid(QDataStream& stream)
{
    QUuid guid;
    stream >> guid.data1 >> guid.data2 >> guid.data3;
    for (uchar& byte : guid.data4)
        stream >> byte;
    return guid;
}

void AsfStream::writeGuid(QDataStream& stream, QUuid const& guid)
{
    stream << guid.data1 << guid.data2 << guid.data3;
    for (uchar const byte : guid.data4)
        stream << byte;
}

void AsfStream::writeUnits(QDataStream& stream, QString const& text)
{
    for (QChar const unit : text)
        stream << unit.unicode();
}
