#pragma once

#include "HttpClient.h"

class Logger;
class Timer;
class TimerFactory;

/// An HttpClient around another one that gives up on silence: when no header, no data and no write to the device
/// has come for the time given with a request, the inner client is aborted. While a body waits to be read, silence is
/// the reader's.
///
/// A time-out ends as any abort does, with done(true) and the error Aborted, and that stands whatever the inner
/// client makes of it; timedOut() tells the two apart. The inner client and the timer move along with moveToThread().
class TimedHttpClient : public HttpClient
{
    Q_OBJECT

public:
    /// Becomes the owner of the client. The timer factory is borrowed.
    TimedHttpClient(HttpClient* client, TimerFactory* timerFactory, QObject* parent = nullptr);
    ~TimedHttpClient() override;

    /// The inner client.
    HttpClient* httpClient() const { return _client; }

    /// Gives the timer back to its factory and the inner client up to the caller, so that this object may outlive
    /// both factories. It is of no use from then on.
    HttpClient* retire();

    /// Whether the last request ended because of silence.
    bool timedOut() const { return _timedOut; }

    /// As those without a time-out, which is in seconds; 0 is none. The last one given holds for the whole queue.
    int get(QString const& path, int timeoutSeconds, QIODevice* device = nullptr);
    int post(QString const& path, QByteArray const& data, int timeoutSeconds, QIODevice* device = nullptr);
    int request(HttpRequestHeader const& header, QByteArray const& data, int timeoutSeconds);

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
    HttpClient::Error error() const override;
    HttpRequestHeader currentRequest() const override;

private slots:
    void onDeviceBytesWritten(qint64 bytes);
    void onTimeout(Timer* timer);
    void rethrowResponseHeaderReceived(HttpClient* client, HttpResponseHeader const& header);
    void rethrowReadyRead(HttpClient* client, HttpResponseHeader const& header);
    void rethrowDone(HttpClient* client, bool error);
    void rethrowAuthenticationRequired(HttpClient* client, QString const& host, quint16 port,
                                       QAuthenticator* authenticator);
    void rethrowProxyAuthenticationRequired(HttpClient* client, QNetworkProxy const& proxy,
                                            QAuthenticator* authenticator);
    void rethrowDataSendProgress(HttpClient* client, int done, int total);
    void rethrowDataReadProgress(HttpClient* client, int done, int total);

private:
    void begin(int timeoutSeconds, QIODevice* device);
    void restartTimer();
    void disposeTimer();

    static Logger* log;

    HttpClient* _client; ///< A child of this object, so that it moves along.
    TimerFactory* _timerFactory;
    Timer* _timer; ///< Likewise a child. Null once retired.
    bool _timedOut = false;
};
