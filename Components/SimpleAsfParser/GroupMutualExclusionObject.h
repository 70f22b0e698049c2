#pragma once

#include "SimpleAsfObject.h"

#include <QList>

/// The Group Mutual Exclusion object: groups of streams of which one group is played at a time.
///
/// Body: exclusion type (GUID), record count (u16), then for each record: stream count (u16), stream numbers (u16
/// each).
class GroupMutualExclusionObject : public ClonedAsfObject<GroupMutualExclusionObject>
{
public:
    struct GroupMutexRecord {
        QList<quint16> streamNumbers;
    };

    GroupMutualExclusionObject(QDataStream& stream, long long size);

    QUuid exclusionType;
    quint16 recordCount = 0;
    QList<GroupMutexRecord> records; ///< Those that are whole.

protected:
    void writeFields(QDataStream& stream) const override;
};
