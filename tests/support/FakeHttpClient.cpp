#include "FakeHttpClient.h"

#include <algorithm>
#include <utility>

void FakeHttpClient::respond(HttpResponseHeader const& header)
{
    _response = header;
    emit responseHeaderReceived(this, header);
}

void FakeHttpClient::receive(QByteArray const& bytes)
{
    _received += bytes.size();
    _body += bytes;
    emit dataReadProgress(this, static_cast<int>(_received), static_cast<int>(_response.contentLength()));
    emit readyRead(this, _response);
}

void FakeHttpClient::finish(HttpClient::Error error)
{
    _isRunning = false;
    _error = error;
    emit done(this, error != NoError);
}

int FakeHttpClient::setHost(QString const& host, int port)
{
    return setHost(host, ConnectionModeHttp, port);
}

int FakeHttpClient::setHost(QString const& host, HttpClient::ConnectionMode mode, int port)
{
    _host = host;
    _mode = mode;
    _port = port;
    return ++_lastId;
}

int FakeHttpClient::request(HttpRequestHeader const& header, QByteArray const& data)
{
    return send({header, data});
}

int FakeHttpClient::get(QString const& path, QIODevice*)
{
    return send({HttpRequestHeader("GET", path), {}});
}

int FakeHttpClient::post(QString const& path, QByteArray const& data, QIODevice*)
{
    return send({HttpRequestHeader("POST", path), data});
}

int FakeHttpClient::send(Sent const& request)
{
    _sent.append(request);
    _isRunning = true;
    _error = NoError;
    _body.clear();
    _received = 0;
    return ++_lastId;
}

void FakeHttpClient::abort()
{
    if (_isRunning)
        finish(Aborted);
}

QByteArray FakeHttpClient::readAll()
{
    return std::exchange(_body, {});
}

qint64 FakeHttpClient::read(char* data, qint64 maxSize)
{
    qint64 const size = std::min<qint64>(maxSize, _body.size());
    std::copy_n(_body.constData(), size, data);
    _body.remove(0, size);
    return size;
}

HttpRequestHeader FakeHttpClient::currentRequest() const
{
    return _isRunning ? _sent.last().header : HttpRequestHeader();
}
