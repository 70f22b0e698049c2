#pragma once

#include "SimpleAsfObject.h"

#include <QList>
#include <QString>

/// The Language List object.
///
/// Body: record count (u16), then for each record: length in bytes (u8), the language's name as RFC 1766 writes it,
/// in 16-bit units with a terminator.
class LanguageListObject : public ClonedAsfObject<LanguageListObject>
{
public:
    LanguageListObject(QDataStream& stream, long long size);

    /// A language without its terminator, or the empty text for an index that there is none at.
    QString language(int index) const;

    quint16 recordCount = 0;
    QList<QByteArray> records; ///< Those that are whole, as they came.

protected:
    void writeFields(QDataStream& stream) const override;
};
