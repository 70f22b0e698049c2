#include "BiscottiServer.h"

#include "BiscottiConnection.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiHeartbeat.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"

#include <QUuid>

Logger* BiscottiServer::log = LoggerManager::logger();

BiscottiServer::BiscottiServer(TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent)
    : Service(QStringLiteral("Biscotti"), tickCounter, timerFactory, parent)
{
}

BiscottiServer::~BiscottiServer()
{
    closeAll();
}

qint64 BiscottiServer::msNow() const
{
    return tickCounter().msSinceEpoch();
}

ServiceConnection* BiscottiServer::createConnection(std::unique_ptr<QTcpSocket> socket)
{
    auto* const connection = new BiscottiConnection(std::move(socket), *this, _nextClient);
    _clients.insert(_nextClient++, connection);
    return connection;
}

void BiscottiServer::lookAfter(qint64 msNow)
{
    _sessions.forgetOld(msNow);
}

std::shared_ptr<BiscottiSession> BiscottiServer::enter(BiscottiConnection& connection, QString const& identity)
{
    if (identity.isEmpty())
        return std::make_shared<BiscottiSession>();
    if (BiscottiConnection* const older = _clientOf.value(identity)) {
        _waiting[identity].append(&connection);
        older->askWhetherItIsThere();
        return nullptr;
    }
    _clientOf.insert(identity, &connection);
    return _sessions.enter(identity);
}

void BiscottiServer::turnAwayWaiting(QString const& identity)
{
    QList<BiscottiConnection*> const waiting = _waiting.take(identity);
    for (BiscottiConnection* const connection : waiting)
        connection->turnAway();
}

/// The first one gets in, and the others wait for that one.
void BiscottiServer::callWaiting(QString const& identity)
{
    QList<BiscottiConnection*> const waiting = _waiting.take(identity);
    for (BiscottiConnection* const connection : waiting)
        connection->tryToEnter();
}

void BiscottiServer::leave(BiscottiConnection& connection)
{
    _clients.remove(connection.client());
    _broker.leave(connection.client());
    if (auto const waiting = _waiting.find(connection.identity()); waiting != _waiting.end())
        waiting->removeAll(&connection);
    std::shared_ptr<BiscottiSession> const session = connection.session();
    if (session && _clientOf.value(session->identity()) == &connection) {
        _clientOf.remove(session->identity());
        _sessions.leave(session, msNow());
        // Not from within the end of a connection, which may come in the middle of anything.
        QMetaObject::invokeMethod(
            this, [this, identity = session->identity()] { callWaiting(identity); }, Qt::QueuedConnection);
    }
}

bool BiscottiServer::hold(qint64 bytes)
{
    _bytesHeld += bytes;
    return _bytesHeld <= BiscottiLimits::bytesHeld;
}

BiscottiBroker::Decision BiscottiServer::handle(BiscottiConnection& connection, BiscottiRequest const& request)
{
    QSet<Client> recipients;
    BiscottiBroker::Decision decision =
        _broker.handle(connection.client(), *connection.session(), request, recipients);
    auto const* const post = std::get_if<BiscottiPost>(&request.body);
    if (decision.code != CentralisedBiscottiAck::Ok || !post)
        return decision;
    ++_postCount;
    if (!deliver(*post, recipients))
        decision = {CentralisedBiscottiAck::InternalServerError, QStringLiteral("it cannot be written again")};
    return decision;
}

void BiscottiServer::announce(BiscottiTopic const& topic)
{
    BiscottiPost post;
    post.setPostId(BiscottiPostId(QUuid::createUuid().toString(QUuid::WithoutBraces)));
    post.setSenderId(QStringLiteral("localservices"));
    post.setTopic(topic);
    deliver(post, _broker.router().recipients(post));
}

bool BiscottiServer::deliver(BiscottiPost const& post, QSet<Client> const& recipients)
{
    LOG_DEBUG("%lld clients for %s", static_cast<long long>(recipients.size()), qUtf8Printable(post.toShortString()));
    QByteArray const bytes = _encoder.encodePost(nextId(), post, {});
    if (bytes.isEmpty())
        return false;
    for (Client const client : recipients) {
        if (BiscottiConnection* const connection = _clients.value(client))
            connection->deliver(bytes);
    }
    return true;
}

QByteArray BiscottiServer::acknowledgement(CentralisedBiscottiMessageId const& id, BiscottiBroker::AckCode code)
{
    CentralisedBiscottiAck ack;
    ack.setAckMsgId(id);
    ack.setAckCode(code);
    return _encoder.encodeAck(nextId(), ack, {});
}

QByteArray BiscottiServer::heartbeat()
{
    return _encoder.encodeHeartbeat(nextId(), CentralisedBiscottiHeartbeat(), {});
}

/// A number is enough: a client compares no ids of the server's messages.
CentralisedBiscottiMessageId BiscottiServer::nextId()
{
    return CentralisedBiscottiMessageId(QStringLiteral("server,%1").arg(_nextMessage++));
}
