#include "SoapSignup.h"

#include <QXmlStreamReader>

SoapSignup::SoapSignup(SoapService const& service, QObject* parent) : SoapRequest(service, parent)
{
    connect(this, &SoapRequest::requestCompleted, this, &SoapSignup::onRequestCompleted);
}

void SoapSignup::signup(QString const& userName, QString const& password, bool emailAllowed)
{
    SoapMessage message("Register");
    message.addArgument("user_name", userName);
    message.addArgument("password", password);
    message.addArgument("email_allowed", emailAllowed ? "true" : "false");
    submitRequest(message);
}

QString SoapSignup::errorsIn(QString const& reply)
{
    QXmlStreamReader reader(reply);
    QStringList errors;
    bool isMade = false;
    while (!reader.atEnd()) {
        QXmlStreamReader::TokenType const token = reader.readNext();
        if (token == QXmlStreamReader::DTD)
            return tr("Error parsing response");
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("error"))
            errors.append(reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed());
        else if (reader.name() == QLatin1String("response"))
            isMade = true;
    }
    if (reader.hasError() || (errors.isEmpty() && !isMade))
        return tr("Error parsing response");
    errors.removeAll(QString());
    if (errors.isEmpty() && !isMade)
        return tr("The service made no account and does not say why.");
    return errors.join('\n');
}

void SoapSignup::onRequestCompleted(bool ok, QString const& text)
{
    QString const errors = ok ? errorsIn(text) : text;
    emit signupCompleted(errors.isEmpty(), errors);
}
