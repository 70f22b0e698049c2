#pragma once

#include "AbstractMmsClient.h"
#include "MmsFarewells.h"
#include "ReconnectionPolicy.h"
#include "TimedHttpClientFactory.h"

#include <QList>

class HttpClientFactory;
class HttpMmsRequest;
class HttpRequestHeader;
class Logger;
class TimerFactory;

/// MMS over HTTP: a describe request brings the stream's header, a play request the stream, a select request what a
/// server's playlist goes on with, and a stop ends it. Each is a HttpMmsRequest.
///
/// Addresses of mms are asked over HTTP, on their port or else 80. Threads and errors are as in MmsClient.
class HttpMmsClient : public AbstractMmsClient
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

    HttpMmsClientState httpMmsState() const { return _httpMmsState; }
    bool isSeekable() const override { return !_isBroadcast; }
    bool isBroadcast() const override { return _isBroadcast; }
    StreamingProtocol protocol() override { return MmsHttp; }

    void setReading(bool reading) override;

    void setGUID(QString const& guid);

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

    HttpRequestHeader plainHeader(QUrl const& url, QString const& method) const;
    HttpRequestHeader constructHeader(QUrl const& url, QString const& method = QStringLiteral("GET")) const;
    void addSelection(HttpRequestHeader& header) const;
    void addOffsets(HttpRequestHeader& header) const;
    void addClientId(HttpRequestHeader& header) const;
    void addReferrer(HttpRequestHeader& header) const;
    bool isInState(bool isRight, char const* operation) const;
    HttpMmsRequest* send(HttpRequestHeader const& header, bool withStream);
    void sendAside(HttpRequestHeader const& header, QByteArray const& body);
    void dropRequests();

    static Logger* log;

    QString _referrer;
    QString _playlistGenId;
    HttpMmsClientState _httpMmsState = None;
    quint32 _streamOffsetHigh = 4294967295U;
    quint32 _streamOffsetLow = 4294967295U;
    bool _isBroadcast = false;
    bool _isLive = false;
    QByteArray _receivedHeader; ///< As the server sent it.
    QByteArray _header;         ///< Rewritten for the selection.
    QString const _acceptLanguage;
    TimedHttpClientFactory _httpClientFactory;
    TimerFactory* const _timerFactory;
    int _detours = 0;
    bool _hasDelivered = false;                  ///< Since the session began anew.
    QList<MmsFarewells::Words> _lastWords;       ///< What the server has not heard yet of stop and report.
    bool _isHeaderWanted = false;                ///< And nothing but the header: getHeader() is waiting.
    QList<HttpMmsRequest*> _requests;            ///< Those of the session. Children.
    QList<HttpMmsRequest*> _sideRequests;        ///< Those whose end changes nothing. Children.
    HttpMmsRequest* _streamingRequest = nullptr; ///< One of the session's.
};
