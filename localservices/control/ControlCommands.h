#pragma once

#include <QList>
#include <QString>
#include <QStringList>

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

    /// Does what a line asks for. An empty line asks for nothing.
    Answer run(QString const& line);

    static QStringList help();

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
};
