#pragma once

#include "AsfRecordsObject.h"

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

/// The Stream Prioritization object: the streams, the most important first.
class StreamPrioritizationObject
    : public ParsedAsfObject<StreamPrioritizationObject, AsfRecordsObject<StreamPriorityRecord>>
{
};
