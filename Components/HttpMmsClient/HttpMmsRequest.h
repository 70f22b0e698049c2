#pragma once

#include "HttpClient.h"
#include "MmsClient.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>

#include <memory>

class HttpClientFactory;
class Logger;
class MmsChunkProcessor;

/// One request of MMS over HTTP and its response, which for a play is the stream. Lives on one thread, and may be
/// abandoned, or deleted later, from any of its signals.
class HttpMmsRequest : public QObject
{
    Q_OBJECT

public:
    /// A server that sends this many bytes without a packet or a piece of a header among them is left.
    static constexpr qint64 maximumUselessBytes = 2LL * 1024 * 1024;

    /// So many bytes are handled at a time; before the next ones the thread may have been asked to end.
    static constexpr qint64 sliceBytes = 16LL * 1024;

    /// No packet is filled up to more than a chunk can hold.
    static constexpr int maximumPacketSize = 65535;

    static constexpr int defaultTimeout = 30000; ///< ms

    /// Of a server's ids, which come back in requests, no more is kept.
    static constexpr qsizetype maximumIdLength = 64;

    /// The factory is borrowed, and makes clients that keep time-outs.
    HttpMmsRequest(QUrl const& url, HttpClientFactory* httpClientFactory, QObject* parent = nullptr);
    ~HttpMmsRequest() override;

    /// Packets are filled up to this many bytes, unless the response has a header that says otherwise.
    void setPacketSize(int size);

    /// Sends the request, once. The time-out, in ms, is a limit on silence.
    void sendRequest(HttpRequestHeader const& header, QByteArray const& body, int timeout);

    /// Ends the request; done() comes from within.
    void abortRequest();

    /// See MmsClient::setReading().
    void setReading(bool reading);

    /// Ends the request without a word: nothing more is heard of it, and it is deleted later. Safe from anywhere.
    void abandon();

    QUrl url() const { return _url; }
    HttpRequestHeader requestHeader() const { return _requestHeader; }
    HttpResponseHeader responseHeader() const { return _responseHeader; }

    bool isTimedOut() const { return _isTimedOut; }
    bool isBroadcast() const { return _isBroadcast; }
    bool isLiveStream() const { return _isLiveStream; }
    bool isPlaylist() const { return _isPlaylist; }
    bool isResetStreamReceived() const { return _isResetStreamReceived; }
    bool isFatalEnd() const { return _isFatalEnd; }
    bool isAborted() const { return _isAborted; }
    QString clientId() const { return _clientId; }
    QString playlistGenId() const { return _playlistGenId; }
    QString previousPlaylistGenId() const { return _previousPlaylistGenId; }
    QString broadcastId() const { return _broadcastId; }

    /// Where the server sends us, made whole; empty without a redirection.
    QString redirectLocation() const { return _redirectLocation; }

    /// ms: what the server asks for, or else what the request was sent with.
    int requestTimeout() const { return _requestTimeout; }

    /// Of the last E chunk; -1 before there is one.
    int endOfStreamReason() const { return _endOfStreamReason; }
    int streamBitrate() const { return _streamBitrate; }
    QByteArray asfHeader() const { return _asfHeader; }

signals:
    void headerReceived(QByteArray header);
    void dataReceived(QByteArray packet);
    /// The server goes on to another entry of its playlist, and waits to be told which streams are wanted.
    void selectStream();
    /// The last signal.
    void done(MmsClient::MmsClientError error);

private slots:
    void responseHeaderReceived(HttpClient* client, HttpResponseHeader const& header);
    void readyRead(HttpClient* client, HttpResponseHeader const& header);
    void done(HttpClient* client, bool error);
    void onHeaderChunk(QByteArray const& header);
    void onDataChunk(QByteArray const& packet);
    void onEndOfDataChunk(int reason);
    void onTestChunk(int reason);
    void onMetadataChunk(QString const& text);
    void onResetChunk(int reason);

private:
    void connectProcessor();
    void take();
    void process(QByteArray const& bytes);
    void conclude();
    void abortClient();
    void releaseClient();
    MmsClient::MmsClientError errorOf(HttpClient::Error error);
    MmsClient::MmsClientError errorOfStatus();
    MmsClient::MmsClientError errorOfRedirection();

    static Logger* log;

    QUrl const _url;
    HttpClientFactory* const _httpClientFactory;
    HttpClient* _client = nullptr; ///< From the factory; null before the request and after its end.
    std::unique_ptr<MmsChunkProcessor> const _processor;
    qint64 _uselessBytes = 0; ///< Since the last header or packet.
    bool _isReading = true;
    bool _isOver = false; ///< The response has ended; what came of it may still be unread.
    HttpRequestHeader _requestHeader;
    HttpResponseHeader _responseHeader;
    bool _isTimedOut = false;
    bool _isBroadcast = false;
    bool _isLiveStream = false;
    bool _isPlaylist = false;
    bool _isResetStreamReceived = false;
    bool _isFatalEnd = false;
    bool _isAborted = false;
    QString _clientId;
    QString _playlistGenId;
    QString _previousPlaylistGenId;
    QString _broadcastId;
    QString _redirectLocation;
    int _requestTimeout = defaultTimeout;
    int _endOfStreamReason = -1;
    int _streamBitrate = 1;
    QByteArray _asfHeader;
};
