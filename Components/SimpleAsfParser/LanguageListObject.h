#pragma once

#include "AsfRecordsObject.h"

/// A language's name as RFC 1766 writes it, in 16-bit units with a terminator.
struct LanguageRecord {
    QByteArray name;

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive.counted(quint8(), name);
    }
};

/// The Language List object.
class LanguageListObject : public ParsedAsfObject<LanguageListObject, AsfRecordsObject<LanguageRecord>>
{
public:
    /// A language without its terminator, or the empty text for an index that there is none at.
    QString language(int index) const
    {
        QByteArray const name = records.value(index).name;
        QString text;
        LittleEndianReader(name).arrayUpTo(text, name.size());
        return text.section(QChar(0), 0, 0);
    }
};
