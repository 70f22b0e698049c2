#include "LogInText.h"

#include <QByteArrayList>
#include <QUrl>

std::optional<LogInText> LogInText::read(QString const& base64)
{
    if (base64.size() > longest)
        return std::nullopt;
    auto const bytes =
        QByteArray::fromBase64Encoding(base64.trimmed().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    QByteArrayList const fields = (*bytes).split(' ');
    if (!bytes || fields.size() != 6 || (!fields.at(4).startsWith("0-") && !fields.at(4).startsWith("1-")))
        return std::nullopt;
    LogInText text{QUrl::fromPercentEncoding(fields.at(0)), QUrl::fromPercentEncoding(fields.at(1)),
                   QUrl::fromPercentEncoding(fields.at(2)), QUrl::fromPercentEncoding(fields.at(3)),
                   fields.at(4).startsWith('1')};
    if (text.email.isEmpty() || text.node.isEmpty())
        return std::nullopt;
    return text;
}
