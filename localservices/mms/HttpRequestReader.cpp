#include "HttpRequestReader.h"

#include <algorithm>

HttpRequestReader::Result HttpRequestReader::next(QByteArray const& bytes)
{
    if (_part == Part::Bad)
        return Result::Bad;
    if (_part == Part::Complete)
        reset();
    _buffer.append(bytes);
    qsizetype used = 0;
    while (_part == Part::RequestLine || _part == Part::HeaderLines) {
        qsizetype const end = _buffer.indexOf('\n', std::max(used, _searched));
        qsizetype const length = (end < 0 ? _buffer.size() : end) - used;
        if (length > maximumLine || _headerSize + length > maximumHeader) {
            fail(_part == Part::RequestLine ? 414 : 431);
            return Result::Bad;
        }
        if (end < 0)
            break;
        _headerSize += length + 1;
        readLine(_buffer.mid(used, length).trimmed());
        used = end + 1;
    }
    _buffer.remove(0, used);
    _searched = _part == Part::Body ? 0 : _buffer.size();
    if (_part == Part::Body && _buffer.size() >= _bodySize) {
        _request.body = _buffer.left(_bodySize);
        _buffer.remove(0, _bodySize);
        _part = Part::Complete;
    }
    return _part == Part::Complete ? Result::Complete : _part == Part::Bad ? Result::Bad : Result::Incomplete;
}

void HttpRequestReader::reset()
{
    _request = {};
    _headerSize = 0;
    _searched = 0;
    _bodySize = 0;
    _part = Part::RequestLine;
}

void HttpRequestReader::readLine(QByteArray const& line)
{
    if (_part == Part::RequestLine) {
        if (!line.isEmpty()) // Blank lines before a request are left over from the one before.
            readRequestLine(line);
    } else if (line.isEmpty()) {
        endHeader();
    } else {
        readHeaderLine(line);
    }
}

void HttpRequestReader::readRequestLine(QByteArray const& line)
{
    QByteArrayList const words = line.simplified().split(' ');
    if (words.size() != 3 || !words.at(2).startsWith("HTTP/1.") || words.at(1).contains('\0'))
        return fail(400);
    _request.method = words.at(0);
    _request.target = words.at(1);
    _request.minorVersion = words.at(2).mid(7).toInt();
    _part = Part::HeaderLines;
}

void HttpRequestReader::readHeaderLine(QByteArray const& line)
{
    qsizetype const colon = line.indexOf(':');
    if (colon < 1)
        return fail(400);
    if (_request.headers.size() >= maximumLines)
        return fail(431);
    _request.headers.emplaceBack(line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
}

void HttpRequestReader::endHeader()
{
    _part = Part::Body;
    QByteArray const length = _request.value("content-length");
    if (!_request.value("transfer-encoding").isEmpty())
        return fail(411);
    if (length.isEmpty())
        return;
    bool isNumber = false;
    _bodySize = length.toLongLong(&isNumber);
    if (!isNumber || _bodySize < 0)
        fail(400);
    else if (_bodySize > maximumBody)
        fail(413);
}

void HttpRequestReader::fail(int status)
{
    _part = Part::Bad;
    _status = status;
    _buffer.clear();
}
