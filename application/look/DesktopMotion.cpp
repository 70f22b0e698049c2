#include "DesktopMotion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace
{

QString const service = QStringLiteral("org.freedesktop.portal.Desktop");
QString const path = QStringLiteral("/org/freedesktop/portal/desktop");
QString const interface = QStringLiteral("org.freedesktop.portal.Settings");
constexpr int answerTime = 2000; // ms

/// Settings that say it, each in the words of one desktop.
struct Known {
    char const* group;
    char const* key;
    bool (*isReduced)(QVariant const& value);
};

constexpr Known known[] = {
    {"org.freedesktop.appearance", "reduced-motion", [](QVariant const& value) { return value.toUInt() == 1; }},
    {"org.gnome.desktop.interface", "enable-animations", [](QVariant const& value) { return !value.toBool(); }},
    {"org.kde.kdeglobals.KDE", "AnimationDurationFactor",
     [](QVariant const& value) { return value.toString() == "0"; }},
};

} // namespace

DesktopMotion::DesktopMotion(QObject* parent) : QObject(parent)
{
    QDBusConnection session = QDBusConnection::sessionBus();
    if (!session.isConnected())
        return;
    session.connect(service, path, interface, "SettingChanged", this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    for (Known const& one : known)
        ask(one.group, one.key);
}

std::optional<bool> DesktopMotion::meaning(QString const& group, QString const& key, QVariant const& value)
{
    for (Known const& one : known)
        if (group == QLatin1String(one.group) && key == QLatin1String(one.key) && value.isValid())
            return one.isReduced(value);
    return std::nullopt;
}

void DesktopMotion::ask(QString const& group, QString const& key)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, "Read");
    call.setArguments({group, key});
    auto* const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, answerTime), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, group, key] {
        watcher->deleteLater();
        QDBusPendingReply<QDBusVariant> const reply(*watcher);
        if (reply.isValid())
            take(group, key, reply.value().variant());
    });
}

void DesktopMotion::take(QString const& group, QString const& key, QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) // Read() wraps its answer twice.
        value = value.value<QDBusVariant>().variant();
    if (std::optional<bool> const said = meaning(group, key, value))
        _isReduced = said;
}

void DesktopMotion::onSettingChanged(QString const& group, QString const& key, QDBusVariant const& value)
{
    take(group, key, value.variant());
}
