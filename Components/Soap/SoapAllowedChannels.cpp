#include "SoapAllowedChannels.h"

SoapAllowedChannels::SoapAllowedChannels(SoapService const& service, QObject* parent) : SoapRequest(service, parent)
{
    connect(this, &SoapRequest::requestCompleted, this, &SoapAllowedChannels::onRequestCompleted);
}

void SoapAllowedChannels::getAllowedChannels(QString const& nodeId)
{
    SoapMessage message("GetAllowedChannels");
    message.addArgument("node_identifier", nodeId);
    submitRequest(message);
}

void SoapAllowedChannels::onRequestCompleted(bool ok, QString const& text)
{
    SoapValue const value = returnValue();
    if (!ok)
        emit allowedChannelsError(text);
    else if (!value.member("channels").isValid())
        emit allowedChannelsError(tr("The answer of the service has no list of channels."));
    else
        emit allowedChannelsReceived(value.member("confidence_factor").toString(),
                                     value.member("country_id").toString(), value.member("ip_address").toString(),
                                     value.member("default_channel").toString(), value.member("channels").texts());
}
