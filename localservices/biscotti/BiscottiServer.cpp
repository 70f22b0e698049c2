#include "BiscottiServer.h"

#include "BiscottiConnection.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiHeartbeat.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TickCounter.h"

Logger* BiscottiServer::log = LoggerManager::logger();

BiscottiServer::BiscottiServer(TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent)
    : Service(QStringLiteral("Biscotti"), tickCounter, timerFactory, parent)
{
}

BiscottiServer::~BiscottiServer()
{
    closeAll();
}

bool BiscottiServer::remember(QString const& path, QString& error)
{
    if (!_journal.open(path, msNow(), error))
        return false;
    for (BiscottiJournal::Entry const& entry : _journal.takeEntries()) {
        std::shared_ptr<BiscottiSession> const session = _sessions.enter(BiscottiSession::identityOf(entry.id));
        session->rememberPost(entry.id);
        _sessions.leave(session, entry.ms);
    }
    return true;
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
    if (_journal.isOpen() && _journal.isFull())
        rewriteJournal();
}

std::shared_ptr<BiscottiSession> BiscottiServer::enter(BiscottiConnection& connection, QString const& identity)
{
    if (identity.isEmpty())
        return std::make_shared<BiscottiSession>();
    if (BiscottiConnection* const older = _clientOf.value(identity))
        older->drop(QStringLiteral("its client has come back as %1").arg(connection.peer()));
    _clientOf.insert(identity, &connection);
    return _sessions.enter(identity);
}

void BiscottiServer::leave(BiscottiConnection& connection)
{
    _clients.remove(connection.client());
    _broker.leave(connection.client());
    std::shared_ptr<BiscottiSession> const session = connection.session();
    if (session && _clientOf.value(session->identity()) == &connection) {
        _clientOf.remove(session->identity());
        _sessions.leave(session, msNow());
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
    if (!connection.session()->identity().isEmpty())
        _journal.append(msNow(), request.id);
    if (!deliver(*post, recipients))
        decision = {CentralisedBiscottiAck::InternalServerError, QStringLiteral("it cannot be written again")};
    return decision;
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

void BiscottiServer::rewriteJournal()
{
    QList<BiscottiJournal::Entry> entries;
    for (std::shared_ptr<BiscottiSession> const& session : _sessions.all()) {
        bool const isHere = _clientOf.contains(session->identity());
        for (CentralisedBiscottiMessageId const& id : session->posts())
            entries.append({isHere ? msNow() : session->msLeft, id});
    }
    if (!_journal.rewrite(entries))
        LOG_ERROR("The file of remembered posts cannot be written anew");
}
