#pragma once

#include "Service.h"

#include <QHash>

class BroadcastCatalogue;
class FaultPlan;
class MmsHttpConnection;
class StreamDocuments;

/// Serves broadcasts by MMS over HTTP, and on the same port the documents that point at them.
///
/// A GET describes a stream (its header), one with the Pragma "xPlayStrm=1" plays it: the header and then data
/// packets without end, in chunks (see MmsFraming). A POST selects streams of a client that plays, stops it, or
/// brings its log.
class MmsHttpServer : public Service
{
    Q_OBJECT

public:
    /// All but the parent are borrowed. Without documents only streams are served.
    MmsHttpServer(BroadcastCatalogue& catalogue, FaultPlan& faults, StreamDocuments const* documents,
                  TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent = nullptr);
    ~MmsHttpServer() override;

    BroadcastCatalogue& catalogue() const { return _catalogue; }
    FaultPlan& faults() const { return _faults; }
    StreamDocuments const* documents() const { return _documents; }
    qint64 msNow() const;

    /// A number for a client that has none.
    quint32 newClientId() { return ++_lastClientId; }

    /// Who plays under which number. A number that is taken goes to the newer one.
    void addPlayer(quint32 clientId, MmsHttpConnection* connection);
    void removePlayer(quint32 clientId, MmsHttpConnection const* connection);
    MmsHttpConnection* player(quint32 clientId) const;

protected:
    ServiceConnection* createConnection(std::unique_ptr<QTcpSocket> socket) override;

private:
    BroadcastCatalogue& _catalogue;
    FaultPlan& _faults;
    StreamDocuments const* _documents;
    quint32 _lastClientId = 1000;
    QHash<quint32, MmsHttpConnection*> _players;
};
