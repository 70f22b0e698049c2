#include "SignInSettings.h"

#include "Database.h"

#include <algorithm>
#include <array>

namespace
{
QString settingKey(QString const& setting)
{
    return "signin_" + setting;
}
} // namespace

std::span<SignInSettings::Setting const> SignInSettings::all()
{
    using enum Kind;
    static constexpr std::array<Setting, 19> settings = {{
        {"behind_proxy", "false", Truth},
        {"response_code", "0", Number}, // 2: the update has to be installed first.
        {"update_md5", "", Text},
        {"update_message", "", Text},
        {"update_url", "", Text},
        {"update_version", "", Text}, // One is offered when this is not empty.
        {"show_banners", "false", Truth},
        {"banners_base_url", "", Text},
        {"banner_refresh_rate", "60", Number},
        {"banner_sizes", "468x60,234x60", Text},
        {"chat_allowed", "true", Truth},
        {"show_sponsorship", "false", Truth},
        {"chat_tethering", "true", Truth},
        {"multiview_channels", "9", Number},
        {"video_postprocessing", "true", Truth},
        {"buy_premium_message", "", Text},
        {"tpck", "", Text},
        {"tck", "", Text},
        {"tcs", "", Text},
    }};
    return settings;
}

QString SignInSettings::value(QString const& name) const
{
    QVariant const stored =
        _database.value(QStringLiteral("SELECT content FROM settings WHERE name = ?"), {settingKey(name)});
    if (stored.isValid())
        return stored.toString();
    for (Setting const& setting : all()) {
        if (name == QLatin1String(setting.name))
            return QString::fromLatin1(setting.initial);
    }
    return {};
}

QString SignInSettings::set(QString const& name, QString const& content)
{
    auto const known = std::find_if(all().begin(), all().end(),
                                    [&](Setting const& setting) { return name == QLatin1String(setting.name); });
    if (known == all().end())
        return QStringLiteral("\"%1\" is nothing that viewers are told when they sign in").arg(name);
    bool isNumber = false;
    if (known->kind == Kind::Truth && content != "true" && content != "false")
        return QStringLiteral("%1 is \"true\" or \"false\"").arg(name);
    if (known->kind == Kind::Number && (content.toInt(&isNumber) < 0 || !isNumber))
        return QStringLiteral("%1 is a number").arg(name);
    if (content.size() > longest)
        return QStringLiteral("%1 is longer than %2 characters").arg(name).arg(longest);
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("DELETE FROM settings WHERE name = ?"), {settingKey(name)});
    _database.run(QStringLiteral("INSERT INTO settings (name, content) VALUES (?, ?)"), {settingKey(name), content});
    return transaction.commit() ? QString() : QStringLiteral("it could not be stored");
}
