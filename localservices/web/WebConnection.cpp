#include "WebConnection.h"

#include "Fault.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "WebFault.h"

#include <QHostAddress>

Logger* WebConnection::log = LoggerManager::logger();

namespace
{
QByteArray statusLine(int status)
{
    return "HTTP/1.1 " + QByteArray::number(status) + ' ' + Fault::reasonOf(status) + "\r\n";
}

/// Enough of it to be no XML any more, whatever it was.
QByteArray spoiled(QByteArray const& body)
{
    return body.left(body.size() / 2) + "<unfinished &";
}
} // namespace

WebConnection::WebConnection(QSslSocket* socket, qint64 msNow)
    : QObject(socket), _socket(socket), _isTls(socket->mode() != QSslSocket::UnencryptedMode), _msSince(msNow),
      _msNow(msNow)
{
    // Before the module, which reads all that has come.
    connect(_socket, &QSslSocket::readyRead, this, &WebConnection::onReadyRead);
    connect(_socket, &QSslSocket::disconnected, _socket, &QObject::deleteLater);
}

void WebConnection::onReadyRead()
{
    if (_bytes == 0)
        _msSince = _msNow;
    _bytes += _socket->bytesAvailable();
    if (_bytes <= maximumRequest)
        return;
    if (_isEnding)
        _socket->abort(); // It does not stop.
    else
        refuse(413);
}

bool WebConnection::begin(qint64 msNow)
{
    if (_isBusy || _isEnding || _socket->bytesAvailable() > 0) {
        drop(QStringLiteral("it sends more before it has been answered"));
        return false;
    }
    _bytes = 0;
    _isBusy = true;
    _isFirst = false;
    _msNow = _msSince = msNow;
    return true;
}

void WebConnection::refuse(int status)
{
    LOG_WARNING("%s: bad request, answered with %d", qUtf8Printable(_socket->peerAddress().toString()), status);
    send(statusLine(status) + "Content-Length: 0\r\nConnection: close\r\n\r\n", {}, false);
}

void WebConnection::answer(WebAnswer const& answer, std::optional<WebFault> const& fault, bool withBody,
                           bool keepAlive)
{
    using Kind = WebFault::Kind;
    auto const is = [&](Kind kind) { return fault && fault->kind == kind; };
    QByteArray body = is(Kind::Xml) ? spoiled(answer.body) : answer.body;
    QByteArray header = statusLine(answer.status);
    if (!answer.type.isEmpty())
        header += "Content-Type: " + answer.type + "\r\n";
    for (auto const& [name, value] : answer.headers)
        header += name + ": " + value + "\r\n";
    if (answer.status != 304)
        header += "Content-Length: " + QByteArray::number(body.size() + (is(Kind::Length) ? 100 : 0)) + "\r\n";
    header += "X-Content-Type-Options: nosniff\r\n";
    bool const isCut = is(Kind::Cut) || is(Kind::Length);
    if (is(Kind::Cut))
        body.truncate(fault->number);
    if (!keepAlive || isCut)
        header += "Connection: close\r\n";
    send(header + "\r\n", withBody ? body : QByteArray(), keepAlive && !isCut);
}

void WebConnection::send(QByteArray const& header, QByteArray const& body, bool keepAlive)
{
    _isBusy = false;
    _msSince = _msNow;
    _isEnding = !keepAlive;
    _socket->write(header);
    _socket->write(body);
    if (_isEnding)
        _socket->disconnectFromHost(); // When all has been sent.
}

void WebConnection::check(qint64 msNow)
{
    _msNow = msNow;
    qint64 const ms = msNow - _msSince;
    if (_isBusy || _isSilent)
        return; // Its answer is the service's affair.
    if (_isTls && !_socket->isEncrypted() && ms > msForRequest)
        drop(QStringLiteral("its handshake does not come to an end"));
    else if (_socket->bytesToWrite() > 0 || _isEnding) {
        if (ms > msForAnswer)
            drop(QStringLiteral("it does not take what was sent"));
    } else if ((_isFirst || _bytes > 0) && ms > msForRequest)
        drop(QStringLiteral("its request does not come to an end"));
    else if (ms > msBetweenRequests)
        drop(QStringLiteral("no request for %1 s").arg(msBetweenRequests / 1000));
}

void WebConnection::drop(QString const& why)
{
    LOG_INFO("%s: %s. The connection is closed", qUtf8Printable(_socket->peerAddress().toString()),
             qUtf8Printable(why));
    _socket->abort();
}
