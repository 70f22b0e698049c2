#include "RunAtStartup.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <filesystem>
#include <optional>
#include <system_error>

namespace
{

constexpr char const* directory = "autostart";
constexpr qint64 longestEntry = 1 << 16; ///< What is longer was made by nobody.

QString fileName(QString const& name)
{
    return QString("%1/%2.desktop").arg(directory, name.toLower());
}

/// Entries of the system, the one that counts first.
QStringList systemEntries(QString const& name)
{
    QStringList found =
        QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, fileName(name), QStandardPaths::LocateFile);
    found.removeAll(RunAtStartup::entryPath(name));
    return found;
}

/// Whether an entry starts something; nothing if there is none.
std::optional<bool> startsSomething(QString const& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) // A pipe would keep whoever opens it.
        return {};
    bool starts = false;
    bool isOff = false;
    bool isInEntry = false;
    for (QByteArray const& raw : file.read(longestEntry).split('\n')) {
        QByteArray const line = raw.trimmed();
        if (line.startsWith('['))
            isInEntry = line == "[Desktop Entry]";
        qsizetype const equals = line.indexOf('=');
        if (!isInEntry || equals < 0)
            continue;
        QByteArray const key = line.left(equals).trimmed();
        QByteArray const value = line.mid(equals + 1).trimmed();
        starts = starts || (key == "Exec" && !value.isEmpty());
        isOff =
            isOff || (key == "Hidden" && value == "true") || (key == "X-GNOME-Autostart-enabled" && value == "false");
    }
    return starts && !isOff;
}

/// An argument as the key Exec takes it: in quotes, with the letters escaped that mean something within them, and all
/// of that as a string of the file.
QString quoted(QString const& argument)
{
    QString result;
    for (QChar const letter : argument) {
        if (QStringLiteral("\"`$\\").contains(letter))
            result += '\\';
        result += letter;
        if (letter == '%')
            result += letter;
    }
    return '"' + result.replace('\\', "\\\\") + '"';
}

QByteArray entry(QString const& name, QString const& path, QStringList const& arguments)
{
    QString command = quoted(path);
    for (QString const& argument : arguments)
        command += ' ' + argument;
    return QString("[Desktop Entry]\nType=Application\nName=%1\nIcon=%2\nExec=%3\nTerminal=false\n")
        .arg(name, name.toLower(), command)
        .toUtf8();
}

bool write(QString const& path, QByteArray const& text, QString& problem)
{
    std::error_code error; // QDir tells no reason.
    std::filesystem::create_directories(QFile::encodeName(QFileInfo(path).path()).toStdString(), error);
    QSaveFile file(path);
    if (!error && file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    problem = error ? QString::fromLocal8Bit(error.message().c_str()) : file.errorString();
    return false;
}

bool remove(QString const& path, QString& problem)
{
    QFile file(path);
    if (file.remove() || !file.exists())
        return true;
    problem = file.errorString();
    return false;
}

} // namespace

QString RunAtStartup::entryPath(QString const& name)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + '/' + fileName(name);
}

bool RunAtStartup::runAtStartup(QString const& name, QString const&, QStringList const&)
{
    for (QString const& path : QStringList(entryPath(name)) + systemEntries(name))
        if (std::optional<bool> const starts = startsSomething(path))
            return *starts;
    return false;
}

bool RunAtStartup::setRunAtStartup(QString const& name, QString const& path, QStringList const& arguments, bool run,
                                   QString* problem)
{
    if (runAtStartup(name, path, arguments) == run)
        return true;
    QString const own = entryPath(name);
    QString reason;
    bool ok = false;
    if (run)
        ok = write(own, entry(name, path, arguments), reason);
    else if (systemEntries(name).isEmpty())
        ok = remove(own, reason);
    else
        ok = write(own, "[Desktop Entry]\nType=Application\nName=" + name.toUtf8() + "\nHidden=true\n", reason);
    if (!ok && problem && run)
        *problem = QCoreApplication::translate("RunAtStartup", "Ombravision could not be made to start with the "
                                                               "desktop: %1 could not be written (%2).")
                       .arg(own, reason);
    else if (!ok && problem)
        *problem = QCoreApplication::translate("RunAtStartup", "Ombravision will still start with the desktop: %1 "
                                                               "could not be removed (%2).")
                       .arg(own, reason);
    return ok;
}
