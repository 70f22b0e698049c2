#include "CurlDriver.h"

#include "CurlTransfer.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QSocketNotifier>
#include <QThreadStorage>

#include <algorithm>
#include <csignal>
#include <limits>
#include <utility>

Logger* CurlDriver::log = LoggerManager::logger();

namespace
{

/// A notifier may be dropped while it notifies.
struct DeleteLater {
    void operator()(QSocketNotifier* notifier) const
    {
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
};

void initialiseCurlOnce()
{
    static bool const initialised = [] {
        // curl leaves SIGPIPE alone under CURLOPT_NOSIGNAL, and TLS writes may raise it.
        if (std::signal(SIGPIPE, SIG_IGN) == SIG_ERR)
            return false;
        return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    }();
    Q_UNUSED(initialised)
}

} // namespace

struct CurlDriver::Watch {
    std::unique_ptr<QSocketNotifier, DeleteLater> forReading;
    std::unique_ptr<QSocketNotifier, DeleteLater> forWriting;
};

/// Closes the driver while its thread still runs, whoever holds on to it.
class CurlDriver::ThreadSlot
{
public:
    ThreadSlot() : driver(std::make_shared<CurlDriver>()) {}
    ~ThreadSlot() { driver->shutDown(); }
    ThreadSlot(ThreadSlot const&) = delete;
    ThreadSlot& operator=(ThreadSlot const&) = delete;

    std::shared_ptr<CurlDriver> const driver;
};

std::shared_ptr<CurlDriver> CurlDriver::ofThisThread()
{
    static QThreadStorage<ThreadSlot*> slots_;
    if (!slots_.hasLocalData())
        slots_.setLocalData(new ThreadSlot);
    return slots_.localData()->driver;
}

CurlDriver::CurlDriver()
{
    initialiseCurlOnce();
    _multi = curl_multi_init();
    curl_multi_setopt(_multi, CURLMOPT_SOCKETFUNCTION, &CurlDriver::onSocketNeeded);
    curl_multi_setopt(_multi, CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(_multi, CURLMOPT_TIMERFUNCTION, &CurlDriver::onTimerNeeded);
    curl_multi_setopt(_multi, CURLMOPT_TIMERDATA, this);
    curl_multi_setopt(_multi, CURLMOPT_MAXCONNECTS, maximumConnections);
    _timer.setSingleShot(true);
    _timer.setTimerType(Qt::PreciseTimer);
    connect(&_timer, &QTimer::timeout, this, [this] { act(CURL_SOCKET_TIMEOUT, 0); });
}

CurlDriver::~CurlDriver()
{
    shutDown();
}

void CurlDriver::shutDown()
{
    if (!_multi)
        return;
    for (CurlTransfer* const transfer : std::as_const(_transfers))
        curl_multi_remove_handle(_multi, transfer->handle());
    _transfers.clear();
    _pending.clear();
    curl_multi_cleanup(_multi);
    _multi = nullptr;
    _timer.stop();
    _watches.clear();
    // The thread's loop has ended, so nothing would delete them later.
    qDeleteAll(findChildren<QSocketNotifier*>());
}

bool CurlDriver::add(CurlTransfer* transfer)
{
    if (!_multi || curl_multi_add_handle(_multi, transfer->handle()) != CURLM_OK)
        return false;
    _transfers.append(transfer);
    return true;
}

void CurlDriver::remove(CurlTransfer* transfer)
{
    if (_transfers.removeOne(transfer))
        curl_multi_remove_handle(_multi, transfer->handle());
}

void CurlDriver::resume(CurlTransfer* transfer)
{
    if (!_transfers.contains(transfer))
        return;
    // This may call the transfer's callbacks, but the reader must not be called from within its own reading.
    if (CURLcode const code = curl_easy_pause(transfer->handle(), CURLPAUSE_CONT); code != CURLE_OK) {
        remove(transfer);
        transfer->complete(code);
        markPending(transfer);
    }
    QMetaObject::invokeMethod(this, &CurlDriver::deliver, Qt::QueuedConnection);
}

void CurlDriver::markPending(CurlTransfer* transfer)
{
    if (!_pending.contains(transfer))
        _pending.append(transfer);
}

int CurlDriver::onSocketNeeded(CURL*, curl_socket_t socket, int what, void* driver, void*)
{
    static_cast<CurlDriver*>(driver)->watch(socket, what);
    return 0;
}

int CurlDriver::onTimerNeeded(CURLM*, long ms, void* driver)
{
    QTimer& timer = static_cast<CurlDriver*>(driver)->_timer;
    if (ms < 0)
        timer.stop();
    else
        timer.start(static_cast<int>(std::min<long>(ms, std::numeric_limits<int>::max())));
    return 0;
}

void CurlDriver::watch(curl_socket_t socket, int what)
{
    if (what == CURL_POLL_REMOVE) {
        _watches.erase(socket);
        return;
    }
    Watch& watch = _watches[socket];
    auto const set = [&](auto& notifier, bool wanted, bool forWriting) {
        if (wanted && !notifier)
            notifier.reset(makeNotifier(socket, forWriting));
        if (notifier)
            notifier->setEnabled(wanted);
    };
    set(watch.forReading, what == CURL_POLL_IN || what == CURL_POLL_INOUT, false);
    set(watch.forWriting, what == CURL_POLL_OUT || what == CURL_POLL_INOUT, true);
}

QSocketNotifier* CurlDriver::makeNotifier(curl_socket_t socket, bool forWriting)
{
    auto* const notifier =
        new QSocketNotifier(socket, forWriting ? QSocketNotifier::Write : QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this,
            [this, socket, forWriting] { act(socket, forWriting ? CURL_CSELECT_OUT : CURL_CSELECT_IN); });
    return notifier;
}

void CurlDriver::act(curl_socket_t socket, int events)
{
    int running = 0;
    if (CURLMcode const code = curl_multi_socket_action(_multi, socket, events, &running); code != CURLM_OK)
        LOG_WARNING("act(): %s", curl_multi_strerror(code));
    collectCompleted();
    deliver();
}

void CurlDriver::collectCompleted()
{
    int left = 0;
    while (CURLMsg const* const message = curl_multi_info_read(_multi, &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        void* owner = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &owner);
        CurlTransfer* const transfer = static_cast<CurlTransfer*>(owner);
        // The message does not outlive the removal, and the transfer asks for its socket before that.
        transfer->complete(message->data.result);
        remove(transfer);
        markPending(transfer);
    }
}

void CurlDriver::deliver()
{
    // A receiver may run an event loop of its own, and with it this loop: nothing is kept here between two of them.
    while (!_pending.isEmpty())
        if (QPointer<CurlTransfer> const transfer = _pending.takeFirst())
            transfer->deliver();
}
