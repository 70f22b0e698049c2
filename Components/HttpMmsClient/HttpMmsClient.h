#pragma once

#include "MmsClient.h"
#include "MmsFarewells.h"
#include "ReconnectionPolicy.h"
#include "TimedHttpClientFactory.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QUrl>
#include <QUuid>

class DateTimeBuilder;
class HttpClientFactory;
class HttpMmsRequest;
class HttpRequestHeader;
class Logger;
class MemoQueue;
class TimerFactory;

/// MMS over HTTP: a describe request brings the stream's header, a play request the stream, a select request what a
/// server's playlist goes on with, and a stop ends it. Each is a HttpMmsRequest.
///
/// Addresses of mms are asked over HTTP, on their port or else 80. Threads and errors are as in MmsClient.
class HttpMmsClient : public MmsClient
{
    Q_OBJECT

public:
    enum HttpMmsClientState { None = 0, Describing = 1, Playing = 2, SelectingStream = 3, Stopping = 4 };
    Q_ENUM(HttpMmsClientState)

    /// So many redirections, empty answers and new beginnings are followed before the stream has lasted a while.
    static constexpr int maximumDetours = ReconnectionPolicy::maximumRedirections;

    /// A server that has nothing to send right now is asked again after this time, in ms.
    static constexpr unsigned int noContentDelay = 1000;

    /// More reports than this are not under way at one time.
    static constexpr qsizetype maximumSideRequests = 4;

    /// The factories, the clock and the queue are borrowed. The GUID is what servers know this viewer by.
    HttpMmsClient(QString const& guid, HttpClientFactory* httpClientFactory, TimerFactory* timerFactory,
                  DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue, QObject* parent = nullptr);

    /// Drops all requests at once.
    ~HttpMmsClient() override;

    /// As in MmsClient. False also as soon as the session has ended; the client is unconnected afterwards.
    bool getHeader(QUrl const& url, int timeout, QByteArray& header) override;
    void connectToServer(QUrl const& url, QString const& referrer, int timeout) override;

    /// Takes leave of the server when a stream is playing, and ends with done() then. In any other state the session
    /// is dropped without a word.
    void disconnectFromServer() override;

    QString remoteUrl() const override { return _url.toString(); }
    MmsClientState state() const override { return _state; }
    HttpMmsClientState httpMmsState() const { return _httpMmsState; }
    MmsClientError error() const override { return _error; }
    bool isSeekable() const override { return !_isBroadcast; }
    bool isBroadcast() const override { return _isBroadcast; }
    qint64 streamBitrate() const override { return _streamBitrate; }
    qint64 totalBytesReceived() const override { return _totalBytesReceived; }
    qint64 downstreamBandwidth() const override { return _downstreamBandwidth; }
    int packetSize() const override { return _packetSize; }
    StreamingProtocol protocol() override { return MmsHttp; }
    void setClientId(QString const& id) override { _clientId = id; }
    QString clientId() const override { return _clientId; }

    void setReading(bool reading) override;

    void setGUID(QString const& guid);

    /// What servers have not been told when the client is deleted goes this way; borrowed, null for none.
    void setFarewells(MmsFarewells* farewells) { _farewells = farewells; }

    /// Says of an ASF stream whether it is wanted (0) or switched off (2).
    void addStreamEntry(int stream, int value) { _selection.insert(stream, value); }

    /// Go on with the session, by a memo.
    void selectStream();
    void startStreaming();

    /// What the memos do, and what servers want beside it. Each sends one request, if the state is right.
    void mmsDescribe();
    void mmsPlay();
    void mmsSelectStream();
    void mmsStop();
    void mmsKeepAlive();
    void mmsLog();
    void tryPipeline();
    void mmsGetContentInfo() {}

    /// The stream has come for a while: detours are counted anew.
    void streamHasLasted() { _detours = 0; }

    /// Forgets what the session knew of the server.
    void reset();

public slots:
    void onHeaderReceived(QByteArray const& header);
    void onDataReceived(QByteArray const& packet);
    void onSelectStream();
    void onDone(MmsClient::MmsClientError error);

private:
    void begin(QUrl const& url, unsigned int delay);
    void detour(QUrl const& url, unsigned int delay);
    void onSessionDone(MmsClientError error, HttpMmsRequest* request);
    void onNoError(HttpMmsRequest* request);
    void onDescribed(HttpMmsRequest const* request);
    void onStreamSelected(HttpMmsRequest const* request);
    void endSession(MmsClientError error);
    void sendLog();
    MmsFarewells::Words stopWords() const;
    MmsFarewells::Words reportWords() const;

    HttpRequestHeader constructHeader(QUrl const& url, QString const& method = QStringLiteral("GET")) const;
    void addSelection(HttpRequestHeader& header) const;
    void addOffsets(HttpRequestHeader& header) const;
    void addReferrer(HttpRequestHeader& header) const;
    bool isInState(bool isRight, char const* operation) const;
    HttpMmsRequest* send(HttpRequestHeader const& header, bool withStream);
    void sendAside(HttpRequestHeader const& header, QByteArray const& body);
    void dropRequests();

    static Logger* log;

    QUuid _guid;
    QMap<int, int> _selection; ///< ASF stream number to 0, wanted, or 2, switched off.
    QString _referrer;
    QString _playlistGenId;
    QUrl _url;
    int _timeout = 0; ///< ms
    MmsClientError _error = NoError;
    MmsClientState _state = Unconnected;
    HttpMmsClientState _httpMmsState = None;
    qint64 _streamBitrate = 1;
    qint64 _totalBytesReceived = 0;
    qint64 _downstreamBandwidth = 0;
    quint32 _streamOffsetHigh = 4294967295U;
    quint32 _streamOffsetLow = 4294967295U;
    bool _isBroadcast = false;
    bool _isLive = false;
    QString _clientId;
    QByteArray _receivedHeader; ///< As the server sent it.
    QByteArray _header;         ///< Rewritten for the selection.
    int _packetSize = 1300;
    QString const _acceptLanguage;
    MemoQueue* const _memoQueue;
    TimedHttpClientFactory _httpClientFactory;
    TimerFactory* const _timerFactory;
    DateTimeBuilder* const _dateTimeBuilder;
    int _detours = 0;
    bool _hasDelivered = false; ///< Since the session began anew.
    MmsFarewells* _farewells = nullptr;
    QList<MmsFarewells::Words> _lastWords;       ///< What the server has not heard yet of stop and report.
    bool _isHeaderWanted = false;                ///< And nothing but the header: getHeader() is waiting.
    QList<HttpMmsRequest*> _requests;            ///< Those of the session. Children.
    QList<HttpMmsRequest*> _sideRequests;        ///< Those whose end changes nothing. Children.
    HttpMmsRequest* _streamingRequest = nullptr; ///< One of the session's.
};
