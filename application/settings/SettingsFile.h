#pragma once

#include <QSettings>

/// The program's one settings file, whatever names the process bears.
inline QSettings settingsFile()
{
    return {QSettings::IniFormat, QSettings::UserScope, "Ombravision", "Ombravision"};
}

/// What keeps the file from being read, in words for the viewer; empty if nothing does. To be asked before anything
/// is written: of a damaged file a copy is made beside it, since writing leaves out what could not be read. Secrets
/// in plain text are left out of it: nothing would ever encipher them there.
QString checkSettingsFile();

/// Writes what is pending. Returns what kept it from being written, in words for the viewer; empty if nothing did.
QString writeSettingsFile(QSettings& settings);
