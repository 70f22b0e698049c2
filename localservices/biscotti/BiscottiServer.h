#pragma once

#include "BiscottiBroker.h"
#include "BiscottiSessions.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "Service.h"

class BiscottiConnection;
struct BiscottiRequest;

/// The server side of Biscotti on one port: clients subscribe to topics and post to them, and each post goes to all
/// whom it concerns. Messages come in BER and go in DER. A post is remembered, then sent to its recipients, then
/// acknowledged, so that one that was acknowledged has left the server, and one that is sent again is told.
///
/// All recipients of a post can see the identity of its sender. So an identity stays with the link that has it for as
/// long as that answers: who comes under the same one waits until it is asked, and is turned away if it does.
class BiscottiServer : public Service
{
    Q_OBJECT

public:
    /// All but the parent are borrowed.
    BiscottiServer(TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent = nullptr);
    ~BiscottiServer() override;

    BiscottiBroker& broker() { return _broker; }
    qint64 msNow() const;
    qsizetype sessionCount() const { return _sessions.count(); }
    quint64 postCount() const { return _postCount; }

    /// Of messages that are not whole, of all clients.
    qint64 bytesHeld() const { return _bytesHeld; }

    /// Posts something of the services' own, without a body, to whom it concerns.
    void announce(BiscottiTopic const& topic);

    // For the connections.

    using Client = BiscottiRouter::Client;

    /// Handles a message that wants an acknowledgement. Answers what it is acknowledged with.
    BiscottiBroker::Decision handle(BiscottiConnection& connection, BiscottiRequest const& request);

    /// The session of the client that has said who it is. Null if another link has that identity: that one is asked,
    /// and the connection is told by tryToEnter() when it is over, or is closed when it answers.
    std::shared_ptr<BiscottiSession> enter(BiscottiConnection& connection, QString const& identity);

    /// The connection that has this identity has answered.
    void turnAwayWaiting(QString const& identity);

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
    void callWaiting(QString const& identity);

    BiscottiBroker _broker;
    BiscottiSessions _sessions;
    CentralisedBiscottiMessageEncoder _encoder{nullptr};
    QHash<Client, BiscottiConnection*> _clients;         ///< Borrowed from the base class, by number.
    QHash<QString, BiscottiConnection*> _clientOf;       ///< By identity.
    QHash<QString, QList<BiscottiConnection*>> _waiting; ///< For an identity, the one that came first in front.
    Client _nextClient = 1;
    quint64 _nextMessage = 0;
    quint64 _postCount = 0;
    qint64 _bytesHeld = 0;

    static Logger* log;
};
