#include "LanguageListObject.h"

#include "AsfGuids.h"
#include "AsfReader.h"
#include "AsfStream.h"

LanguageListObject::LanguageListObject(QDataStream& stream, long long size)
    : ClonedAsfObject(asfLanguageListGuid, size)
{
    AsfReader in(stream, size);
    recordCount = in.read<quint16>();
    for (int i = 0; i < recordCount && in.has(1); ++i) {
        qint64 const left = in.left();
        auto const length = in.read<quint8>();
        if (!in.has(length)) {
            in.returnTo(left);
            break;
        }
        records.append(in.readBytes(length));
    }
    body = in.rest();
}

QString LanguageListObject::language(int index) const
{
    QByteArray const record = records.value(index);
    QString const text = AsfReader(record).readUnits(record.size() / 2);
    qsizetype const end = text.indexOf(QChar(0));
    return end < 0 ? text : text.left(end);
}

void LanguageListObject::writeFields(QDataStream& stream) const
{
    stream << recordCount;
    for (QByteArray const& record : records) {
        stream << static_cast<quint8>(record.size());
        AsfStream::writeBytes(stream, record);
    }
}
