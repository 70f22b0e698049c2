#pragma once

#include "SimpleAsfObject.h"

/// The Codec List object: what the streams were encoded with, in words.
class CodecListObject : public ParsedAsfObject<CodecListObject>
{
public:
    struct CodecEntry {
        quint16 type = 0; ///< 1 pictures, 2 sound.
        QString name;     ///< Its terminator included, as the description's.
        QString description;
        QByteArray information;

        template<typename Archive>
        void fields(Archive& archive)
        {
            archive(type);
            archive.counted(quint16(), name);
            archive.counted(quint16(), description);
            archive.counted(quint16(), information);
        }
    };

    QUuid reservedGuid;
    quint32 entryCount = 0;
    QList<CodecEntry> entries; ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(reservedGuid, entryCount);
        archive.records(entryCount, entries);
    }
};
