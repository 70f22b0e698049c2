#include "MmsFarewells.h"

#include "HttpClient.h"
#include "HttpClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <sys/socket.h>
#include <unistd.h>

Logger* MmsFarewells::log = LoggerManager::logger();

/// One after the other, requests to a server. Deletes itself.
class MmsFarewells::Speech : public QObject
{
public:
    Speech(MmsFarewells& farewells, QUrl const& url, QList<Words> words, QObject* parent)
        : QObject(parent), _farewells(farewells), _words(std::move(words)),
          _client(farewells._httpClientFactory->createHttpClient(nullptr))
    {
        connect(_client, &HttpClient::done, this, &Speech::sayNext);
        if (url.scheme() == "https")
            _client->setHost(url.host(), HttpClient::ConnectionModeHttps, url.port(0));
        else
            _client->setHost(url.host(), url.port(80));
        QTimer::singleShot(farewells._limit, this, &QObject::deleteLater);
        sayNext();
    }
    ~Speech() override
    {
        _client->disconnect(this);
        _client->abort();
        _farewells._httpClientFactory->disposeHttpClient(_client);
        _farewells.end();
    }

private:
    void sayNext()
    {
        if (_words.isEmpty())
            return deleteLater();
        Words const words = _words.takeFirst();
        _client->request(words.header, words.body);
    }

    MmsFarewells& _farewells;
    QList<Words> _words;
    HttpClient* const _client;
};

/// A connection that waits for the server to close it, too. Deletes itself.
class MmsFarewells::Connection : public QObject
{
public:
    Connection(MmsFarewells& farewells, int descriptor, QObject* parent) : QObject(parent), _farewells(farewells)
    {
        connect(&_socket, &QTcpSocket::readyRead, this, [this] { _socket.readAll(); });
        connect(&_socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
        QTimer::singleShot(farewells._limit, this, &QObject::deleteLater);
        if (!_socket.setSocketDescriptor(descriptor)) {
            ::close(descriptor);
            deleteLater();
        } else {
            ::shutdown(descriptor, SHUT_WR);
        }
    }
    ~Connection() override
    {
        _socket.disconnect(this);
        _socket.abort();
        _farewells.end();
    }

private:
    MmsFarewells& _farewells;
    QTcpSocket _socket{this};
};

/// Takes over what is to be done. What crosses the threads does so in the list; the call that wakes this carries
/// nothing.
class MmsFarewells::Home : public QObject
{
public:
    explicit Home(MmsFarewells& farewells) : _farewells(farewells) {}

    void takeOver()
    {
        QList<Farewell> farewells;
        bool isOver = false;
        {
            std::lock_guard const lock(_farewells._mutex);
            farewells.swap(_farewells._toBegin);
            isOver = _farewells._isOver;
        }
        for (Farewell& farewell : farewells)
            if (farewell.descriptor >= 0)
                new Connection(_farewells, farewell.descriptor, this);
            else
                new Speech(_farewells, farewell.url, std::move(farewell.words), this);
        if (!isOver)
            return;
        // What has not been said goes while the loop still runs: the clients' own end needs it.
        qDeleteAll(QObjectList(children()));
        thread()->quit();
    }

private:
    MmsFarewells& _farewells;
};

MmsFarewells::MmsFarewells(HttpClientFactory* httpClientFactory, int limit)
    : _httpClientFactory(httpClientFactory), _limit(limit)
{
    _thread.setObjectName("MmsFarewells");
}

MmsFarewells::~MmsFarewells()
{
    {
        std::unique_lock lock(_mutex);
        _allSaid.wait_for(lock, std::chrono::milliseconds(_limit), [this] { return _pending == 0; });
        if (!_home)
            return;
        _isOver = true;
        QMetaObject::invokeMethod(_home, &Home::takeOver, Qt::QueuedConnection);
    }
    _thread.wait();
}

/// Hands one over to the thread, which begins with the first; false when there are too many.
bool MmsFarewells::begin(Farewell const& farewell)
{
    std::lock_guard const lock(_mutex);
    if (_pending >= maximumPending) {
        LOG_WARNING("%d servers are being taken leave of already", _pending);
        return false;
    }
    if (!_home) {
        _home = new Home(*this);
        _home->moveToThread(&_thread);
        QObject::connect(&_thread, &QThread::finished, _home, &QObject::deleteLater);
        _thread.start();
    }
    ++_pending;
    _toBegin.append(farewell);
    if (_toBegin.size() == 1)
        QMetaObject::invokeMethod(_home, &Home::takeOver, Qt::QueuedConnection);
    return true;
}

void MmsFarewells::end()
{
    std::lock_guard const lock(_mutex);
    if (--_pending == 0)
        _allSaid.notify_all();
}

void MmsFarewells::say(QUrl const& url, QList<Words> const& words)
{
    begin({.url = url, .words = words});
}

void MmsFarewells::letGo(int descriptor)
{
    int const own = ::dup(descriptor);
    if (own >= 0 && !begin({.descriptor = own}))
        ::close(own);
}
