#include "WebServer.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"
#include "Timer.h"
#include "TimerFactory.h"
#include "WebConnection.h"
#include "WebListener.h"

#include <QHttpServerRequest>
#include <QPointer>
#include <QRegularExpression>
#include <QUrl>

#include <QtHttpServer/QAbstractHttpServer>

Logger* WebServer::log = LoggerManager::logger();

namespace
{
constexpr int msBetweenChecks = 1000;
constexpr int msUntilNextTry = 500; ///< To have the port back.

WebRequest::Method methodOf(QHttpServerRequest const& request)
{
    switch (request.method()) {
    case QHttpServerRequest::Method::Get:
        return WebRequest::Method::Get;
    case QHttpServerRequest::Method::Head:
        return WebRequest::Method::Head;
    case QHttpServerRequest::Method::Post:
        return WebRequest::Method::Post;
    default:
        return WebRequest::Method::Other;
    }
}

/// The Host line goes into addresses: nothing that is none.
QString hostOf(QByteArray const& line)
{
    static QRegularExpression const form(
        QStringLiteral(R"(^([A-Za-z0-9.-]{1,253}|\[[0-9A-Fa-f:.]{2,45}\])(:\d+)?$)"));
    QRegularExpressionMatch const match = form.match(QString::fromLatin1(line.left(300)));
    return match.hasMatch() ? match.captured(1) : QStringLiteral("127.0.0.1");
}

WebRequest translated(QHttpServerRequest const& from)
{
    WebRequest to;
    to.method = methodOf(from);
    to.path = from.url().path(QUrl::FullyDecoded);
    to.query = from.query();
    to.contentType = from.value("Content-Type");
    to.ifModifiedSince = from.value("If-Modified-Since");
    to.body = from.body();
    to.peer = from.remoteAddress().toString();
    to.host = hostOf(from.value("Host"));
    return to;
}
} // namespace

/// The interface of the module as it is in Qt 6.4; that of later versions gives a responder in place of the socket.
class WebServer::Module : public QAbstractHttpServer
{
public:
    explicit Module(WebServer& server) : _server(server) {}

private:
    bool handleRequest(QHttpServerRequest const& request, QTcpSocket* socket) override
    {
        WebConnection* const connection = WebConnection::of(socket);
        if (!connection || !connection->begin(_server._tickCounter.msSinceEpoch()))
            return true;
        WebRequest translatedRequest = translated(request);
        translatedRequest.port = socket->localPort();
        translatedRequest.isTls = _server._isTls;
        bool const isPlain = request.value("Transfer-Encoding").isEmpty();
        if (!isPlain || translatedRequest.body.size() > WebConnection::maximumBody)
            connection->answer(WebAnswer::text(isPlain ? 413 : 411, QStringLiteral("This cannot be taken.")), {},
                               true, false);
        else
            _server.handle(translatedRequest, connection, request.value("Connection").toLower() != "close");
        return true;
    }

    void missingHandler(QHttpServerRequest const&, QTcpSocket*) override {}

    WebServer& _server;
};

WebServer::WebServer(Site const& site, WebFaultPlan& faults, TickCounter& tickCounter, TimerFactory& timerFactory)
    : _site(site), _faults(faults), _tickCounter(tickCounter), _timerFactory(timerFactory),
      _timer(timerFactory.createTimer()), _later(timerFactory), _module(std::make_unique<Module>(*this)),
      _listener(new WebListener(tickCounter))
{
    connect(_timer, &Timer::timeout, this, &WebServer::watchTime);
}

WebServer::~WebServer()
{
    _timerFactory.disposeTimer(_timer);
    _listener->drop();
    if (_port == 0)
        delete _listener;
}

bool WebServer::listen(QHostAddress const& address, quint16 port, std::optional<WebCertificate> const& certificate)
{
    if (certificate)
        setCertificate(*certificate);
    if (!_listener->listen(address, port))
        return false;
    _module->bind(_listener);
    _address = _listener->serverAddress();
    _port = _listener->serverPort();
    _timer->start(msBetweenChecks);
    LOG_INFO("Web on %s port %u%s", qUtf8Printable(_address.toString()), _port, certificate ? ", encrypted" : "");
    return true;
}

QString WebServer::errorText() const
{
    return _listener->errorString();
}

quint16 WebServer::port() const
{
    return _port;
}

int WebServer::connectionCount() const
{
    return _listener->connectionCount();
}

void WebServer::setCertificate(WebCertificate const& certificate)
{
    _isTls = true;
    _listener->setTls(certificate.configuration);
}

int WebServer::drop()
{
    return _listener->drop();
}

void WebServer::goAway(int ms)
{
    LOG_INFO("Web: gone for %d ms, as asked for", ms);
    _listener->close();
    _listener->drop();
    _later.clear();
    _later.add(ms, [this] { comeBack(); });
}

void WebServer::comeBack()
{
    if (_listener->listen(_address, _port)) {
        LOG_INFO("Web: back on port %u", _port);
        return;
    }
    LOG_WARNING("Web: port %u is taken: %s", _port, qUtf8Printable(_listener->errorString()));
    _later.add(msUntilNextTry, [this] { comeBack(); });
}

void WebServer::watchTime()
{
    _listener->check(_tickCounter.msSinceEpoch());
}

void WebServer::handle(WebRequest const& request, WebConnection* connection, bool keepAlive)
{
    using Kind = WebFault::Kind;
    LOG_INFO("%s: %s %s", qUtf8Printable(request.peer), request.isRead() ? "reads" : "posts to",
             qUtf8Printable(request.path.left(200)));
    std::optional<WebFault> const fault = _faults.take(request.path, _site.methodOf(request));
    if (fault)
        LOG_INFO("%s: fault %s", qUtf8Printable(request.peer), qUtf8Printable(fault->toText()));
    bool const withBody = request.method != WebRequest::Method::Head;
    Reply const reply = [=, to = QPointer(connection)](WebAnswer const& answer) {
        if (to)
            to->answer(answer, fault, withBody, keepAlive);
    };
    if (!fault)
        return _site.handle(request, reply);
    switch (fault->kind) {
    case Kind::Silent:
        return connection->silence();
    case Kind::Status:
        return reply(WebAnswer::text(fault->number, QStringLiteral("This goes wrong, as asked for.")));
    case Kind::SoapFault:
        return reply(
            _site.soapFault(fault->text.isEmpty() ? QStringLiteral("This goes wrong, as asked for.") : fault->text));
    case Kind::Slow:
        return _later.add(fault->number, [this, request, reply] { _site.handle(request, reply); });
    default:
        return _site.handle(request, reply);
    }
}
