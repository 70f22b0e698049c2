#pragma once

#include "HttpClient.h"
#include "ReconnectionPolicy.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <list>

class HttpClientFactory;
class Logger;
class Timer;
class TimerFactory;

/// Asks addresses what they are, each by a GET in the manner of a Windows Media client. Reads no more of an answer
/// than it takes to know: an endless stream or a large file is left after its header.
///
/// Lives on one thread, with an event loop; from any of its signals it may be cancelled, given more to check, or
/// deleted.
class HttpContentChecker : public QObject
{
    Q_OBJECT

public:
    enum ContentType {
        Unknown = 0,
        PlainFile = 1, ///< An audio or video file.
        MmsStream = 2,
        PlaylistDocument = 3
    };
    Q_ENUM(ContentType)

    /// Bytes of a playlist; what is longer is cut off here.
    static constexpr qsizetype maximumBodyBytes = qsizetype(1) << 20;

    /// A check without a result is made this many times in all, or fewer when the server did answer.
    static constexpr int maximumTries = 6;
    static constexpr int maximumAnsweredTries = 4;

    /// Of a server that says nothing at all there are other ways to try.
    static constexpr int maximumSilentTries = 3;

    static constexpr int maximumRedirections = ReconnectionPolicy::maximumRedirections;

    /// A check and what came of it.
    struct CheckResponse {
        QString url;      ///< The address that answered, or was asked last.
        QString key;      ///< The address that check() was asked for; redirections leave it.
        QString referrer; ///< As given to check().
        QString text;     ///< As given to check().
        HttpResponseHeader header;
        QByteArray body;
        bool isWhole = false;      ///< All has come that it takes to know; else it broke off.
        int contentType = Unknown; ///< A ContentType.

        bool isBroadcast = false;
        bool isLive = false;   ///< The stream begins anew for each viewer.
        int streamTimeout = 0; ///< ms that the server allows for silence; 0 when it does not say.
        QString clientId;      ///< The number that the server gave us, or empty.

        /// The check's own bookkeeping.
        int handle = 0;
        HttpClient* client = nullptr;
        Timer* timer = nullptr;
        int timeout = 0; ///< ms, of this try.
        int tryCount = 1;
        int redirections = 0;
        int statusClass = 0; ///< Hundreds of the last status; 0 when none has come.
    };

    /// The factories are borrowed.
    HttpContentChecker(HttpClientFactory* httpClientFactory, TimerFactory* timerFactory, QObject* parent = nullptr);

    /// As cancel().
    ~HttpContentChecker() override;

    /// Begins a check, and returns its handle. The end is told by finished(), once and never from within. Addresses
    /// of mms are asked over HTTP, on the port of the address or else 80. `text` is the GUID to be known by; when it
    /// is empty the checker's own is used. The time-out, in ms, is that of the first try, and doubles for each
    /// further one.
    int check(QString const& url, QString const& referrer, QString const& text, int timeout);

    /// Stops all checks; nothing more is heard of them.
    void cancel();

signals:
    /// `failed` when it has not been found out what the address is.
    void finished(HttpContentChecker::CheckResponse response, bool failed);
    /// The first try got no answer in time; the check goes on.
    void silent(HttpContentChecker::CheckResponse response);

private slots:
    void responseHeaderReceived(HttpClient* client, HttpResponseHeader const& header);
    void readyRead(HttpClient* client, HttpResponseHeader const& header);
    void done(HttpClient* client, bool error);
    void timeout(Timer* timer);

private:
    using Checks = std::list<CheckResponse>;

    void start(CheckResponse& check);
    void send(CheckResponse& check, QUrl const& url);
    void release(CheckResponse& check);
    Checks::iterator find(HttpClient const* client);
    void failSoon(CheckResponse& check);
    void conclude(Checks::iterator check, bool isWhole = true);
    void redirect(Checks::iterator check);
    void retryOrFinish(Checks::iterator check, int maximum);
    void finish(Checks::iterator check);

    static Logger* log;

    HttpClientFactory* const _httpClientFactory;
    TimerFactory* const _timerFactory;
    QUuid const _guid;
    int _lastHandle = 0;
    Checks _checks;
};

Q_DECLARE_METATYPE(HttpContentChecker::CheckResponse)
