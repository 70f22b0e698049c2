#pragma once

#include "HttpRequestHeader.h"
#include "HttpResponseHeader.h"

#include <QAuthenticator>
#include <QByteArray>
#include <QNetworkProxy>
#include <QObject>
#include <QString>

class QIODevice;

/// An HTTP client as an interface. Requests are queued and run one after the other, settings too; each gets an id
/// that grows. done() tells that the whole queue has run, or that a request failed, which drops those behind it.
///
/// A response of any status is a success and no redirection is followed: what a status means is the caller's affair.
///
/// Lives on the thread that made it, and may be moved to another before its first request. All signals are emitted
/// from that thread's event loop, done() also from within abort(); the client may be deleted from any of them.
class HttpClient : public QObject
{
    Q_OBJECT

public:
    enum State {
        Unconnected = 0,
        HostLookup = 1,
        Connecting = 2,
        Sending = 3,
        Reading = 4,
        Connected = 5, ///< Idle, and the connection kept for the next request.
        Closing = 6
    };
    Q_ENUM(State)

    enum Error {
        NoError = 0,
        UnknownError = 1,
        HostNotFound = 2,
        ConnectionRefused = 3,
        UnexpectedClose = 4,
        InvalidResponseHeader = 5,
        WrongContentLength = 6,
        Aborted = 7,
        AuthenticationRequiredError = 8,
        ProxyAuthenticationRequiredError = 9
    };
    Q_ENUM(Error)

    enum ConnectionMode { ConnectionModeHttp = 0, ConnectionModeHttps = 1 };
    Q_ENUM(ConnectionMode)

    using QObject::QObject;

    /// Where the requests that follow go. Port 0 is the protocol's own.
    virtual int setHost(QString const& host, int port = 80) = 0;
    virtual int setHost(QString const& host, HttpClient::ConnectionMode mode, int port = 0) = 0;

    /// The HTTP proxy of the requests that follow; the empty host goes back to the application's proxy.
    virtual int setProxy(QString const& host, int port, QString const& user, QString const& password) = 0;

    /// The credentials for a server that asks for some.
    virtual int setUser(QString const& user, QString const& password) = 0;

    /// Sends this header, its lines in this order, and this body.
    virtual int request(HttpRequestHeader const& header, QByteArray const& data) = 0;

    /// With a device, the body of the response is written there, and is not to be read from the client. The device
    /// is borrowed and must be open for writing.
    virtual int get(QString const& path, QIODevice* device = nullptr) = 0;
    virtual int post(QString const& path, QByteArray const& data, QIODevice* device = nullptr) = 0;

    /// The requests that follow use a new connection.
    virtual int close() = 0;

    /// Drops all requests at once, the running one too; then emits done() with error Aborted if there were any.
    virtual void abort() = 0;

    /// The body of the response as far as it is here and unread. It stays until the next request begins.
    virtual QByteArray readAll() = 0;
    virtual qint64 read(char* data, qint64 maxSize) = 0;
    virtual qint64 bytesAvailable() const = 0;

    virtual HttpClient::State state() const = 0;
    virtual HttpClient::Error error() const = 0;

    /// The header of the running request; not valid when there is none.
    virtual HttpRequestHeader currentRequest() const = 0;

signals:
    void responseHeaderReceived(HttpClient* client, HttpResponseHeader header);
    void readyRead(HttpClient* client, HttpResponseHeader header);
    void done(HttpClient* client, bool error);

    /// The server, or the proxy, wants credentials. A directly connected receiver that fills the authenticator has
    /// the request sent once more; otherwise it fails.
    void authenticationRequired(HttpClient* client, QString host, quint16 port, QAuthenticator* authenticator);
    void proxyAuthenticationRequired(HttpClient* client, QNetworkProxy proxy, QAuthenticator* authenticator);

    /// Bytes of the body, done and in all; a total of 0 is not known. Larger numbers stand at the largest int.
    void dataSendProgress(HttpClient* client, int done, int total);
    void dataReadProgress(HttpClient* client, int done, int total);
};
