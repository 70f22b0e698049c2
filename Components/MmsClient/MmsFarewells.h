#pragma once

#include "HttpRequestHeader.h"

#include <QByteArray>
#include <QList>
#include <QThread>
#include <QUrl>

#include <condition_variable>
#include <mutex>

class HttpClientFactory;
class Logger;

/// Says the last words of streams that are gone already: what servers are told at the end goes out on a thread of its
/// own, for a bounded time. Every operation is for any thread.
class MmsFarewells
{
public:
    static constexpr int defaultLimit = 2000; ///< ms for each farewell, and at the end for all together.
    static constexpr int maximumPending = 64; ///< Farewells at a time; more are left out.

    /// A request of HTTP.
    struct Words {
        HttpRequestHeader header;
        QByteArray body;
    };

    /// The factory is borrowed, and makes clients on any thread. The limit is in ms.
    explicit MmsFarewells(HttpClientFactory* httpClientFactory, int limit = defaultLimit);

    /// Waits until all has been said, or for the limit.
    ~MmsFarewells();

    /// Sends these requests to the server of an address, one after the other.
    void say(QUrl const& url, QList<Words> const& words);

    /// Lets go of a connection whose last bytes may still be on their way: closes it when the server does. The caller
    /// keeps the descriptor and closes it.
    void letGo(int descriptor);

private:
    class Home;
    class Speech;
    class Connection;

    /// What is to be done on the thread: words for a server, or a connection's end.
    struct Farewell {
        QUrl url = {};
        QList<Words> words = {};
        int descriptor = -1; ///< Ours; none where there are words.
    };

    bool begin(Farewell const& farewell);
    void end();

    static Logger* log;

    HttpClientFactory* const _httpClientFactory;
    int const _limit; ///< ms
    QThread _thread;
    std::mutex _mutex; ///< Guards what follows.
    std::condition_variable _allSaid;
    Home* _home = nullptr;    ///< On the thread, which deletes it; the parent of the farewells.
    QList<Farewell> _toBegin; ///< What the thread has not taken over yet.
    int _pending = 0;         ///< With those.
    bool _isOver = false;     ///< The thread is to end.
};
