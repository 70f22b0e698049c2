#pragma once

#include "SimpleAsfObject.h"

/// An object that is nothing but records.
template<typename Record>
class AsfRecordsObject : public SimpleAsfObject
{
public:
    quint16 recordCount = 0; ///< It may promise more than there are.
    QList<Record> records;   ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(recordCount);
        archive.records(recordCount, records);
    }

protected:
    template<typename Predicate>
    void removeIf(Predicate const& isToGo)
    {
        recordCount -= static_cast<quint16>(records.removeIf(isToGo));
    }
};
