#pragma once

#include <QByteArray>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

/// Serves one body to whoever asks, in several ill-behaved ways.
class LoopbackHttpServer
{
public:
    enum Manner {
        Whole,
        Slow,         ///< A piece at a time.
        CutOff,       ///< Half of it, then the end of the connection.
        Stalled,      ///< Half of it, then nothing.
        Silent,       ///< Nothing at all.
        Unavailable,  ///< 503, with the body as its page.
        NotFound,     ///< 404, with a page that never ends.
        HeldOpen,     ///< Whole, without a length, then nothing.
        Chunked,      ///< Whole, in one chunk, without a length.
        CutChunk,     ///< Half of that.
        WithoutLength ///< Whole, its end told by the end of the connection.
    };

    LoopbackHttpServer(Manner manner, QByteArray const& body) : _manner(manner), _body(body)
    {
        _server.listen(QHostAddress::LocalHost);
        QObject::connect(&_server, &QTcpServer::newConnection, &_server, [this] { accept(); });
    }

    QString url(QString const& name = "film") const
    {
        return QString("http://127.0.0.1:" + QString::number(_server.serverPort()) + "/" + name);
    }
    QByteArray request() const { return _request; }
    /// From the next request on.
    void serve(Manner manner, QByteArray const& body)
    {
        _manner = manner;
        _body = body;
    }

private:
    void accept()
    {
        QTcpSocket* const socket = _server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            QByteArray const request = socket->readAll();
            _request += request;
            if (request.contains("\r\n\r\n"))
                answer(socket);
        });
    }

    void answer(QTcpSocket* socket)
    {
        if (_manner == Silent)
            return;
        QByteArray head = _manner == Unavailable ? "HTTP/1.1 503 Busy\r\n"
                          : _manner == NotFound  ? "HTTP/1.1 404 Not Found\r\n"
                                                 : "HTTP/1.1 200 OK\r\n";
        bool const isChunked = _manner == Chunked || _manner == CutChunk;
        if (isChunked)
            head += "Transfer-Encoding: chunked\r\n";
        else if (_manner != WithoutLength && _manner != HeldOpen && _manner != NotFound)
            head += "Content-Length: " + QByteArray::number(_body.size()) + "\r\n";
        socket->write(head + "Connection: close\r\n\r\n");
        if (isChunked)
            socket->write(QByteArray::number(_body.size(), 16) + "\r\n");
        qsizetype const piece = _manner == Slow                                                  ? 3000
                                : _manner == CutOff || _manner == Stalled || _manner == CutChunk ? _body.size() / 2
                                                                                                 : _body.size();
        if (_manner == Slow)
            QObject::connect(socket, &QTcpSocket::bytesWritten, socket,
                             [this, socket, piece, sent = piece]() mutable {
                                 if (socket->bytesToWrite() > 0)
                                     return;
                                 if (sent >= _body.size())
                                     return socket->disconnectFromHost();
                                 socket->write(_body.mid(sent, piece));
                                 sent += piece;
                             });
        socket->write(_body.left(piece));
        if (_manner == Chunked)
            socket->write("\r\n0\r\n\r\n");
        if (_manner != Slow && _manner != Stalled && _manner != HeldOpen && _manner != NotFound)
            socket->disconnectFromHost();
    }

    Manner _manner;
    QByteArray _body;
    QByteArray _request;
    QTcpServer _server;
};
