#include "SettingsFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace
{

QString translated(char const* text)
{
    return QCoreApplication::translate("SettingsFile", text);
}

/// A copy is parsed, and all of it: the file itself is parsed only once in a process and by the section.
bool isWellFormed(QString const& path)
{
    QTemporaryDir const directory;
    QString const copy = directory.filePath("settings.ini");
    if (!QFile::copy(path, copy))
        return true; // There is no place for one, which tells nothing about the file.
    QSettings const settings(copy, QSettings::IniFormat);
    settings.allKeys();
    return settings.status() != QSettings::FormatError;
}

} // namespace

QString checkSettingsFile()
{
    QString const path = settingsFile().fileName();
    QFileInfo const file(path);
    if (!file.exists())
        return {};
    if (!file.isFile() || !file.isReadable())
        return translated("The settings file %1 can't be read. All settings are as at first.").arg(path);
    if (isWellFormed(path))
        return {};
    QString const copy = path + ".damaged";
    QFile::remove(copy);
    if (!QFile::copy(path, copy))
        return translated("The settings file %1 is damaged. Some settings are as at first.").arg(path);
    return translated(
               "The settings file %1 is damaged. Some settings are as at first; the damaged file is kept as %2.")
        .arg(path, copy);
}

QString writeSettingsFile(QSettings& settings)
{
    settings.sync();
    if (settings.status() != QSettings::AccessError)
        return {};
    return translated("The settings could not be saved in %1.").arg(settings.fileName());
}
