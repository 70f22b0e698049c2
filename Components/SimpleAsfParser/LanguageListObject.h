#pragma once

#include "SimpleAsfObject.h"

/// The Language List object.
class LanguageListObject : public ParsedAsfObject<LanguageListObject>
{
public:
    /// The language's name as RFC 1766 writes it, in 16-bit units with a terminator.
    struct LanguageRecord {
        QByteArray name;

        template<typename Archive>
        void fields(Archive& archive)
        {
            archive.counted(quint8(), name);
        }
    };

    /// A language without its terminator, or the empty text for an index that there is none at.
    QString language(int index) const
    {
        QByteArray const name = records.value(index).name;
        QString text;
        LittleEndianReader(name).arrayUpTo(text, name.size());
        qsizetype const end = text.indexOf(QChar(0));
        return end < 0 ? text : text.left(end);
    }

    quint16 recordCount = 0;
    QList<LanguageRecord> records; ///< Those that are whole.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(recordCount);
        archive.records(recordCount, records);
    }
};
