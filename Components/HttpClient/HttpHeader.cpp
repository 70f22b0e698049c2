#include "HttpHeader.h"

#include <algorithm>
#include <utility>

namespace
{

auto hasName(QString const& key)
{
    return [&key](QPair<QString, QString> const& line) { return line.first.compare(key, Qt::CaseInsensitive) == 0; };
}

} // namespace

void HttpHeader::setValue(QString const& key, QString const& value)
{
    auto const line = std::find_if(_values.begin(), _values.end(), hasName(key));
    if (line == _values.end())
        addValue(key, value);
    else
        line->second = value;
}

void HttpHeader::setValues(QList<QPair<QString, QString>> const& values)
{
    _values = values;
}

void HttpHeader::addValue(QString const& key, QString const& value)
{
    _values.append({key, value});
}

bool HttpHeader::hasKey(QString const& key) const
{
    return std::any_of(_values.cbegin(), _values.cend(), hasName(key));
}

QStringList HttpHeader::keys() const
{
    QStringList keys;
    for (auto const& line : _values)
        if (!keys.contains(line.first, Qt::CaseInsensitive))
            keys.append(line.first);
    return keys;
}

QString HttpHeader::value(QString const& key) const
{
    auto const line = std::find_if(_values.cbegin(), _values.cend(), hasName(key));
    return line == _values.cend() ? QString() : line->second;
}

QStringList HttpHeader::allValues(QString const& key) const
{
    QStringList values;
    auto const isMatch = hasName(key);
    for (auto const& line : _values)
        if (isMatch(line))
            values.append(line.second);
    return values;
}

void HttpHeader::removeValue(QString const& key)
{
    auto const line = std::find_if(_values.cbegin(), _values.cend(), hasName(key));
    if (line != _values.cend())
        _values.erase(line);
}

void HttpHeader::removeAllValues(QString const& key)
{
    _values.removeIf(hasName(key));
}

bool HttpHeader::hasContentLength() const
{
    return hasKey(QStringLiteral("Content-Length"));
}

qint64 HttpHeader::contentLength() const
{
    bool isNumber = false;
    qint64 const length = value(QStringLiteral("Content-Length")).toLongLong(&isNumber);
    return isNumber ? std::max<qint64>(length, 0) : 0;
}

void HttpHeader::setContentLength(qint64 length)
{
    setValue(QStringLiteral("Content-Length"), QString::number(length));
}

bool HttpHeader::hasContentType() const
{
    return hasKey(QStringLiteral("Content-Type"));
}

QString HttpHeader::contentType() const
{
    QString const type = value(QStringLiteral("Content-Type"));
    return trimmed(QStringView(type).left(type.indexOf(u';'))).toString();
}

void HttpHeader::setContentType(QString const& type)
{
    setValue(QStringLiteral("Content-Type"), type);
}

QString HttpHeader::toString() const
{
    if (!_valid)
        return {};
    QString text = firstLine() + "\r\n";
    for (auto const& [key, value] : _values)
        text += key + ": " + value + "\r\n";
    return text + "\r\n";
}

void HttpHeader::parse(QString const& text)
{
    _values.clear();
    _valid = false;
    QStringView rest(text);
    bool isFirst = true;
    while (!rest.isEmpty()) {
        qsizetype const end = rest.indexOf(u'\n');
        QStringView line = end < 0 ? rest : rest.first(end);
        rest = end < 0 ? QStringView() : rest.sliced(end + 1);
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.isEmpty() && !isFirst)
            break;
        if (line.contains(u'\0') || !(std::exchange(isFirst, false) ? parseFirstLine(line) : parseLine(line))) {
            _values.clear();
            return;
        }
    }
    _valid = !isFirst;
}

bool HttpHeader::parseLine(QStringView line)
{
    if (line.front() == u' ' || line.front() == u'\t') {
        if (_values.isEmpty())
            return false;
        QString& value = _values.last().second;
        value = trimmed(QString(value + ' ' + trimmed(line))).toString();
        return true;
    }
    qsizetype const colon = line.indexOf(u':');
    QStringView const key = colon < 0 ? QStringView() : trimmed(line.first(colon));
    if (key.isEmpty())
        return false;
    addValue(key.toString(), trimmed(line.sliced(colon + 1)).toString());
    return true;
}

bool HttpHeader::parseVersion(QStringView text, int& major, int& minor)
{
    auto const isDigit = [&](qsizetype i) { return text.at(i) >= u'0' && text.at(i) <= u'9'; };
    if (!text.startsWith(QStringLiteral("HTTP/")) || (text.size() != 6 && text.size() != 8) || !isDigit(5))
        return false;
    if (text.size() == 8 && (text.at(6) != u'.' || !isDigit(7)))
        return false;
    major = text.at(5).unicode() - u'0';
    minor = text.size() == 8 ? text.at(7).unicode() - u'0' : 0;
    return true;
}

QStringView HttpHeader::trimmed(QStringView text)
{
    auto const isSpace = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (!text.isEmpty() && isSpace(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isSpace(text.back()))
        text.chop(1);
    return text;
}
