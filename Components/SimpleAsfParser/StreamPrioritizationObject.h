#pragma once

#include "SimpleAsfObject.h"

#include <QList>

/// The Stream Prioritization object: the streams, the most important first.
///
/// Body: record count (u16), then for each record: stream number (u16), priority flags (u16, bit 0 mandatory).
class StreamPrioritizationObject : public ClonedAsfObject<StreamPrioritizationObject>
{
public:
    struct StreamPriorityRecord {
        quint16 streamNumber = 0;
        bool mandatory = false;
    };

    StreamPrioritizationObject(QDataStream& stream, long long size);

    quint16 recordCount = 0;
    QList<StreamPriorityRecord> records; ///< Those that are whole.

protected:
    void writeFields(QDataStream& stream) const override;
};
