#include "SoapMessages.h"

SoapMessages::SoapMessages(SoapService const& service, QObject* parent) : SoapRequest(service, parent)
{
    connect(this, &SoapRequest::requestCompleted, this, &SoapMessages::onRequestCompleted);
}

void SoapMessages::checkForMessages(QString const& nodeId)
{
    SoapMessage message("GetMessages");
    message.addArgument("node_identifier", nodeId);
    submitRequest(message);
}

void SoapMessages::onRequestCompleted(bool ok, QString const& text)
{
    if (ok)
        emit messagesReceived(returnValue().member("ttl").toInt(), returnValue().member("messages").texts());
    else
        emit checkFailed(text);
}
