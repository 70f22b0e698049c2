#include "SoapUserChannel.h"

#include "SoapValue.h"

SoapUserChannel SoapUserChannel::read(SoapValue const& value)
{
    auto const text = [&](char const* key) { return value.member(key).toString(); };
    auto const flag = [&](char const* key) { return value.member(key).toBool(); };
    SoapUserChannel channel;
    channel.uri = text("uri");
    channel.name = text("name");
    channel.id = text("id");
    channel.rootId = text("root_id");
    channel.logoUrl = text("logo_url");
    channel.hasAlerts = flag("has_alerts");
    channel.hasChat = flag("has_chat");
    channel.showBanners = flag("show_banners");
    channel.chatroomName = text("chatroom_name");
    channel.alertsTopic = text("alerts_topic");
    channel.channelType = text("channel_type");
    channel.autobuzzEnabled = flag("autobuzz_enabled");
    channel.repeatedAutobuzz = flag("repeated_autobuzz");
    channel.autobuzzInterval = value.member("autobuzz_interval").toInt();
    channel.ratingAverage = text("rating_average").toDouble();
    channel.description = text("description");
    return channel;
}
