#include "SoapValue.h"

#include <QStringList>

int SoapValue::toInt(int otherwise) const
{
    bool isNumber = false;
    int const number = _text.trimmed().toInt(&isNumber);
    return isNumber ? number : otherwise;
}

bool SoapValue::toBool(bool otherwise) const
{
    if (!_isValid)
        return otherwise;
    QString const text = _text.trimmed();
    return text == "1" || text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

SoapValue SoapValue::member(QString const& name) const
{
    for (SoapValue const& member : _members)
        if (member.name() == name)
            return member;
    return {};
}

QStringList SoapValue::texts() const
{
    QStringList texts;
    for (SoapValue const& member : _members)
        texts.append(member.toString());
    return texts;
}
