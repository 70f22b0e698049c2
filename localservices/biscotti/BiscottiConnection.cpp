#include "BiscottiConnection.h"

#include "BiscottiLimits.h"
#include "BiscottiServer.h"
#include "CentralisedBiscottiGreeting.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>
#include <utility>

Logger* BiscottiConnection::log = LoggerManager::logger();

namespace
{

constexpr qint64 msShortestHeartbeat = 1000;
CentralisedBiscottiVersion const protocolVersion(1, 0);
CentralisedBiscottiVersion const messageVersion(1, 0);

/// A text from the network as it may stand in a line of the log.
QString printable(QString const& text)
{
    constexpr qsizetype maximumCharacters = 80;
    QString result = text.left(maximumCharacters);
    for (QChar& character : result) {
        if (!character.isPrint())
            character = u'?';
    }
    return result;
}

} // namespace

BiscottiConnection::BiscottiConnection(std::unique_ptr<QTcpSocket> socket, BiscottiServer& server,
                                       BiscottiRouter::Client client)
    : ServiceConnection(std::move(socket)), _server(server), _client(client), _msBegin(server.msNow()),
      _msLastHeard(_msBegin), _msLastSent(_msBegin)
{
}

void BiscottiConnection::over()
{
    forgetUnread();
    _server.leave(*this);
}

void BiscottiConnection::received(QByteArray const& bytes)
{
    _msLastHeard = _server.msNow();
    if (_msAsked)
        answered();
    if (_isGreeted) {
        _reader.add(bytes);
    } else {
        _greeting += bytes;
        readGreeting();
    }
    if (_isGreeted)
        readMessages();
}

void BiscottiConnection::readGreeting()
{
    if (_server.broker().rules().isSilent)
        return _greeting.clear();
    qsizetype const end = _greeting.indexOf('\n') + 1;
    if (std::max(end, end == 0 ? _greeting.size() : 0) > CentralisedBiscottiGreeting::maximumLineBytes)
        return refuse(
            QStringLiteral("its greeting has more than %1 bytes").arg(CentralisedBiscottiGreeting::maximumLineBytes));
    if (end == 0)
        return;
    auto const greeting = CentralisedBiscottiGreeting::fromLine(_greeting.first(end));
    if (!greeting)
        return refuse(QStringLiteral("\"%1\" is no greeting")
                          .arg(printable(QString::fromLatin1(_greeting.first(end)).trimmed())));
    _reader.add(_greeting.sliced(end));
    _greeting.clear();
    answerGreeting(*greeting);
}

void BiscottiConnection::answerGreeting(CentralisedBiscottiGreeting const& greeting)
{
    QString const notes = QStringLiteral("MDWMS=%1").arg(_server.broker().rules().maxDataWaitMs);
    sendNow(CentralisedBiscottiGreeting(protocolVersion, messageVersion, notes).toLine());
    if (!greeting.protocolVersion().isCompatible(protocolVersion) ||
        !greeting.messageVersion().isCompatible(messageVersion))
        return refuse(QStringLiteral("it speaks version %1 / %2, here is %3 / %4")
                          .arg(greeting.protocolVersion().toString(), greeting.messageVersion().toString(),
                               protocolVersion.toString(), messageVersion.toString()));
    _isGreeted = true;
}

void BiscottiConnection::readMessages()
{
    while (!isFinishing() && !_waiting) {
        qsizetype const bytes = _reader.bytesHeld();
        std::optional<BiscottiRequest> const request = _reader.next();
        if (!request)
            break;
        _msMessage = 0;
        _session ? handle(*request) : enter(*request, bytes - _reader.bytesHeld());
    }
    if (isFinishing())
        return forgetUnread();
    if (!hold(_reader.bytesHeld() + _bytesWaiting))
        drop(QStringLiteral("all clients together send too much that does not come to an end"));
    else if (_reader.isOutOfStep())
        refuse(QStringLiteral("what it sends is no message, or is too large"));
    else if (_reader.bytesHeld() > 0 && _msMessage == 0)
        _msMessage = _msLastHeard;
}

bool BiscottiConnection::hold(qint64 bytes)
{
    qint64 const more = bytes - std::exchange(_bytesHeld, bytes);
    return _server.hold(more) || more <= 0;
}

/// What a connection that ends has still sent will not be read.
void BiscottiConnection::forgetUnread()
{
    _reader.clear();
    _waiting.reset();
    _bytesWaiting = 0;
    hold(0);
}

void BiscottiConnection::enter(BiscottiRequest const& request, qsizetype bytes)
{
    _identity = BiscottiSession::identityOf(request.id);
    if (_identity.size() > BiscottiLimits::id)
        _identity.clear();
    _session = _server.enter(*this, _identity);
    if (_session)
        return handle(request);
    _waiting = request;
    _bytesWaiting = bytes;
    pauseReading();
}

void BiscottiConnection::tryToEnter()
{
    if (isFinishing() || !(_session = _server.enter(*this, _identity)))
        return;
    _bytesWaiting = 0;
    handle(*std::exchange(_waiting, std::nullopt));
    readMessages();
    resumeReading();
}

void BiscottiConnection::turnAway()
{
    refuse(QStringLiteral("another link of its client is there"));
    forgetUnread();
}

void BiscottiConnection::askWhetherItIsThere()
{
    if (_msAsked)
        return;
    _msAsked = _server.msNow();
    deliver(_server.heartbeat());
}

/// A client answers no message, but its system does: one that is gone, or beyond a broken network, takes nothing.
void BiscottiConnection::checkWhetherItIsThere(qint64 msNow)
{
    if (hasTakenAll())
        answered();
    else if (msNow - *_msAsked >= msForAnswer)
        drop(QStringLiteral("it does not answer, and its client has come back"));
}

void BiscottiConnection::answered()
{
    _msAsked.reset();
    _server.turnAwayWaiting(_identity);
}

void BiscottiConnection::handle(BiscottiRequest const& request)
{
    if (!request.wantsAck() || _server.broker().rules().isSilent)
        return;
    BiscottiBroker::Decision const decision = _server.handle(*this, request);
    QString const id = printable(request.id.toString());
    if (decision.code != CentralisedBiscottiAck::Ok)
        LOG_INFO("%s: message %s gets %d: %s", qUtf8Printable(peer()), qUtf8Printable(id), decision.code,
                 qUtf8Printable(printable(decision.why)));
    if (request.id.isNull())
        return refuse(QStringLiteral("it sends a message that cannot be read, and has no id"));
    // An id that is too long to be taken is too long to be repeated.
    if (request.id.toString().size() > BiscottiLimits::id)
        return refuse(QStringLiteral("it sends a message id of %1 characters").arg(request.id.toString().size()));
    sendNow(_server.acknowledgement(request.id, decision.code));
    if (decision.code == CentralisedBiscottiAck::Malformed && ++_malformed >= BiscottiLimits::malformedMessages)
        refuse(QStringLiteral("%1 of its messages made no sense").arg(_malformed));
}

void BiscottiConnection::deliver(QByteArray const& bytes)
{
    if (!_server.broker().rules().isSilent)
        sendNow(bytes);
}

void BiscottiConnection::sendNow(QByteArray const& bytes)
{
    _msLastSent = _server.msNow();
    if (send(bytes))
        flush();
}

void BiscottiConnection::check(qint64 msNow)
{
    if (!_isGreeted && msNow - _msBegin > msForGreeting && !_server.broker().rules().isSilent)
        return refuse(QStringLiteral("it does not greet"));
    if (_msAsked)
        checkWhetherItIsThere(msNow);
    if (msNow - _msLastHeard > msOfSilence)
        return refuse(QStringLiteral("it has been silent for %1 s").arg((msNow - _msLastHeard) / 1000));
    if (_msMessage != 0 && msNow - _msMessage > msForMessage)
        return refuse(QStringLiteral("its message does not come to an end"));
    BiscottiRules const& rules = _server.broker().rules();
    qint64 const msBetween = std::clamp(rules.maxDataWaitMs / 3, msShortestHeartbeat, msBetweenHeartbeats);
    if (_isGreeted && !rules.isSilent && msNow - _msLastSent >= msBetween)
        sendNow(_server.heartbeat());
}
