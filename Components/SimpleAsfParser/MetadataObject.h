#pragma once

#include "SimpleAsfObject.h"

/// What the Metadata and the Metadata Library objects share: named values of streams.
class DescriptionListObject : public SimpleAsfObject
{
public:
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

    quint16 recordCount = 0;
    QList<DescriptionRecord> records; ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(recordCount);
        archive.records(recordCount, records);
    }
};

/// The Metadata object.
class MetadataObject : public ParsedAsfObject<MetadataObject, DescriptionListObject>
{
public:
    void removeStream(int streamNumber) override
    {
        auto const isOfStream = [&](DescriptionRecord const& record) { return record.streamNumber == streamNumber; };
        recordCount -= static_cast<quint16>(records.removeIf(isOfStream));
    }
};

/// The Metadata Library object, whose records may be in several languages.
class MetadataLibraryObject : public ParsedAsfObject<MetadataLibraryObject, DescriptionListObject>
{
};
