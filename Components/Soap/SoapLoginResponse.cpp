#include "SoapLoginResponse.h"

#include "SoapValue.h"

SoapLoginResponse SoapLoginResponse::read(SoapValue const& value)
{
    SoapLoginResponse response;
    auto const text = [&](char const* key, QString& field) { field = value.member(key).toString(); };
    auto const flag = [&](char const* key, bool& field) { field = value.member(key).toBool(field); };
    auto const number = [&](char const* key, int& field) { field = value.member(key).toInt(field); };
    flag("authenticated", response.authenticated);
    flag("behind_proxy", response.behindProxy);
    text("message", response.message);
    number("response_code", response.responseCode);
    text("update_md5", response.updateMd5);
    text("update_message", response.updateMessage);
    text("update_url", response.updateUrl);
    text("update_version", response.updateVersion);
    text("user_id", response.userId);
    flag("show_banners", response.showBanners);
    text("banners_base_url", response.bannersBaseUrl);
    number("banner_refresh_rate", response.bannerRefreshRate);
    text("banner_sizes", response.bannerSizes);
    flag("chat_allowed", response.chatAllowed);
    flag("show_sponsorship", response.showSponsorship);
    flag("chat_tethering", response.chatTethering);
    number("multiview_channels", response.multiviewChannels);
    flag("video_postprocessing", response.videoPostprocessing);
    text("buy_premium_message", response.buyPremiumMessage);
    text("tpck", response.tpck);
    text("tck", response.tck);
    text("tcs", response.tcs);
    for (SoapValue const& group : value.member("groups").members())
        response.groups.append({group.member("id").toInt(), group.member("name").toString(),
                                group.member("description").toString(), group.member("abbr").toString(),
                                group.member("variables").toString()});
    for (SoapValue const& role : value.member("roles").members())
        response.roles.append({role.member("id").toInt(), role.member("title").toString(),
                               role.member("abbr").toString(), role.member("variables").toString()});
    return response;
}
