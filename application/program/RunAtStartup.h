#pragma once

#include <QString>
#include <QStringList>

/// Has the program started when the user signs in to the desktop: by an entry in the user's autostart directory, as
/// in the Desktop Application Autostart Specification of freedesktop.org. Any thread, which waits for the disk.
class RunAtStartup
{
public:
    /// Whether the desktop starts the program of that name. An entry of the user's is asked for first, then one of
    /// the system's. Path and arguments are those of an entry that is to be made, and not looked at here: an entry
    /// counts whatever starts the program.
    static bool runAtStartup(QString const& name, QString const& path, QStringList const& arguments);

    /// Has the desktop start the program at that path with these arguments, or not any more: then the user's entry
    /// goes, or says so where the system has one. What already is as it is wanted stays. Returns false with the
    /// problem, in words, when the entry can't be written.
    static bool setRunAtStartup(QString const& name, QString const& path, QStringList const& arguments, bool run,
                                QString* problem = nullptr);

    /// Where the user's entry is, or would be.
    static QString entryPath(QString const& name);
};
