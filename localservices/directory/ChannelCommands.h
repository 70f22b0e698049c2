#pragma once

#include <QString>
#include <QStringList>

class Accounts;
class Directory;
struct DirectoryChannel;

/// What can be asked of the directory while the service runs, as the words of a line: "channel" for those of
/// partners, "stream" for those that viewers have made; help() lists it.
class ChannelCommands
{
public:
    /// Both are borrowed.
    ChannelCommands(Directory& directory, Accounts& accounts) : _directory(directory), _accounts(accounts) {}

    /// Each does what the words behind its name ask for, and adds to the lines of the answer. Answers an error, or
    /// nothing.
    QString channel(QStringList const& words, QStringList& lines);
    QString stream(QStringList const& words, QStringList& lines);

    static QStringList help();

private:
    QString run(QStringList const& words, bool isViewers, QStringList& lines);
    QString change(QString const& what, QStringList const& words, DirectoryChannel channel, QStringList& lines);
    void list(bool isViewers, QStringList& lines) const;
    static void show(DirectoryChannel const& channel, QStringList& lines);

    Directory& _directory;
    Accounts& _accounts;
};
