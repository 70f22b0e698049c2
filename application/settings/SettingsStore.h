#pragma once

#include "SettingsTable.h"

class Logger;
class QSettings;
class SecretStore;

/// Takes the settings of a scope from the file to their fields and back, as the table says. Main thread only.
class SettingsStore
{
public:
    static constexpr int mostColours = 100;

    /// The settings are in the group of the scope. Both are borrowed.
    SettingsStore(QSettings& settings, SecretStore& secrets) : _settings(settings), _secrets(secrets) {}

    /// What makes no sense in the file is as if it were absent, or brought inside its bounds, with a line in the log.
    void load(SettingScope scope, SettingsValues& values);

    /// Other keys of the file stay as they are, and so do secrets that could not be read.
    void save(SettingScope scope, SettingsValues const& values);

private:
    static Logger* log;

    template<class T>
    void load(Setting const& setting, T& value);
    template<class T>
    void save(Setting const& setting, T const& value);
    void loadNumber(QString const& name, Setting const& setting, int& value);
    void loadColours(QString const& name, QList<ChatColour>& colours);
    void saveColours(QString const& name, QList<ChatColour> const& colours);
    void complain(QString const& name);

    QSettings& _settings;
    SecretStore& _secrets;
};
