#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class WebFaultPlan;
class WebServer;

/// What can be asked of the web service while it runs, as the words behind "web"; help() lists it.
class WebCommands
{
public:
    struct Parts {
        WebFaultPlan& faults;
        QList<WebServer*> servers;
        std::function<bool(bool isExpired)> renewCertificate;
    };

    explicit WebCommands(Parts const& parts) : _parts(parts) {}

    /// Answers an error, or nothing.
    QString run(QStringList const& words, QStringList& lines);

    static QStringList help();

private:
    Parts const _parts;
};
