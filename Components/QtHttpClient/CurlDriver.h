#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <curl/curl.h>
#include <memory>
#include <unordered_map>

class CurlTransfer;
class Logger;
class QSocketNotifier;

/// Runs all transfers of one thread on one curl multi handle, driven by that thread's event loop; they share its
/// connections, which stay open for the next request.
///
/// curl's callbacks only collect: what came is delivered once curl has returned. So a receiver may do whatever it
/// likes, abort or delete transfers too.
class CurlDriver : public QObject
{
    Q_OBJECT

public:
    /// Idle connections kept for later requests.
    static constexpr long maximumConnections = 16;

    /// The driver of the calling thread, made on first use and closed at the end of the thread.
    static std::shared_ptr<CurlDriver> ofThisThread();

    CurlDriver();
    ~CurlDriver() override;

    /// Begins a transfer. Its end comes as CurlTransfer::complete(). Whether it could begin.
    bool add(CurlTransfer* transfer);

    /// Stops a transfer at once, in any state; nothing more is heard of it.
    void remove(CurlTransfer* transfer);

    /// Goes on with a transfer that paused because nobody read.
    void resume(CurlTransfer* transfer);

    /// For curl's callbacks: the transfer has something to deliver.
    void markPending(CurlTransfer* transfer);

private:
    struct Watch;
    class ThreadSlot;

    static int onSocketNeeded(CURL* handle, curl_socket_t socket, int what, void* driver, void* watch);
    static int onTimerNeeded(CURLM* multi, long ms, void* driver);
    void watch(curl_socket_t socket, int what);
    QSocketNotifier* makeNotifier(curl_socket_t socket, bool forWriting);
    void act(curl_socket_t socket, int events);
    void collectCompleted();
    void deliver();
    void shutDown();

    static Logger* log;

    CURLM* _multi = nullptr; ///< Null after shutDown().
    QTimer _timer;
    std::unordered_map<curl_socket_t, Watch> _watches;
    QList<CurlTransfer*> _transfers;
    QList<QPointer<CurlTransfer>> _pending;
};
