#pragma once

#include "CurlHandle.h"
#include "HttpServer.h"

#include <QByteArray>
#include <QIODevice>
#include <QObject>
#include <QPointer>

#include <memory>

class CurlDriver;
class Logger;

/// One request and its response, repeated with credentials when the server or the proxy asks for some.
///
/// Lives on the thread of its driver. What curl hands over is collected, and delivered from the driver's event loop;
/// the transfer may be deleted from any of its signals, which ends it.
class CurlTransfer : public QObject
{
    Q_OBJECT

public:
    /// Limits on a response's header, against servers that send without end: the name of the failure is
    /// InvalidResponseHeader.
    static constexpr qsizetype maximumHeaderLineBytes = 32LL * 1024;
    static constexpr qsizetype maximumHeaderBytes = 128LL * 1024;
    static constexpr int maximumHeaderLines = 500;

    /// Unread bytes of the body beyond which the server is held up until somebody reads.
    static constexpr qsizetype maximumUnreadBytes = 8LL * 1024 * 1024;

    /// `device` is borrowed, may be null, and otherwise takes the body.
    CurlTransfer(HttpServer const& server, HttpRequestHeader const& header, QByteArray const& body,
                 QIODevice* device);
    ~CurlTransfer() override;

    /// Begins, on a connection of its own if asked to. False when the server's name cannot be one.
    bool start(bool onFreshConnection);

    HttpRequestHeader header() const { return _header; }

    /// The server with the credentials that were given in the meantime.
    HttpServer server() const { return _server; }
    HttpClient::State state() const { return _state; }
    HttpClient::Error error() const { return _error; }

    qint64 bytesAvailable() const { return _hasDevice ? 0 : _body.size(); }
    qint64 read(char* data, qint64 maxSize);
    QByteArray readAll();

    /// For the driver.
    CURL* handle() const { return _handle.get(); }

    /// curl has ended the transfer, and still holds it. For the driver.
    void complete(CURLcode code);

    /// Emits what has come since the last time. For the driver.
    void deliver();

signals:
    void responseHeaderReceived(HttpResponseHeader header);
    void readyRead(HttpResponseHeader header);
    void authenticationRequired(QString host, quint16 port, QAuthenticator* authenticator);
    void proxyAuthenticationRequired(QNetworkProxy proxy, QAuthenticator* authenticator);
    void dataSendProgress(int done, int total);
    void dataReadProgress(int done, int total);

    /// The last signal.
    void finished(bool error);

private:
    static size_t onHeaderLine(char* data, size_t size, size_t count, void* transfer);
    static size_t onBody(char* data, size_t size, size_t count, void* transfer);
    static int onProgress(void* transfer, curl_off_t toRead, curl_off_t read, curl_off_t toSend, curl_off_t sent);
    static int onConnecting(void* transfer, curl_socket_t socket, curlsocktype purpose);
    static int onConnected(void* transfer, char* peer, char* local, int peerPort, int localPort);

    void resetResponse();
    bool takeHeaderLine(QByteArray const& line);
    bool takeHeader();
    bool writeToDevice();
    void resumeIfRead();
    void conclude();
    bool answerChallenge();
    HttpClient::Error errorOf(CURLcode code) const;

    static Logger* log;

    HttpServer _server;
    HttpRequestHeader const _header;
    QByteArray const _requestBody;
    bool const _hasDevice;
    QPointer<QIODevice> _device;
    CurlHandle _handle;
    std::shared_ptr<CurlDriver> _driver;
    HttpClient::State _state = HttpClient::Unconnected;
    HttpClient::Error _error = HttpClient::NoError;

    QByteArray _headerBlock; ///< The lines of the header that is coming, or nothing.
    qsizetype _headerBytes = 0;
    int _headerLines = 0;
    bool _headerRefused = false;
    HttpResponseHeader _response;  ///< The final one; not valid before it has come.
    HttpResponseHeader _challenge; ///< One that asks for credentials, unless another followed it.
    QByteArray _body;              ///< What is neither read nor written to the device.
    qint64 _received = 0;
    qint64 _sent = 0;
    CURLcode _code = CURLE_OK;
    bool _isPaused = false;
    bool _isCompleted = false;
    bool _serverWasAnswered = false; ///< Credentials are asked for once.
    bool _proxyWasAnswered = false;

    struct {
        bool header = false;
        bool body = false;
        bool sent = false;
    } _undelivered;
};
