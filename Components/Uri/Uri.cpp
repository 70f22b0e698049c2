#include "Uri.h"

#include <QRegularExpression>
#include <QUrl>

#include <stdexcept>

namespace
{
// Registered once, so that addresses cross threads in signals.
[[maybe_unused]] int const metaTypeId = qRegisterMetaType<Uri>("Uri");
} // namespace

Uri::Uri(QString const& text)
{
    // RFC 3986, section 3.1.
    static QRegularExpression const shape(QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*):(.*)$"),
                                          QRegularExpression::DotMatchesEverythingOption);
    QRegularExpressionMatch const match = shape.match(text.trimmed());
    if (!match.hasMatch())
        throw std::invalid_argument("Invalid URI: no scheme found.");
    _scheme = UriScheme(match.captured(1));
    _rest = match.captured(2);
}

QString Uri::toString() const
{
    return isNull() ? QStringLiteral("Uri::Null") : QString(_scheme.toString() + ":" + _rest);
}

QString Uri::toPercentEncodedString() const
{
    return QString::fromLatin1(QUrl::toPercentEncoding(toString()));
}

QString Uri::base() const
{
    QString text = toString();
    static QRegularExpression const queryStart(QStringLiteral("[?#]"));
    if (qsizetype const query = text.indexOf(queryStart); query >= 0)
        text.truncate(query);
    qsizetype const authority = text.indexOf("://");
    qsizetype const pathStart = authority < 0 ? 0 : authority + 3;
    qsizetype const lastSlash = text.lastIndexOf('/');
    return lastSlash < pathStart ? text : text.left(lastSlash);
}

QString Uri::withoutUserInfo(QString const& address)
{
    qsizetype const authority = address.indexOf("://");
    if (authority < 0)
        return address;
    qsizetype const begin = authority + 3;
    static QRegularExpression const authorityEnd(QStringLiteral("[/?#]"));
    qsizetype const found = address.indexOf(authorityEnd, begin);
    qsizetype const end = found < 0 ? address.size() : found;
    // A password may hold a sign that ends it: the last one counts.
    qsizetype const at = address.left(end).lastIndexOf('@');
    return at < begin ? address : QString(address.left(begin) + address.mid(at + 1));
}

size_t Uri::hashCode() const
{
    return qHashMulti(0, _scheme.toString(), _rest);
}
