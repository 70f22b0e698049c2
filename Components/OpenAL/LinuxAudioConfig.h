#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class Logger;

/// The user's OpenAL configuration file, ".openalrc" in the home directory, which names the sound device.
///
/// A file that the program wrote begins with a line of its own. Any other file is the user's, and is kept aside
/// before the first change. Failures to read or write are log lines: sound then goes to the library's own choice.
class LinuxAudioConfig : public QObject
{
    Q_OBJECT

public:
    explicit LinuxAudioConfig(QObject* parent = nullptr);

    /// The device when the user has chosen none.
    QString defaultDevice() const;

    /// Whether a name stands for a way to reach sound that every installation knows, and not for one device.
    static bool isGeneric(QString const& name);

    /// The devices to choose from: the default one, the ways to reach sound that every installation knows, and what
    /// the OpenAL library finds on this machine, each once.
    QStringList listDevices() const;

    /// The device that the generated file names; empty when there is no such file.
    QString device() const;

    /// Writes the configuration for a device. A generated file that names this device already stays as it is, with
    /// what the user has added to it.
    void setDevice(QString const& name);

    /// The full path of the file.
    QString configFilename() const;

    bool configExists() const;

    /// Whether the program wrote the file that exists.
    bool configIsGenerated() const;

    /// Copies the file to ".openalrc_before_ombravision", in place of an older copy.
    /// Returns whether the copy was made.
    bool backupExistingConfig();

private:
    void writeConfig(QString const& name);

    static Logger* log;
};
