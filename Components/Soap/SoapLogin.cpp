#include "SoapLogin.h"

#include "LocalhostInfo.h"

#include <QUrl>

SoapLogin::SoapLogin(SoapService const& service, QObject* parent) : SoapRequest(service, parent)
{
    connect(this, &SoapRequest::requestCompleted, this, &SoapLogin::onRequestCompleted);
}

void SoapLogin::login(Credentials const& credentials)
{
    if (isWaitingForResponse())
        return;
    SoapMessage message("LoginWithErrorHandling");
    message.addArgument("login", QString::fromLatin1(composeLogin(credentials).toUtf8().toBase64()));
    submitRequest(message);
}

QString SoapLogin::composeLogin(Credentials const& credentials)
{
    QStringList fields;
    for (QString const& field : {credentials.email, credentials.password, credentials.nodeId, credentials.version})
        fields.append(QString::fromLatin1(QUrl::toPercentEncoding(field)));
    fields.append(credentials.isAutomatic ? "1-Linux" : "0-Linux");
    fields.append(LocalhostInfo().architecture().replace(' ', '_'));
    return fields.join(' ');
}

void SoapLogin::onRequestCompleted(bool ok, QString const& text)
{
    SoapLoginResponse response = SoapLoginResponse::read(returnValue());
    if (!ok)
        response.message = text;
    if (ok && response.isUpdateOffered())
        emit updateAvailable(response);
    emit loginCompleted(ok, response);
}
