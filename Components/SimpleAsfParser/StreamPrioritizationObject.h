#pragma once

#include "SimpleAsfObject.h"

/// The Stream Prioritization object: the streams, the most important first.
class StreamPrioritizationObject : public ParsedAsfObject<StreamPrioritizationObject>
{
public:
    struct StreamPriorityRecord {
        quint16 streamNumber = 0;
        bool mandatory = false; ///< The lowest bit of its flags; the others are not kept.

        template<typename Archive>
        void fields(Archive& archive)
        {
            quint16 flags = mandatory;
            archive(streamNumber, flags);
            mandatory = flags & 1;
        }
    };

    quint16 recordCount = 0;
    QList<StreamPriorityRecord> records; ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(recordCount);
        archive.records(recordCount, records);
    }
};
