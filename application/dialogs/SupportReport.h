#pragma once

#include <QString>
#include <QStringList>

class AppData;
class QWidget;

/// What helps to find out why something does not work on a machine, as text for people, without secrets: no password,
/// no user of a proxy or an address, no e-mail address, no home directory.
class SupportReport
{
public:
    static constexpr int logBytes = 64 << 10; ///< Of the log's end.

    /// What is known at once. GUI thread; the OpenGL driver is that of the context that is current, if one is.
    static QString ofProgram(AppData const& appData, QWidget const& window);

    /// What takes a sound server and a disk to know. Any thread.
    static QString ofSystem();

    /// Libraries and their versions.
    static QStringList libraries();

    /// A text without e-mail addresses, the users, passwords and queries of addresses, the addresses in root ids, and
    /// the name of the home directory.
    static QString withoutSecrets(QString const& text);

private:
    static QString settings(AppData const& appData);
    static QString logEnd();
};
