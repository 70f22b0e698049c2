#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>

/// One MMS transport: connects to a server, selects streams and delivers ASF.
///
/// Asynchronous: connectToServer() and disconnectFromServer() return at once, and every failure arrives by done()
/// alone. An operation in the wrong state logs a warning and does nothing. Lives on one thread, with an event loop;
/// its memo queue belongs to that same thread.
class MmsClient : public QObject
{
    Q_OBJECT

public:
    enum MmsClientState {
        Unconnected = 0,
        Connecting = 1,
        ReadingHeader = 2,
        Connected = 3,
        Streaming = 4,
        Closing = 5,
        Closed = 6
    };
    Q_ENUM(MmsClientState)

    enum MmsClientError {
        NoError = 0,
        EndOfStream = 1,
        CouldNotConnected = 2,
        StreamNotAvailable = 3,
        RemoteServerClosed = 4,
        CouldNotResolveServer = 5,
        ReadTimeout = 6,
        AuthenticationRequiredError = 7,
        ProxyAuthenticationRequiredError = 8,
        Redirected = 9,
        BandwidthNotAvailable = 10,
        NoContent = 11,
        UnknownError = 12
    };
    Q_ENUM(MmsClientError)

    enum StreamingProtocol { MmsHttp = 0, MmsTcp = 1, MmsUdp = 2, Rtsp = 3 };
    Q_ENUM(StreamingProtocol)

    /// Streams whose bit rates add up to this or more are switched off where the header offers others; bits a second.
    static constexpr int bandwidthLimit = 512000;

    using QObject::QObject;

    /// Connects and waits up to `timeout` ms, events being processed meanwhile, until the state is Connected; then
    /// appends the ASF header to `header`. Whether it came. Not every transport can.
    virtual bool getHeader(QUrl const& url, int timeout, QByteArray& header) = 0;

    /// Begins a session. The referrer is the address that led to this one, or empty. The timeout, in ms, is a limit
    /// on silence: while connecting, for each answer and in the stream.
    virtual void connectToServer(QUrl const& url, QString const& referrer, int timeout) = 0;
    virtual void disconnectFromServer() = 0;

    virtual QString remoteUrl() const = 0;
    virtual MmsClientState state() const = 0;
    virtual MmsClientError error() const = 0;
    virtual bool isSeekable() const = 0;
    virtual bool isBroadcast() const = 0;

    /// Of the whole, by the header; bits a second, 1 when not known.
    virtual qint64 streamBitrate() const = 0;
    virtual qint64 totalBytesReceived() const = 0;
    virtual qint64 downstreamBandwidth() const = 0;

    /// Bytes of an ASF data packet, by the header.
    virtual int packetSize() const = 0;
    virtual StreamingProtocol protocol() = 0;

    /// The number that the server knows this session by.
    virtual void setClientId(QString const& id) = 0;
    virtual QString clientId() const = 0;

    /// Stops taking bytes from the server, which has to wait then, or goes on. Silence is no failure meanwhile, and
    /// an end of the stream is not seen. Each session begins with reading.
    virtual void setReading(bool reading) = 0;

signals:
    void connected();
    /// The ASF header, rewritten for the streams that were selected, with the Data object's own header.
    void onHeader(QByteArray header);
    /// One ASF data packet, filled up to the packet size.
    void onData(QByteArray packet);
    /// The session has ended.
    void done(MmsClient::MmsClientError error);
};

Q_DECLARE_METATYPE(MmsClient::MmsClientError)
