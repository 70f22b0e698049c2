#include "SimpleAsfObject.h"

#include "AsfStream.h"

#include <QIODevice>

namespace
{
void writeObject(QDataStream& stream, SimpleAsfObject const& object, QByteArray const& fields)
{
    AsfStream::writeGuid(stream, object.guid);
    stream << object.objectSize;
    AsfStream::writeBytes(stream, fields);
    AsfStream::writeBytes(stream, object.body);
}
} // namespace

SimpleAsfObject::SimpleAsfObject(QUuid const& objectGuid, QDataStream& stream, long long size)
    : guid(objectGuid), objectSize(static_cast<quint64>(size)), body(AsfStream::readBytes(stream, size - headerBytes))
{
}

SimpleAsfObject::SimpleAsfObject(QUuid const& objectGuid, long long size)
    : guid(objectGuid), objectSize(static_cast<quint64>(size))
{
}

std::unique_ptr<SimpleAsfObject> SimpleAsfObject::clone() const
{
    return std::unique_ptr<SimpleAsfObject>(new SimpleAsfObject(*this));
}

void SimpleAsfObject::toStream(QDataStream& stream)
{
    writeObject(stream, *this, {});
}

void ParsedAsfObject::toStream(QDataStream& stream)
{
    QByteArray fields;
    QDataStream fieldStream(&fields, QIODevice::WriteOnly);
    AsfStream::littleEndian(fieldStream);
    writeFields(fieldStream);
    objectSize = static_cast<quint64>(fields.size() + body.size() + headerBytes);
    writeObject(stream, *this, fields);
}
