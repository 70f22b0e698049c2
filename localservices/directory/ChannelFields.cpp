#include "ChannelFields.h"

#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <array>

std::span<ChannelField const> ChannelField::all()
{
    using enum Kind;
    static constexpr std::array<ChannelField, 22> fields = {{
        {"name", "name", ""},
        {"description", "description", ""},
        {"channel_type", "channel-type", "TV"},
        {"website_url", "website-url", "", Address},
        {"link_text", "link-text", ""},
        {"logo_url", nullptr, "", Address}, // The document always has one; see ChannelDocument.
        {"has_alerts", "has-alerts", "false", Truth},
        {"has_chat", "has-chat", "true", Truth},
        {"show_banners", "show-banners", "true", Truth},
        {"chatroom_name", "chatroom-name", ""},
        {"alerts_topic", "alerts-topic", ""},
        {"autobuzz_enabled", "autobuzz-enabled", "false", Truth},
        {"repeated_autobuzz", "repeated-autobuzz", "false", Truth},
        {"autobuzz_interval", "autobuzz-interval", "120000", Number},
        {"media_profile", "media-profile", ""},
        {"provider", "provider", ""},
        {"key", "key", ""},
        {"profile", "profile", ""},
        {"fingerprint", "fingerprint", ""},
        {"unavailable_reason", "unavailable-reason", ""},
        {"purchase_url", "purchase-url", "", Address},
        {"rating_average", nullptr, "0", Number},
    }};
    return fields;
}

ChannelField const* ChannelField::find(QString const& name)
{
    auto const found = std::find_if(all().begin(), all().end(),
                                    [&](ChannelField const& field) { return name == QLatin1String(field.name); });
    return found == all().end() ? nullptr : &*found;
}

QString ChannelField::faultOf(QString const& text) const
{
    QString const what = QString::fromLatin1(name);
    bool isNumber = false;
    if (text.size() > longest)
        return QStringLiteral("%1 is longer than %2 characters").arg(what).arg(longest);
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; }))
        return QStringLiteral("%1 has a control character").arg(what);
    if (kind == Kind::Truth && text != "true" && text != "false")
        return QStringLiteral("%1 is \"true\" or \"false\"").arg(what);
    if (kind == Kind::Number && (text.toDouble(&isNumber) < 0 || !isNumber))
        return QStringLiteral("%1 is a number").arg(what);
    // "{web}" and the like stand for a service of this machine.
    QStringList const schemes = {QStringLiteral("http"), QStringLiteral("https")};
    if (kind == Kind::Address && !text.isEmpty() && !text.startsWith('{') && !schemes.contains(QUrl(text).scheme()))
        return QStringLiteral("%1 is an address of http or https").arg(what);
    return {};
}
