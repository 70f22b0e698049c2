#pragma once

#include "Service.h"

class BroadcastCatalogue;
class FaultPlan;

/// Serves broadcasts by MMS over TCP: messages (MmsTcpRequest, MmsTcpReport) and, between those of the server, the
/// stream's header and data packets, each in a record (see MmsFraming).
class MmsTcpServer : public Service
{
    Q_OBJECT

public:
    /// All but the parent are borrowed.
    MmsTcpServer(BroadcastCatalogue& catalogue, FaultPlan& faults, TickCounter& tickCounter,
                 TimerFactory& timerFactory, QObject* parent = nullptr);

    BroadcastCatalogue& catalogue() const { return _catalogue; }
    FaultPlan& faults() const { return _faults; }
    qint64 msNow() const;

protected:
    ServiceConnection* createConnection(std::unique_ptr<QTcpSocket> socket) override;

private:
    BroadcastCatalogue& _catalogue;
    FaultPlan& _faults;
};
