#include "DesktopMotion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace
{

QString const portalService = QStringLiteral("org.freedesktop.portal.Desktop");
QString const portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
QString const portalInterface = QStringLiteral("org.freedesktop.portal.Settings");
constexpr int portalAnswerTime = 2000; // ms

/// Settings that say it, each in the words of one desktop.
struct MotionSetting {
    char const* group;
    char const* key;
    bool (*isReduced)(QVariant const& value);
};

constexpr MotionSetting knownSettings[] = {
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
    session.connect(portalService, portalPath, portalInterface, "SettingChanged", this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    for (MotionSetting const& one : knownSettings)
        ask(one.group, one.key);
}

std::optional<bool> DesktopMotion::meaning(QString const& group, QString const& key, QVariant const& value)
{
    for (MotionSetting const& one : knownSettings)
        if (group == QLatin1String(one.group) && key == QLatin1String(one.key) && value.isValid())
            return one.isReduced(value);
    return std::nullopt;
}

void DesktopMotion::ask(QString const& group, QString const& key)
{
    QDBusMessage call = QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, "Read");
    call.setArguments({group, key});
    auto* const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, portalAnswerTime), this);
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
