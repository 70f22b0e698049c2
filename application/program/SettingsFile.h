#pragma once

#include <QSettings>

/// The program's one settings file, whatever names the process bears.
inline QSettings settingsFile()
{
    return {QSettings::IniFormat, QSettings::UserScope, "Ombravision", "Ombravision"};
}
