#include "SettingsStore.h"

#include "BoundedNumber.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "SecretStore.h"
#include "SettingsText.h"

#include <QSettings>

#include <algorithm>

Logger* SettingsStore::log = LoggerManager::logger();

namespace
{

/// The window's settings are read from one group and written to another, so that each run begins with those that the
/// file was given by hand, or the defaults. Everything that depends on it asks here.
constexpr char const* windowGroup = "videoWindow";
constexpr char const* writtenWindowGroup = "videowindow";

QString nameIn(QString const& group, Setting const& setting)
{
    return group.isEmpty() ? QString(setting.key) : QString(group + '/' + setting.key);
}

QString readName(Setting const& setting)
{
    return nameIn(setting.group, setting);
}

QString writtenName(Setting const& setting)
{
    QString const group = setting.group;
    return nameIn(group == windowGroup ? QString(writtenWindowGroup) : group, setting);
}

} // namespace

void SettingsStore::load(SettingScope scope, SettingsValues& values)
{
    SettingsValues const initial;
    for (Setting const& setting : settingsTable()) {
        if (!isOf(setting, scope) || setting.storage == SettingStorage::OnlyWritten)
            continue;
        auto const loadField = [&](auto field) {
            if (setting.whenAbsent == WhenAbsent::Initial)
                values.*field = initial.*field;
            else if (setting.whenAbsent == WhenAbsent::Off)
                values.*field = {};
            load(setting, values.*field);
        };
        std::visit(loadField, setting.field);
    }
}

template<class T>
void SettingsStore::load(Setting const& setting, T& value)
{
    QString const name = readName(setting);
    if constexpr (std::is_same_v<T, QString>) {
        if (setting.storage == SettingStorage::Enciphered) {
            value = _secrets.read(_settings, name);
            return;
        }
    }
    if constexpr (std::is_same_v<T, QList<ChatColour>>) {
        loadColours(name, value);
        return;
    }
    if (!_settings.contains(name))
        return;
    if constexpr (std::is_same_v<T, int>) {
        loadNumber(name, setting, value);
        return;
    }
    QVariant stored = _settings.value(name);
    if (setting.accepts)
        stored = SettingsText::textOf(stored).trimmed();
    T read = value;
    if ((setting.accepts && !setting.accepts(stored.toString())) || !SettingsText::parse(stored, read))
        complain(name);
    else
        value = read;
    if constexpr (std::is_same_v<T, double>)
        value = std::clamp(value, setting.bounds->minimum, setting.bounds->maximum);
}

void SettingsStore::loadNumber(QString const& name, Setting const& setting, int& value)
{
    SettingBounds const& bounds = *setting.bounds;
    QByteArray const key = name.toUtf8();
    BoundedNumber const number = {key.constData(), value, static_cast<qint64>(bounds.minimum),
                                  static_cast<qint64>(bounds.maximum)};
    auto const [read, complaint] = number.read(_settings);
    if (complaint.isEmpty() || bounds.takesNearest)
        value = static_cast<int>(read);
    if (!complaint.isEmpty() && bounds.takesNearest)
        LOG_WARNING("%s", qUtf8Printable(complaint));
    else if (!complaint.isEmpty())
        complain(name);
}

/// What the file has of the palette takes the place of the same entry; others follow.
void SettingsStore::loadColours(QString const& name, QList<ChatColour>& colours)
{
    int const count = std::min(_settings.beginReadArray(name), mostColours);
    for (int i = 0; i < count; ++i) {
        _settings.setArrayIndex(i);
        ChatColour const colour = {_settings.value("name").toString(), QColor(_settings.value("native").toString()),
                                   QColor(_settings.value("skin").toString()), _settings.value("type").toInt()};
        auto const same = std::ranges::find(colours, colour.name, &ChatColour::name);
        if (!colour.native.isValid() || !colour.skin.isValid())
            complain(QString("%1/%2").arg(name).arg(i + 1));
        else if (same != colours.end())
            *same = colour;
        else
            colours.append(colour);
    }
    _settings.endArray();
}

void SettingsStore::complain(QString const& name)
{
    QString const text = SettingsText::textOf(_settings.value(name)).left(100);
    LOG_WARNING("The setting %s is \"%s\", which makes no sense there; it is taken as if it were absent.",
                qUtf8Printable(QString(_settings.group() + '/' + name)), qUtf8Printable(text));
}

void SettingsStore::save(SettingScope scope, SettingsValues const& values)
{
    for (Setting const& setting : settingsTable())
        if (isOf(setting, scope) && setting.storage != SettingStorage::OnlyRead)
            std::visit([&](auto field) { save(setting, values.*field); }, setting.field);
}

template<class T>
void SettingsStore::save(Setting const& setting, T const& value)
{
    QString const name = writtenName(setting);
    if constexpr (std::is_same_v<T, QString>) {
        if (setting.storage == SettingStorage::Enciphered) {
            if (!value.isEmpty() || !_secrets.isUnreadable(_settings, name))
                _secrets.write(_settings, name, value);
            return;
        }
    }
    if constexpr (std::is_same_v<T, QList<ChatColour>>)
        saveColours(name, value);
    else
        _settings.setValue(name, SettingsText::form(value));
}

void SettingsStore::saveColours(QString const& name, QList<ChatColour> const& colours)
{
    _settings.remove(name);
    _settings.beginWriteArray(name, static_cast<int>(colours.size()));
    for (int i = 0; i < colours.size(); ++i) {
        ChatColour const& colour = colours.at(i);
        _settings.setArrayIndex(i);
        _settings.setValue("name", colour.name);
        _settings.setValue("native", colour.native.name());
        _settings.setValue("skin", colour.skin.name());
        _settings.setValue("type", colour.type);
    }
    _settings.endArray();
}
