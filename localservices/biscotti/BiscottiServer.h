#pragma once

#include "BiscottiBroker.h"
#include "BiscottiJournal.h"
#include "BiscottiSessions.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "Service.h"

class BiscottiConnection;
struct BiscottiRequest;

/// The server side of Biscotti on one port: clients subscribe to topics and post to them, and each post goes to all
/// whom it concerns. Messages come in BER and go in DER. A post is remembered, then sent to its recipients, then
/// acknowledged, so that one that was acknowledged has left the server, and one that is sent again is told.
///
/// The link that a client opened last is the client's: an older one that is still open is dropped.
class BiscottiServer : public Service
{
    Q_OBJECT

public:
    /// All but the parent are borrowed.
    BiscottiServer(TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent = nullptr);
    ~BiscottiServer() override;

    /// Remembers the posts of the last minutes in a file as well, and takes up those of the server that wrote it
    /// before. Call it before listen(). False, and a text that tells why, if the file cannot be had.
    bool remember(QString const& path, QString& error);

    BiscottiBroker& broker() { return _broker; }
    qint64 msNow() const;
    qsizetype sessionCount() const { return _sessions.count(); }
    quint64 postCount() const { return _postCount; }

    // For the connections.

    using Client = BiscottiRouter::Client;

    /// Handles a message that wants an acknowledgement. Answers what it is acknowledged with.
    BiscottiBroker::Decision handle(BiscottiConnection& connection, BiscottiRequest const& request);

    /// The session of the client that has said who it is.
    std::shared_ptr<BiscottiSession> enter(BiscottiConnection& connection, QString const& identity);

    /// The connection is over.
    void leave(BiscottiConnection& connection);

    /// A client has so many bytes more, or fewer, of a message that is not whole. False when it is too much.
    bool hold(qint64 bytes);

    QByteArray acknowledgement(CentralisedBiscottiMessageId const& id, BiscottiBroker::AckCode code);
    QByteArray heartbeat();

protected:
    ServiceConnection* createConnection(std::unique_ptr<QTcpSocket> socket) override;
    void lookAfter(qint64 msNow) override;

private:
    CentralisedBiscottiMessageId nextId();
    bool deliver(BiscottiPost const& post, QSet<Client> const& recipients);
    void rewriteJournal();

    BiscottiBroker _broker;
    BiscottiSessions _sessions;
    BiscottiJournal _journal;
    CentralisedBiscottiMessageEncoder _encoder{nullptr};
    QHash<Client, BiscottiConnection*> _clients;   ///< Borrowed from the base class, by number.
    QHash<QString, BiscottiConnection*> _clientOf; ///< By identity.
    Client _nextClient = 1;
    quint64 _nextMessage = 0;
    quint64 _postCount = 0;
    qint64 _bytesHeld = 0;

    static Logger* log;
};
