#include "MutualExclusionObject.h"

#include "AsfReader.h"
#include "AsfStream.h"

MutualExclusionObject::MutualExclusionObject(QUuid const& objectGuid, QDataStream& stream, long long size)
    : ParsedAsfObject(objectGuid, size)
{
    AsfReader in(stream, size);
    exclusionType = in.readGuid();
    streamCount = in.read<quint16>();
    for (int i = 0; i < streamCount && in.has(2); ++i)
        streamNumbers.append(in.read<quint16>());
    body = in.rest();
}

void MutualExclusionObject::removeStream(int streamNumber)
{
    qsizetype const index = streamNumber < 0 ? -1 : streamNumbers.indexOf(static_cast<quint16>(streamNumber));
    if (index < 0)
        return;
    streamNumbers.remove(index);
    --streamCount;
}

void MutualExclusionObject::writeFields(QDataStream& stream) const
{
    AsfStream::writeGuid(stream, exclusionType);
    stream << streamCount;
    for (quint16 const number : streamNumbers)
        stream << number;
}
