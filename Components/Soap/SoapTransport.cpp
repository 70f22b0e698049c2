#include "SoapTransport.h"

#include "SoapMessage.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslError>

#include <utility>

namespace
{
constexpr int wholeTimeouts = 4; // A whole answer may take this many times as long as silence in it.
}

SoapTransport::SoapTransport(SoapService const& service, QObject* parent) : QObject(parent), _service(service)
{
    _limit.setSingleShot(true);
    connect(&_limit, &QTimer::timeout, this, [this] { giveUp(tr("The service did not answer in time.")); });
}

SoapTransport::~SoapTransport()
{
    cancel();
}

void SoapTransport::submit(SoapMessage const& message, QString const& path)
{
    std::optional<QByteArray> const document = message.toXml();
    QNetworkAccessManager* const manager = accessManager();
    _failure = _service.refusal();
    if (_failure.isEmpty() && !document)
        _failure = tr("What you entered has a character that cannot be sent.");
    if (_failure.isEmpty() && !manager)
        _failure = tr("The program is closing.");
    if (!_failure.isEmpty()) {
        _limit.start(0);
        return;
    }
    watch(manager->post(makeRequest(message.action(), path), *document), message.method());
    _limit.start(_service.responseTimeout * wholeTimeouts);
}

QNetworkAccessManager* SoapTransport::accessManager()
{
    if (!_service.isThisMachine())
        return _service.networkAccessManager;
    if (!_direct) {
        _direct = std::make_unique<QNetworkAccessManager>();
        _direct->setProxy(QNetworkProxy::NoProxy);
    }
    return _direct.get();
}

QNetworkRequest SoapTransport::makeRequest(QString const& action, QString const& path) const
{
    QNetworkRequest request(_service.url(path));
    request.setHeader(QNetworkRequest::ContentTypeHeader, "text/xml; charset=utf-8");
    request.setRawHeader("SOAPAction", '"' + action.toUtf8() + '"');
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setTransferTimeout(_service.responseTimeout);
    return request;
}

void SoapTransport::watch(QNetworkReply* reply, QString const& method)
{
    _networkReply = reply;
    connect(reply, &QNetworkReply::finished, this, [this, method] { onFinished(method); });
    connect(reply, &QNetworkReply::sslErrors, this, &SoapTransport::onSslErrors);
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] {
        if (reply->bytesAvailable() > maximumBytes)
            giveUp(tr("The answer of the service is too long."));
    });
}

void SoapTransport::cancel()
{
    _limit.stop();
    _failure.clear();
    QNetworkReply* const reply = std::exchange(_networkReply, nullptr).data();
    if (!reply)
        return;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

/// Ends the call that is under way, or one that was never made.
void SoapTransport::giveUp(QString const& reason)
{
    QString const failure = _failure.isEmpty() ? reason : _failure;
    cancel();
    _reply = SoapReply::failure(failure);
    emit responseReady(this);
}

/// Qt ends the connection after this.
void SoapTransport::onSslErrors(QList<QSslError> const& errors)
{
    QStringList texts;
    for (QSslError const& error : errors)
        texts.append(error.errorString());
    texts.removeDuplicates();
    _failure = tr("The service at %1 cannot prove who it is: %2").arg(_service.host, texts.join(' '));
}

void SoapTransport::onFinished(QString const& method)
{
    _limit.stop();
    QNetworkReply* const reply = std::exchange(_networkReply, nullptr).data();
    reply->deleteLater();
    // A fault comes with status 500, which Qt takes for an error.
    int const status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    bool const isWhole =
        reply->error() == QNetworkReply::NoError || reply->error() > QNetworkReply::ProxyTimeoutError;
    _reply = status != 0 && isWhole ? SoapReply::read(reply->readAll(), method) : SoapReply();
    if (!_reply.isEnvelope() && (reply->error() != QNetworkReply::NoError || status != 200))
        _reply = SoapReply::failure(failureOf(*reply));
    emit responseReady(this);
}

QString SoapTransport::failureOf(QNetworkReply& reply) const
{
    if (!_failure.isEmpty())
        return _failure;
    if (reply.error() == QNetworkReply::OperationCanceledError) // Silence for the time of the request's time-out.
        return tr("The service did not answer in time.");
    int const status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status > 200)
        return tr("The service answered with the status %1.").arg(status);
    return reply.errorString();
}
