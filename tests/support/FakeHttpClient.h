#pragma once

#include "HttpClient.h"

#include <QList>

/// An HttpClient whose server is the test: it sees the requests, and says what is answered and how it ends.
/// One request runs at a time; those behind it are taken for sent with it.
class FakeHttpClient : public HttpClient
{
    Q_OBJECT

public:
    struct Sent {
        HttpRequestHeader header; ///< For get() and post() without any lines.
        QByteArray body;
    };

    using HttpClient::HttpClient;

    QString host() const { return _host; }
    int port() const { return _port; }
    HttpClient::ConnectionMode mode() const { return _mode; }

    /// All requests so far.
    QList<Sent> sent() const { return _sent; }

    /// The header of a response comes.
    void respond(HttpResponseHeader const& header);

    /// Bytes of its body come.
    void receive(QByteArray const& bytes);

    /// The response ends, or fails.
    void finish(HttpClient::Error error = NoError);

    int setHost(QString const& host, int port = 80) override;
    int setHost(QString const& host, HttpClient::ConnectionMode mode, int port = 0) override;
    int setProxy(QString const&, int, QString const&, QString const&) override { return ++_lastId; }
    int setUser(QString const&, QString const&) override { return ++_lastId; }
    int request(HttpRequestHeader const& header, QByteArray const& data) override;
    int get(QString const& path, QIODevice* device = nullptr) override;
    int post(QString const& path, QByteArray const& data, QIODevice* device = nullptr) override;
    int close() override { return ++_lastId; }
    void abort() override;
    QByteArray readAll() override;
    qint64 read(char* data, qint64 maxSize) override;
    qint64 bytesAvailable() const override { return _body.size(); }
    HttpClient::State state() const override { return _isRunning ? Reading : Unconnected; }
    HttpClient::Error error() const override { return _error; }
    HttpRequestHeader currentRequest() const override;

private:
    int send(Sent const& request);

    QString _host;
    int _port = 0;
    HttpClient::ConnectionMode _mode = ConnectionModeHttp;
    QList<Sent> _sent;
    HttpResponseHeader _response;
    QByteArray _body;
    qint64 _received = 0;
    bool _isRunning = false;
    HttpClient::Error _error = NoError;
    int _lastId = 0;
};
