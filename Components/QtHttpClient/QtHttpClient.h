#pragma once

#include "HttpClient.h"

#include <QList>

#include <functional>
#include <memory>

class CurlTransfer;
class Logger;
struct HttpServer;

/// The HttpClient over libcurl, driven by Qt's event loop: it never blocks, and its end never waits. Only HTTP/1.0
/// and 1.1 are spoken, and TLS certificates are verified. A request goes out exactly as it was given; just Host, when
/// missing in an HTTP/1.1 request, and the credentials are added. All clients of a thread share their connections.
///
/// A body that nobody reads is kept up to CurlTransfer::maximumUnreadBytes, then the server is made to wait.
class QtHttpClient : public HttpClient
{
    Q_OBJECT

public:
    explicit QtHttpClient(QObject* parent = nullptr);
    ~QtHttpClient() override;

    int setHost(QString const& host, int port = 80) override;
    int setHost(QString const& host, HttpClient::ConnectionMode mode, int port = 0) override;
    int setProxy(QString const& host, int port, QString const& user, QString const& password) override;
    int setUser(QString const& user, QString const& password) override;
    int request(HttpRequestHeader const& header, QByteArray const& data) override;
    int get(QString const& path, QIODevice* device = nullptr) override;
    int post(QString const& path, QByteArray const& data, QIODevice* device = nullptr) override;
    int close() override;
    void abort() override;
    QByteArray readAll() override;
    qint64 read(char* data, qint64 maxSize) override;
    qint64 bytesAvailable() const override;
    HttpClient::State state() const override;
    HttpClient::Error error() const override { return _error; }
    HttpRequestHeader currentRequest() const override;

private slots:
    void rethrowResponseHeaderReceived(HttpResponseHeader const& header);
    void rethrowReadyRead(HttpResponseHeader const& header);
    void rethrowDone(bool error);
    void rethrowAuthenticationRequired(QString const& host, quint16 port, QAuthenticator* authenticator);
    void rethrowProxyAuthenticationRequired(QNetworkProxy const& proxy, QAuthenticator* authenticator);
    void rethrowDataSendProgress(int done, int total);
    void rethrowDataReadProgress(int done, int total);

private:
    /// One call, to be run in its turn. A transfer is over at its finished(), everything else at once.
    struct Request {
        std::function<void()> apply; ///< Null for a transfer.
        HttpRequestHeader header = {};
        QByteArray body = {};
        QIODevice* device = nullptr;
        bool isWhole = false; ///< The header is sent as it is, without lines for host and connection.
    };

    int enqueue(Request request);
    int send(QString const& method, QString const& path, QByteArray const& data, QIODevice* device);
    void startNext();
    void startTransfer(Request const& request);
    void fail(HttpClient::Error error);

    static Logger* log;

    std::unique_ptr<HttpServer> _server;
    QList<Request> _requests;                ///< The first one is running, once startNext() has come to it.
    std::unique_ptr<CurlTransfer> _transfer; ///< The running one, or the last one, whose body may still be read.
    HttpClient::Error _error = NoError;
    int _lastId = 0;
    bool _isTransferring = false;
    bool _needsFreshConnection = false;
};
