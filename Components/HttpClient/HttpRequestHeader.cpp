#include "HttpRequestHeader.h"

HttpRequestHeader::HttpRequestHeader(QString const& method, QString const& path, int majorVersion, int minorVersion)
{
    setRequest(method, path, majorVersion, minorVersion);
}

HttpRequestHeader::HttpRequestHeader(QString const& text)
{
    parse(text);
}

void HttpRequestHeader::setRequest(QString const& method, QString const& path, int majorVersion, int minorVersion)
{
    _method = method;
    _path = path;
    _majorVersion = majorVersion;
    _minorVersion = minorVersion;
    setValid(true);
}

bool HttpRequestHeader::parseFirstLine(QStringView line)
{
    qsizetype const first = line.indexOf(u' ');
    qsizetype const last = line.lastIndexOf(u' ');
    if (first <= 0 || last == first || !parseVersion(line.sliced(last + 1), _majorVersion, _minorVersion))
        return false;
    _method = line.first(first).toString();
    _path = line.sliced(first + 1, last - first - 1).toString();
    return true;
}

QString HttpRequestHeader::firstLine() const
{
    return _method + ' ' + _path + " HTTP/" + QString::number(_majorVersion) + '.' + QString::number(_minorVersion);
}
