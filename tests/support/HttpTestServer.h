#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

/// An HTTP server of which the test plays each step: it takes requests apart and sends the bytes it is told, when it
/// is told. On a free port of 127.0.0.1. Its steps run the event loop, and so the client in the same thread.
class HttpTestServer : public QObject
{
    Q_OBJECT

public:
    struct Request {
        QList<QByteArray> lines; ///< The request line and the header lines.
        QByteArray body;
    };

    /// Takes over a server, such as one for TLS.
    explicit HttpTestServer(std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>());
    ~HttpTestServer() override;

    quint16 port() const { return _server->serverPort(); }

    /// The connections accepted so far, those gone too.
    int connectionCount() const { return static_cast<int>(_connections.size()); }

    /// Whether all connections are gone from the other side.
    bool allClosed() const;

    /// Waits for the next whole request on any connection; send() and close() act on that one from then on.
    Request takeRequest();

    /// takeRequest() and send() in one.
    void answer(QByteArray const& response);

    void send(QByteArray const& bytes);

    /// Bytes that the client's side has not taken yet.
    qint64 bytesToWrite() const;
    void close();

private:
    struct Connection {
        QTcpSocket* socket;
        QByteArray received = {};
    };

    static bool takeRequest(QByteArray& received, Request& request);

    std::unique_ptr<QTcpServer> _server;
    QList<Connection> _connections;
    QTcpSocket* _current = nullptr;
};
