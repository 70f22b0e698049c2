#pragma once

#include "AsfGuids.h"
#include "SimpleAsfObject.h"

#include <QList>
#include <QString>

/// What the Metadata and the Metadata Library objects share: named values of streams.
///
/// Body: record count (u16), then for each record: language index, stream number, name length in bytes, data type
/// (u16 each), data length (u32), name (half its length in 16-bit units), data.
class DescriptionListObject : public ParsedAsfObject
{
public:
    struct DescriptionRecord {
        quint16 languageIndex = 0;
        quint16 streamNumber = 0;
        quint16 nameLength = 0;
        quint16 dataType = 0;
        QString name; ///< Its terminator included.
        QByteArray data;
    };

    /// Removes all records of that stream and lowers the count.
    void removeStream(int streamNumber);

    quint16 recordCount = 0;
    QList<DescriptionRecord> records; ///< Those that are whole.

protected:
    DescriptionListObject(QUuid const& objectGuid, QDataStream& stream, long long size);
    void writeFields(QDataStream& stream) const override;
};

/// The Metadata object.
class MetadataObject : public ClonedAsfObject<MetadataObject, DescriptionListObject>
{
public:
    MetadataObject(QDataStream& stream, long long size) : ClonedAsfObject(asfMetadataGuid, stream, size) {}
};

/// The Metadata Library object, whose records may be in several languages.
class MetadataLibraryObject : public ClonedAsfObject<MetadataLibraryObject, DescriptionListObject>
{
public:
    MetadataLibraryObject(QDataStream& stream, long long size) : ClonedAsfObject(asfMetadataLibraryGuid, stream, size)
    {
    }
};
