#include "LinuxAudioConfig.h"

#include "AudioDevice.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

Logger* LinuxAudioConfig::log = LoggerManager::logger();

namespace
{

constexpr char const* magicLine = ";Ombravision auto-generated this file.";
constexpr char const* deviceLineStart = "(define devices '(";
constexpr char const* deviceLineEnd = "))";
constexpr char const* backupSuffix = "_before_ombravision";

constexpr char const* introduction =
    ";Any previous version of this file has been backed up as .openalrc_before_ombravision.\n"
    ";All manual edits to this file will be erased if you change the audio device in the Ombravision Audio "
    "Preferences.\n"
    ";Set the desired device in the Ombravision Audio Preferences and then add any customization to this file.\n";

constexpr char const* customisation = ";You can safely manually edit from here onwards.\n"
                                      ";This sets the number of speakers.\n"
                                      "(define speaker-num 2)\n"
                                      ";This sets the sounds sampling rate.\n"
                                      "(define sampling-rate 44100)\n";

constexpr char const* alsaCustomisation =
    ";This sets the alsa device. Use aplay -L for a list of alsa devices on the system.\n"
    ";e.g. front:CARD=default,DEV=0 Microsoft LifeChat LX-3000 , USB Audio Front speakers.\n"
    ";The should then be specified like this (define alsa-device \"front:default,0\")\n"
    "(define alsa-device \"default\")\n";

QStringList genericDevices()
{
    return {QStringLiteral("alsa"), QStringLiteral("default"), QStringLiteral("Generic Software")};
}

/// A device name as the file can hold it.
QString inOneLine(QString name)
{
    return name.replace(u'\n', u' ').replace(u'\r', u' ').trimmed();
}

} // namespace

LinuxAudioConfig::LinuxAudioConfig(QObject* parent) : QObject(parent) {}

QString LinuxAudioConfig::defaultDevice() const
{
    return genericDevices().constFirst();
}

bool LinuxAudioConfig::isGeneric(QString const& name)
{
    return genericDevices().contains(name);
}

QStringList LinuxAudioConfig::listDevices() const
{
    QStringList names = genericDevices();
    QStringList found;
    QString libraryDefault;
    if (AudioDevice::availableDevices(found, libraryDefault))
        names += found;
    names.removeDuplicates();
    return names;
}

QString LinuxAudioConfig::device() const
{
    if (!configIsGenerated())
        return {};
    QFile file(configFilename());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    while (!file.atEnd()) {
        QString const line = QString::fromUtf8(file.readLine()).trimmed();
        if (!line.startsWith(QLatin1String(deviceLineStart)) || !line.endsWith(QLatin1String(deviceLineEnd)))
            continue;
        qsizetype const start = qstrlen(deviceLineStart);
        return line.mid(start, line.size() - start - static_cast<qsizetype>(qstrlen(deviceLineEnd)));
    }
    return {};
}

void LinuxAudioConfig::setDevice(QString const& name)
{
    if (configExists()) {
        if (configIsGenerated()) {
            if (device() == inOneLine(name))
                return;
        } else if (!backupExistingConfig()) {
            return;
        }
    }
    writeConfig(name);
}

void LinuxAudioConfig::writeConfig(QString const& name)
{
    LOG_INFO("Writing new openalrc file for device %s", qPrintable(name));
    QByteArray text = magicLine + QByteArray("\n") + introduction;
    text += deviceLineStart + inOneLine(name).toUtf8() + deviceLineEnd + "\n" + customisation;
    if (name == defaultDevice())
        text += alsaCustomisation;

    QSaveFile file(configFilename());
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        LOG_WARNING("Could not write %s: %s", qPrintable(configFilename()), qPrintable(file.errorString()));
}

QString LinuxAudioConfig::configFilename() const
{
    return QDir::home().filePath(QStringLiteral(".openalrc"));
}

bool LinuxAudioConfig::configExists() const
{
    return QFile::exists(configFilename());
}

bool LinuxAudioConfig::configIsGenerated() const
{
    QFile file(configFilename());
    if (!file.open(QIODevice::ReadOnly)) {
        LOG_WARNING("Failed to open openalrc");
        return false;
    }
    // A line of the user's may have any length; ours is short.
    if (file.readLine(256).trimmed() != magicLine)
        return false;
    LOG_DEBUG("Found the magic line");
    return true;
}

bool LinuxAudioConfig::backupExistingConfig()
{
    QString const backup = configFilename() + QLatin1String(backupSuffix);
    if (QFile::exists(backup)) {
        LOG_INFO("Removing old openalrc backup file");
        QFile::remove(backup);
    }
    LOG_INFO("Backing up custom openalrc file");
    if (QFile::copy(configFilename(), backup))
        return true;
    LOG_WARNING("Could not copy %s to %s", qPrintable(configFilename()), qPrintable(backup));
    return false;
}
