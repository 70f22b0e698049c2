#pragma once

#include <QString>
#include <QStringList>

/// Has the program started when the user signs in to the desktop. This platform leaves that to the desktop's own
/// settings, so there is nothing to read or to write here.
class RunAtStartup
{
public:
    /// Whether the program of that name and path is started with these arguments: never.
    static bool runAtStartup(QString const& name, QString const& path, QStringList const& arguments);

    /// Asks for the program to be started, or not any more. Returns whether the wish was taken: always.
    static bool setRunAtStartup(QString const& name, QString const& path, QStringList const& arguments, bool run);
};
