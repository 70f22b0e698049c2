#include "AsfReader.h"

#include "AsfStream.h"
#include "SimpleAsfObject.h"

AsfReader::AsfReader(QDataStream& stream, long long size)
    : _source(&stream), _bytes(AsfStream::readBytes(stream, size - SimpleAsfObject::headerBytes))
{
}

QUuid AsfReader::readGuid()
{
    QUuid guid;
    guid.data1 = read<quint32>();
    guid.data2 = read<quint16>();
    guid.data3 = read<quint16>();
    for (uchar& byte : guid.data4)
        byte = read<quint8>();
    return guid;
}

QByteArray AsfReader::readBytes(qint64 length)
{
    QByteArray const bytes = _bytes.mid(_position, std::min(length, left()));
    _position += bytes.size();
    return bytes;
}

QString AsfReader::readUnits(qint64 units)
{
    QString text(std::min(units, left() / 2), Qt::Uninitialized);
    for (QChar& unit : text)
        unit = QChar(read<quint16>());
    return text;
}

void AsfReader::fail()
{
    _position = _bytes.size();
    if (_source)
        _source->setStatus(QDataStream::ReadPastEnd);
}
