#include "HttpResponseHeader.h"

HttpResponseHeader::HttpResponseHeader(int code, QString const& text, int majorVersion, int minorVersion)
{
    setStatusLine(code, text, majorVersion, minorVersion);
}

HttpResponseHeader::HttpResponseHeader(QString const& text)
{
    parse(text);
}

void HttpResponseHeader::setStatusLine(int code, QString const& text, int majorVersion, int minorVersion)
{
    _statusCode = code;
    _reasonPhrase = text;
    _majorVersion = majorVersion;
    _minorVersion = minorVersion;
    setValid(true);
}

bool HttpResponseHeader::parseFirstLine(QStringView line)
{
    qsizetype const space = line.indexOf(u' ');
    QStringView const version = space < 0 ? line : line.first(space);
    if (version.compare(u"ICY", Qt::CaseInsensitive) == 0)
        _minorVersion = 0;
    else if (!parseVersion(version, _majorVersion, _minorVersion))
        return false;
    QStringView const rest = trimmed(line.sliced(version.size()));
    QStringView const code = rest.left(3);
    for (QChar const c : code)
        if (c < u'0' || c > u'9')
            return false;
    if (code.size() < 3 || code.front() == u'0' || (rest.size() > 3 && rest.at(3) != u' '))
        return false;
    _statusCode = code.toInt();
    _reasonPhrase = trimmed(rest.sliced(3)).toString();
    return true;
}

QString HttpResponseHeader::firstLine() const
{
    return "HTTP/" + QString::number(_majorVersion) + '.' + QString::number(_minorVersion) + ' ' +
           QString::number(_statusCode) + ' ' + _reasonPhrase;
}
