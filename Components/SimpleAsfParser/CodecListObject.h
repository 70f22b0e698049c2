#pragma once

#include "SimpleAsfObject.h"

#include <QList>
#include <QString>

/// The Codec List object: what the streams were encoded with, in words.
///
/// Body: reserved GUID, entry count (u32), then for each entry: type (u16), name length in 16-bit units (u16), name,
/// description length in 16-bit units (u16), description, information length in bytes (u16), information.
class CodecListObject : public ClonedAsfObject<CodecListObject>
{
public:
    struct CodecEntry {
        quint16 type = 0; ///< 1 pictures, 2 sound.
        QString name;     ///< Its terminator included, as the description's.
        QString description;
        QByteArray information;
    };

    CodecListObject(QDataStream& stream, long long size);

    QUuid reservedGuid;
    quint32 entryCount = 0;
    QList<CodecEntry> entries; ///< Those that are whole.

protected:
    void writeFields(QDataStream& stream) const override;
};
