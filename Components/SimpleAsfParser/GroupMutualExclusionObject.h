#pragma once

#include "SimpleAsfObject.h"

/// The Group Mutual Exclusion object: groups of streams of which one group is played at a time.
class GroupMutualExclusionObject : public ParsedAsfObject<GroupMutualExclusionObject>
{
public:
    struct GroupMutexRecord {
        QList<quint16> streamNumbers;

        template<typename Archive>
        void fields(Archive& archive)
        {
            archive.counted(quint16(), streamNumbers);
        }
    };

    QUuid exclusionType;
    quint16 recordCount = 0;
    QList<GroupMutexRecord> records; ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(exclusionType, recordCount);
        archive.records(recordCount, records);
    }
};
