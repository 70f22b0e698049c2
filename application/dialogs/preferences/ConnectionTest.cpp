#include "ConnectionTest.h"

ConnectionTest::ConnectionTest(TimerFactory* timers, QObject* parent) : QObject(parent), _network(timers)
{
    _manager.setTransferTimeout(limit);
    _manager.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    connect(&_network, &NetworkTest::finished, this, &ConnectionTest::onNetwork);
}

void ConnectionTest::start(Uri const& service, QNetworkProxy const& proxy)
{
    cancel();
    _service = QUrl(service.toString());
    _proxy = proxy;
    _isRunning = true;
    if (proxy.type() == QNetworkProxy::NoProxy)
        _proxy.setHostName({});
    bool const isDirect = _proxy.hostName().isEmpty();
    if (std::optional<bool> const known = _network.start(isDirect ? _service.host() : _proxy.hostName()))
        onNetwork(*known);
}

void ConnectionTest::cancel()
{
    _isRunning = false;
    _network.cancel();
    if (QNetworkReply* const reply = _reply) {
        _reply = nullptr;
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

void ConnectionTest::onNetwork(bool isAvailable)
{
    if (!_isRunning)
        return;
    if (!isAvailable)
        return finish(
            false, _proxy.hostName().isEmpty()
                       ? tr("This computer finds no way to %1. Is it connected to a network?").arg(_service.host())
                       : tr("This computer finds no way to the proxy %1. Is its name right?").arg(_proxy.hostName()));
    _manager.setProxy(_proxy);
    _time.start();
    _reply = _manager.get(QNetworkRequest(_service));
    // What the answer says is not read: that there is one is enough.
    connect(_reply, &QNetworkReply::metaDataChanged, this, &ConnectionTest::onAnswer);
    connect(_reply, &QNetworkReply::finished, this, &ConnectionTest::onAnswer);
}

void ConnectionTest::onAnswer()
{
    if (!_isRunning || !_reply)
        return;
    int const status = _reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    QUrl const elsewhere = _reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    constexpr int proxyRefuses = 407;
    constexpr int badGateway = 502;
    constexpr int gatewayTimeout = 504;
    if (status == 0)
        finish(false, wordsFor(_reply->error()));
    else if (status == proxyRefuses)
        finish(false, wordsFor(QNetworkReply::ProxyAuthenticationRequiredError));
    else if (status == badGateway || status == gatewayTimeout)
        finish(
            false,
            tr("Something on the way answers in place of %1: it can't be reached from there.").arg(_service.host()));
    else if (!elsewhere.host().isEmpty() && elsewhere.host() != _service.host())
        finish(false, tr("The network answers with a page of %1. Perhaps it wants you to sign in there first.")
                          .arg(elsewhere.host()));
    else
        finish(true, tr("%1 answered within %2 ms.").arg(_service.host()).arg(_time.elapsed()));
}

void ConnectionTest::finish(bool isReachable, QString const& words)
{
    cancel();
    emit finished(isReachable, words);
}

QString ConnectionTest::wordsFor(QNetworkReply::NetworkError error) const
{
    bool const isDirect = _proxy.hostName().isEmpty();
    if (error == QNetworkReply::ConnectionRefusedError && !isDirect)
        error = QNetworkReply::ProxyConnectionRefusedError; // Qt tells the two apart with some kinds of proxy only.
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return tr("%1 accepts no connection.").arg(_service.host());
    case QNetworkReply::HostNotFoundError:
        return tr("There is no machine called %1.").arg(_service.host());
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
        return tr("%1 did not answer within %n second(s).", nullptr, limit / 1000).arg(_service.host());
    case QNetworkReply::SslHandshakeFailedError:
        return tr("%1 could not prove who it is: its certificate is not valid.").arg(_service.host());
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
        return tr("The proxy %1 accepts no connection. Is the port right?").arg(_proxy.hostName());
    case QNetworkReply::ProxyNotFoundError:
        return tr("There is no proxy called %1.").arg(_proxy.hostName());
    case QNetworkReply::ProxyTimeoutError:
        return tr("The proxy %1 did not answer in time.").arg(_proxy.hostName());
    case QNetworkReply::ProxyAuthenticationRequiredError:
        return tr("The proxy %1 wants a user name and a password, or does not accept these.").arg(_proxy.hostName());
    default:
        return tr("%1 could not be reached: %2").arg(_service.host(), _reply ? _reply->errorString() : QString());
    }
}
