#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

class BiscottiCommands;
class Broadcast;
class BroadcastCatalogue;
class FaultPlan;
class Service;

/// What can be asked of the services while they run, as lines of text; help() lists it.
class ControlCommands
{
public:
    struct Answer {
        QStringList lines;
        QString error;         ///< Empty when it was done.
        bool isCommand = true; ///< Otherwise nobody who means these services has said it.
    };

    /// Both are borrowed.
    ControlCommands(BroadcastCatalogue& catalogue, FaultPlan& faults) : _catalogue(catalogue), _faults(faults) {}

    /// A service whose clients are listed and dropped. Borrowed.
    void addService(Service* service) { _services.append(service); }

    /// Takes the commands about Biscotti. Borrowed.
    void setBiscotti(BiscottiCommands* biscotti) { _biscotti = biscotti; }

    /// Further commands, by their first word: what is called with the words behind it, adds to the lines of the
    /// answer and answers an error, or nothing.
    using Command = std::function<QString(QStringList const& words, QStringList& lines)>;
    void addCommand(QString const& name, Command const& command) { _added.insert(name, command); }

    /// Does what a line asks for. An empty line asks for nothing.
    Answer run(QString const& line);

    static QStringList help();

    /// The line without what is nobody else's business, for the log.
    static QString withoutSecrets(QString const& line);

private:
    using Handler = Answer (ControlCommands::*)(QStringList const& words);

    Answer showHelp(QStringList const& words);
    Answer list(QStringList const& words);
    Answer listFaults(QStringList const& words);
    Answer addFault(QStringList const& words);
    Answer clear(QStringList const& words);
    Answer drop(QStringList const& words);
    Answer silence(QStringList const& words);
    Answer rate(QStringList const& words);
    Answer playlist(QStringList const& words);
    Answer header(QStringList const& words);
    Answer end(QStringList const& words);
    Answer biscotti(QStringList const& words);

    /// The broadcast of a name, or all without one; empty, with an error, when there is none of that name.
    QList<Broadcast*> broadcasts(QString const& name, Answer& answer) const;

    BroadcastCatalogue& _catalogue;
    FaultPlan& _faults;
    QList<Service*> _services;
    BiscottiCommands* _biscotti = nullptr;
    QMap<QString, Command> _added;
};
