#include "SoapUserChannels.h"

SoapUserChannels::SoapUserChannels(SoapService const& service, QObject* parent) : SoapRequest(service, parent)
{
    connect(this, &SoapRequest::requestCompleted, this, &SoapUserChannels::onRequestCompleted);
}

void SoapUserChannels::submit(char const* method, Form const& arguments)
{
    SoapMessage message(method);
    for (auto const& [name, text] : arguments)
        message.addArgument(name, text);
    submitRequest(message);
}

void SoapUserChannels::getUserChannels(QString const& query, int page, QString const& nodeId)
{
    submit("GetUserStreams", {{"Query", query}, {"Page", QString::number(page)}, {"node_identifier", nodeId}});
}

void SoapUserChannels::getTopUserChannels(QString const& nodeId)
{
    submit("GetTopUserStreams", {{"node_identifier", nodeId}});
}

void SoapUserChannels::addUserChannel(QString const& nodeId, QString const& userChannelId)
{
    submit("AddUserStream", {{"node_identifier", nodeId}, {"user_stream_id", userChannelId}});
}

void SoapUserChannels::removeUserChannel(QString const& nodeId, QString const& userChannelId)
{
    submit("DestroyUserStream", {{"node_identifier", nodeId}, {"user_stream_id", userChannelId}});
}

void SoapUserChannels::removePartnerChannel(QString const& nodeId, QString const& channelId)
{
    submit("TogglePartnerChannel", {{"node_identifier", nodeId}, {"channel_id", channelId}});
}

void SoapUserChannels::createUserChannel(Form const& form)
{
    submit("CreateUserStream", form);
}

void SoapUserChannels::onRequestCompleted(bool ok, QString const& text)
{
    SoapValue const value = returnValue();
    int const total = value.member("total_entries").toInt();
    QString const called = method();
    if (!ok)
        emit requestFailed(called, text);
    else if (called == "GetUserStreams")
        emit getUserChannelsCompleted(total, channels());
    else if (called == "GetTopUserStreams")
        emit getTopUserChannelsCompleted(total, channels());
    else if (called == "AddUserStream")
        emit addUserChannelCompleted(SoapUserChannel::read(value));
    else if (called == "DestroyUserStream")
        emit removeUserChannelCompleted(value.toBool());
    else if (called == "TogglePartnerChannel")
        emit removePartnerChannelCompleted(value.toBool());
    else if (called == "CreateUserStream")
        emit createUserChannelCompleted(SoapUserChannel::read(value));
}

QList<SoapUserChannel> SoapUserChannels::channels() const
{
    QList<SoapUserChannel> channels;
    for (SoapValue const& stream : returnValue().member("user_streams").members())
        channels.append(SoapUserChannel::read(stream));
    return channels;
}
