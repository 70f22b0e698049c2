#pragma once

#include "AsfRecordsObject.h"

/// A named value of a stream.
struct DescriptionRecord {
    quint16 languageIndex = 0;
    quint16 streamNumber = 0;
    quint16 nameLength = 0; ///< Bytes.
    quint16 dataType = 0;
    QString name; ///< Its terminator included.
    QByteArray data;

    template<typename Archive>
    void fields(Archive& archive)
    {
        auto dataLength = static_cast<quint32>(data.size());
        archive(languageIndex, streamNumber, nameLength, dataType, dataLength);
        archive.array(name, nameLength / 2);
        archive.array(data, dataLength);
    }
};

/// The Metadata object.
class MetadataObject : public ParsedAsfObject<MetadataObject, AsfRecordsObject<DescriptionRecord>>
{
public:
    void removeStream(int streamNumber) override
    {
        removeIf([&](DescriptionRecord const& record) { return record.streamNumber == streamNumber; });
    }
};

/// The Metadata Library object, whose records may be in several languages.
class MetadataLibraryObject : public ParsedAsfObject<MetadataLibraryObject, AsfRecordsObject<DescriptionRecord>>
{
};
