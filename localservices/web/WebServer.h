#pragma once

#include "DelayedCalls.h"
#include "WebCertificate.h"
#include "WebFault.h"
#include "WebRequest.h"

#include <QHostAddress>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class Logger;
class TickCounter;
class Timer;
class TimerFactory;
class WebConnection;
class WebListener;

/// HTTP, on one port in the clear and on another one encrypted, by the server module of Qt, which only this class
/// knows: it reads the requests, one at a time on each connection; what they may take is bounded by WebConnection,
/// what goes wrong on purpose is in the WebFaultPlan. Lives on one thread.
class WebServer : public QObject
{
    Q_OBJECT

public:
    /// Answers a request, at once or later; once. It may be called when the client has gone.
    using Reply = std::function<void(WebAnswer const& answer)>;

    /// What answers requests, and what tells the method of SOAP that one calls, for the faults.
    struct Site {
        std::function<void(WebRequest const& request, Reply const& reply)> handle;
        std::function<QString(WebRequest const& request)> methodOf;
        std::function<WebAnswer(QString const& text)> soapFault;
    };

    /// Clock, factory and plan are borrowed.
    WebServer(Site const& site, WebFaultPlan& faults, TickCounter& tickCounter, TimerFactory& timerFactory);
    ~WebServer() override;

    /// Begins to take clients on this port, a free one when it is 0, encrypted with a certificate. False when the
    /// port cannot be had; errorText() tells why.
    bool listen(QHostAddress const& address, quint16 port, std::optional<WebCertificate> const& certificate = {});
    QString errorText() const;

    QHostAddress address() const { return _address; }
    quint16 port() const;
    int connectionCount() const;

    /// For clients that come from now on.
    void setCertificate(WebCertificate const& certificate);

    /// Ends all connections; answers how many.
    int drop();

    /// As if it had never been: connections end and none are taken for so long.
    void goAway(int ms);

private:
    class Module;

    void comeBack();
    void handle(WebRequest const& request, WebConnection* connection, bool keepAlive);
    void watchTime();

    Site const _site;
    WebFaultPlan& _faults;
    TickCounter& _tickCounter;
    TimerFactory& _timerFactory;
    Timer* _timer;
    QHostAddress _address;
    quint16 _port = 0;
    bool _isTls = false;
    DelayedCalls _later; ///< Slow answers, and its return.
    std::unique_ptr<Module> _module;
    QPointer<WebListener> const _listener; ///< The module's own, once it listens.

    static Logger* log;
};
