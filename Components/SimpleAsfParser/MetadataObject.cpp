#include "MetadataObject.h"

#include "AsfReader.h"
#include "AsfStream.h"

DescriptionListObject::DescriptionListObject(QUuid const& objectGuid, QDataStream& stream, long long size)
    : ParsedAsfObject(objectGuid, size)
{
    AsfReader in(stream, size);
    recordCount = in.read<quint16>();
    for (int i = 0; i < recordCount && in.has(12); ++i) {
        qint64 const left = in.left();
        DescriptionRecord record;
        record.languageIndex = in.read<quint16>();
        record.streamNumber = in.read<quint16>();
        record.nameLength = in.read<quint16>();
        record.dataType = in.read<quint16>();
        auto const dataLength = in.read<quint32>();
        int const nameUnits = record.nameLength / 2;
        if (!in.has(2LL * nameUnits + dataLength)) {
            in.returnTo(left);
            break;
        }
        record.name = in.readUnits(nameUnits);
        record.data = in.readBytes(dataLength);
        records.append(record);
    }
    body = in.rest();
}

void DescriptionListObject::removeStream(int streamNumber)
{
    recordCount -=
        records.removeIf([=](DescriptionRecord const& record) { return record.streamNumber == streamNumber; });
}

void DescriptionListObject::writeFields(QDataStream& stream) const
{
    stream << recordCount;
    for (DescriptionRecord const& record : records) {
        stream << record.languageIndex << record.streamNumber << record.nameLength << record.dataType
               << static_cast<quint32>(record.data.size());
        AsfStream::writeUnits(stream, record.name);
        AsfStream::writeBytes(stream, record.data);
    }
}
