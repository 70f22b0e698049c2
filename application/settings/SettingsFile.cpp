#include "SettingsFile.h"

#include "SecretStore.h"
#include "SettingsTable.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

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

/// Where in a line a secret begins that stands there in plain text; -1 where none does. The line may be damaged, too.
qsizetype plainSecretIn(QByteArray const& line)
{
    QByteArray const lower = line.toLower();
    QByteArrayList names{"password"}; // An account's; the others are settings.
    for (Setting const& setting : settingsTable())
        if (setting.storage == SettingStorage::Enciphered)
            names.append(QByteArray(setting.key).toLower());
    qsizetype first = -1;
    for (QByteArray const& name : std::as_const(names))
        for (qsizetype at = lower.indexOf(name); at >= 0; at = lower.indexOf(name, at + 1)) {
            qsizetype const value = lower.indexOf('=', at) + 1;
            bool const isName =
                value > 0 && lower.mid(at + name.size(), value - 1 - at - name.size()).trimmed().isEmpty();
            bool const isEnciphered = lower.mid(value).trimmed().replace('"', "").startsWith(SecretStore::enciphered);
            if (isName && !isEnciphered && (first < 0 || value < first))
                first = value;
        }
    return first;
}

/// The bytes of a settings file but for secrets that nobody has enciphered yet.
QByteArray withoutPlainSecrets(QByteArray const& file)
{
    QByteArrayList lines = file.split('\n');
    bool isSecretGoingOn = false;
    for (QByteArray& line : lines) {
        QByteArray const whole = line.endsWith('\r') ? line.chopped(1) : line;
        auto const end = std::find_if(whole.crbegin(), whole.crend(), [](char c) { return c != '\\'; });
        bool const goesOn = (end - whole.crbegin()) % 2 == 1;
        qsizetype const secret = isSecretGoingOn ? 0 : plainSecretIn(line);
        if (secret >= 0)
            line.truncate(secret);
        isSecretGoingOn = secret >= 0 && goesOn;
    }
    return lines.join('\n');
}

/// For this user alone.
bool keepCopy(QString const& path, QString const& copyPath)
{
    QFile file(path);
    QFile::remove(copyPath);
    QFile copy(copyPath);
    if (!file.open(QIODevice::ReadOnly) ||
        !copy.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
        return false;
    QByteArray const bytes = withoutPlainSecrets(file.readAll());
    return copy.write(bytes) == bytes.size() && copy.flush();
}

} // namespace

QString checkSettingsFile()
{
    QString const path = settingsFile().fileName();
    QFileInfo const file(path);
    if (!file.exists())
        return {};
    if (!file.isFile() || !file.isReadable())
        return translated("The settings file %1 can't be read. All settings have their defaults.").arg(path);
    if (isWellFormed(path))
        return {};
    QString const copy = path + ".damaged";
    if (!keepCopy(path, copy))
        return translated("The settings file %1 is damaged. Some settings have their defaults.").arg(path);
    return translated(
               "The settings file %1 is damaged. Some settings have their defaults; the damaged file is kept as %2.")
        .arg(path, copy);
}

QString writeSettingsFile(QSettings& settings)
{
    settings.sync();
    if (settings.status() != QSettings::AccessError)
        return {};
    return translated("The settings could not be saved in %1.").arg(settings.fileName());
}
