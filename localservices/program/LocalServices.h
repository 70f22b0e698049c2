#pragma once

#include "BroadcastCatalogue.h"
#include "ControlCommands.h"
#include "FaultPlan.h"
#include "StreamDocuments.h"

#include <QObject>

#include <memory>
#include <vector>

struct LocalServicesOptions;
class BiscottiCommands;
class BiscottiServer;
class DirectoryService;
class Logger;
class Service;
class TickCounter;
class TimerFactory;

/// The services, put together. Lives on one thread.
class LocalServices : public QObject
{
    Q_OBJECT

public:
    /// Both are borrowed.
    LocalServices(TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent = nullptr);
    ~LocalServices() override;

    /// Opens the films and starts what the options ask for. False, and a text that tells why, when something of it
    /// cannot be had.
    bool start(LocalServicesOptions const& options, QString& error);

    /// One line for each service that runs: "SERVICE ADDRESS PORT", and for the control port its token behind that.
    QString portLines() const;

    /// What the control port runs.
    ControlCommands& commands() { return _commands; }

private:
    bool openStreams(LocalServicesOptions const& options, QString& error);
    bool startService(QString const& key, std::unique_ptr<Service> service, QHostAddress const& address, quint16 port,
                      QString& error);
    bool startStreamServers(LocalServicesOptions const& options, QString& error);
    bool startBiscotti(LocalServicesOptions const& options, QString& error);
    bool openDirectory(LocalServicesOptions const& options, QString& error);
    bool startDirectory(LocalServicesOptions const& options, QString& error);
    void plantSeeds();
    void followKeysSoon();
    void followKeys();
    void trigger(qint64 account);
    quint16 portOf(QString const& key) const;

    TickCounter& _tickCounter;
    TimerFactory& _timerFactory;
    BroadcastCatalogue _catalogue;
    FaultPlan _faults;
    StreamDocuments _documents{_catalogue};
    ControlCommands _commands{_catalogue, _faults};
    QByteArray const _controlToken;
    std::unique_ptr<DirectoryService> _directory; ///< Null unless the web is served.
    BiscottiServer* _biscottiServer = nullptr;    ///< One of the services; null unless it is served.
    std::unique_ptr<BiscottiCommands> _biscotti;  ///< Null unless it is served.
    bool _isToFollowKeys = false;                 ///< Soon.
    std::vector<std::pair<QString, std::unique_ptr<Service>>> _services; ///< By key; they go before what they use.

    static Logger* log;
};
