#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

/// Whether the desktop asks for as little motion as possible, from the settings portal of the session
/// (org.freedesktop.portal.Settings, version 1). The calls are asynchronous, and a desktop without a portal asks for
/// nothing. Main thread only.
class DesktopMotion : public QObject
{
    Q_OBJECT

public:
    explicit DesktopMotion(QObject* parent = nullptr);

    /// Without a value the desktop has said nothing, perhaps not yet.
    std::optional<bool> isReduced() const { return _isReduced; }

    /// What a value of a setting of the portal means; nothing if the setting is about something else.
    static std::optional<bool> meaning(QString const& group, QString const& key, QVariant const& value);

private slots:
    /// The portal's own signal, by which it tells of each change.
    void onSettingChanged(QString const& group, QString const& key, QDBusVariant const& value);

private:
    void ask(QString const& group, QString const& key);
    void take(QString const& group, QString const& key, QVariant value);

    std::optional<bool> _isReduced;
};
