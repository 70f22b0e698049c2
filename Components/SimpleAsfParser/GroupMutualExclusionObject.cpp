#include "GroupMutualExclusionObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"
#include "AsfStream.h"

GroupMutualExclusionObject::GroupMutualExclusionObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfGroupMutexGuid, size)
{
    AsfReader in(stream, size);
    exclusionType = in.readGuid();
    recordCount = in.read<quint16>();
    for (int i = 0; i < recordCount && in.has(2); ++i) {
        qint64 const left = in.left();
        auto const streamCount = in.read<quint16>();
        if (!in.has(2 * streamCount)) {
            in.returnTo(left);
            break;
        }
        GroupMutexRecord record;
        for (int j = 0; j < streamCount; ++j)
            record.streamNumbers.append(in.read<quint16>());
        records.append(record);
    }
    body = in.rest();
}

void GroupMutualExclusionObject::writeFields(QDataStream& stream) const
{
    AsfStream::writeGuid(stream, exclusionType);
    stream << recordCount;
    for (GroupMutexRecord const& record : records) {
        stream << static_cast<quint16>(record.streamNumbers.size());
        for (quint16 const number : record.streamNumbers)
            stream << number;
    }
}
