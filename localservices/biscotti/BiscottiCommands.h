#pragma once

#include <QString>
#include <QStringList>

class BiscottiServer;

/// What can be asked of the Biscotti server while it runs, as the words of a line; help() lists it.
class BiscottiCommands
{
public:
    /// The server is borrowed.
    explicit BiscottiCommands(BiscottiServer& server) : _server(server) {}

    /// Does what the words ask for, and adds to the lines of the answer. Answers an error, or nothing.
    QString run(QStringList const& words, QStringList& lines);

    static QStringList help();

private:
    QString fail(QStringList const& words);
    QString setMaxDataWait(QStringList const& words);
    QString setSilent(QStringList const& words);
    QString addTopic(QStringList const& words);
    void list(QStringList& lines) const;

    BiscottiServer& _server;
};
