#pragma once

#include "LatteClient.h"
#include "MmsClient.h"

class DateTimeBuilder;
class HttpClientFactory;
class Logger;
class MemoQueue;
class MmsFarewells;
class MmsLatteClientPrivate;
class TcpSocketFactory;
class TimerFactory;

/// A stream over MMS, by HTTP or TCP, straight or through playlists. Reconnects by itself: an error() is the end only
/// if the state is Finished then.
class MmsLatteClient : public LatteClient
{
    Q_OBJECT

public:
    /// The name is what the client presents itself to servers with. Factories are borrowed. The memo queue is not
    /// used: the client has one of its own, which moves with it from thread to thread.
    MmsLatteClient(QString const& name, Uri const& uri, TimerFactory* timerFactory,
                   TcpSocketFactory* tcpSocketFactory, HttpClientFactory* httpClientFactory,
                   DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue, QObject* parent = nullptr);
    ~MmsLatteClient() override;

    /// What servers are told last goes this way; borrowed. Before startBuffering().
    void setFarewells(MmsFarewells* farewells);

    void startBuffering() override;
    /// Does not wait for anything. May be called from any signal of this object.
    void stopBuffering() override;
    Uri uri() const override { return _uri; }
    LatteClientState state() const override;
    qint64 bufferByteLength() const override;
    /// Ignores 0 and less. Stops when there is more in the buffer already.
    void setBufferByteLength(qint64 length) override;
    void clearBuffer() override;
    qint64 bytesAvailable() const override;
    qint64 bytesBuffered() const override;
    /// Does nothing: what is live cannot be sought.
    void seekToTime(QDateTime const& time) override;
    /// Whole ASF packets only.
    qint64 read(char* data, qint64 size) override;
    bool isSeekable() const override { return false; }
    QByteArray descriptor(qint64 offset) const override;

public slots:
    void onMmsConnected();
    void onMmsHeader(QByteArray const& header);
    void onMmsData(QByteArray const& data);
    void onMmsDone(MmsClient::MmsClientError error);

private:
    static Logger* log;

    Uri const _uri;
    MmsLatteClientPrivate* const _private; ///< A child, so that it moves along.
};
