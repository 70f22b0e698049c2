#include "CentralisedBiscottiLink.h"

#include "CentralisedBiscotti.h"
#include "CentralisedBiscottiGreeting.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TcpSocket.h"
#include "TcpSocketFactory.h"
#include "TickCounter.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <utility>

Logger* CentralisedBiscottiLink::log = LoggerManager::logger();

namespace
{

constexpr qint64 readSize = 4096;

} // namespace

CentralisedBiscottiLink::CentralisedBiscottiLink(CentralisedBiscotti* client, TickCounter* ticker,
                                                 TcpSocketFactory* socketFactory, QString const& host,
                                                 unsigned short port)
    : _client(client), _ticker(ticker), _socketFactory(socketFactory), _host(host), _port(port),
      _lastSendMs(ticker->msSinceEpoch()), _lastReceiveMs(_lastSendMs), _lastMessageMs(_lastSendMs),
      _maxDataWaitMs(CentralisedBiscotti::DefaultMaxDataWaitMs),
      _random(static_cast<int>(QRandomGenerator::system()->generate())), _policy(*ticker, _random),
      _notBeforeMs(_lastSendMs)
{
}

CentralisedBiscottiLink::~CentralisedBiscottiLink()
{
    dispose();
}

void CentralisedBiscottiLink::createSocket()
{
    _socket = _socketFactory->createTcpSocket(nullptr);
    _socket->setReadBufferSize(maximumUnreadBytes);
    // At once on the socket's thread, which is this one: the slots only post memos.
    using Client = CentralisedBiscotti;
    QObject::connect(_socket, &TcpSocket::connected, _client, &Client::onConnected, Qt::DirectConnection);
    QObject::connect(_socket, &TcpSocket::disconnected, _client, &Client::onDisconnected, Qt::DirectConnection);
    QObject::connect(_socket, &TcpSocket::error, _client, &Client::onError, Qt::DirectConnection);
    QObject::connect(_socket, &TcpSocket::readyRead, _client, &Client::onReadyRead, Qt::DirectConnection);
}

void CentralisedBiscottiLink::dispose()
{
    _socketFactory->disposeTcpSocket(std::exchange(_socket, nullptr));
}

void CentralisedBiscottiLink::connectToHost()
{
    if (QAbstractSocket::SocketState const state = _socket->state(); state != QAbstractSocket::UnconnectedState) {
        LOG_DEBUG("Still negotiating connection to Biscotti server (state is %d)...", static_cast<int>(state));
        return;
    }
    qint64 const now = _ticker->msSinceEpoch();
    if (now < _notBeforeMs) {
        LOG_DEBUG("Waiting for %lldms before the next connection to Biscotti server...", _notBeforeMs - now);
        return;
    }
    LOG_DEBUG("Connecting to Biscotti server...");
    noteReceive(); // The server cannot have been heard while there was no link.
    _socket->connectToHost(_host, _port);
}

void CentralisedBiscottiLink::leaveOutOfStep()
{
    LOG_WARNING("Messages from Biscotti server are out of step; disconnecting.");
    _isOutOfStep = true;
    disconnectFromHost();
}

std::optional<int> CentralisedBiscottiLink::end()
{
    int const delay = _policy.nextDelay();
    if (!std::exchange(_isOutOfStep, false))
        return std::nullopt;
    _notBeforeMs = _ticker->msSinceEpoch() + delay;
    return delay;
}

void CentralisedBiscottiLink::reset()
{
    _greeting = Greeting::Awaited;
    _serverProtocolVersion = CentralisedBiscottiVersion::Null();
    _serverMessageVersion = CentralisedBiscottiVersion::Null();
    noteSend();
    noteReceive();
}

bool CentralisedBiscottiLink::sendGreeting()
{
    QByteArray const line = CentralisedBiscottiGreeting(CentralisedBiscotti::ClientProtocolVersion,
                                                        CentralisedBiscotti::ClientMessageVersion,
                                                        CentralisedBiscotti::HandshakeArguments)
                                .toLine();
    LOG_INFO("Connected to CentralisedBiscottiServer: %s", line.trimmed().constData());
    return sendMessage(line);
}

/// Whether there is a line, or more bytes than a line may have.
bool CentralisedBiscottiLink::isGreetingWhole() const
{
    return _socket->canReadLine() || _socket->bytesAvailable() >= CentralisedBiscottiGreeting::maximumLineBytes;
}

CentralisedBiscottiLink::Greeting CentralisedBiscottiLink::readGreeting()
{
    if (_greeting != Greeting::Awaited || !isGreetingWhole())
        return _greeting;
    std::array<char, CentralisedBiscottiGreeting::maximumLineBytes + 1> buffer{};
    qint64 const size = _socket->readLine(buffer.data(), buffer.size());
    if (size <= 0 || buffer[static_cast<size_t>(size - 1)] != '\n') {
        LOG_WARNING("Could not read greeting from server.");
        return refuse();
    }
    return _greeting = judgeGreeting(QByteArray(buffer.data(), size));
}

CentralisedBiscottiLink::Greeting CentralisedBiscottiLink::judgeGreeting(QByteArray const& line)
{
    LOG_INFO("CentralisedBiscottiServer: %s", line.trimmed().constData());
    auto const greeting = CentralisedBiscottiGreeting::fromLine(line);
    if (!greeting) {
        LOG_WARNING("Invalid greeting returned by Biscotti server.");
        return refuse();
    }
    _serverProtocolVersion = greeting->protocolVersion();
    _serverMessageVersion = greeting->messageVersion();
    QByteArray const serverProtocol = _serverProtocolVersion.toString().toUtf8();
    QByteArray const serverMessage = _serverMessageVersion.toString().toUtf8();
    QByteArray const clientProtocol = CentralisedBiscotti::ClientProtocolVersion.toString().toUtf8();
    QByteArray const clientMessage = CentralisedBiscotti::ClientMessageVersion.toString().toUtf8();
    LOG_DEBUG("CentralisedBiscottiClient is version %s / %s.", clientProtocol.constData(), clientMessage.constData());
    LOG_DEBUG("CentralisedBiscottiServer is version %s / %s.", serverProtocol.constData(), serverMessage.constData());
    if (!_serverProtocolVersion.isCompatible(CentralisedBiscotti::ClientProtocolVersion) ||
        !_serverMessageVersion.isCompatible(CentralisedBiscotti::ClientMessageVersion)) {
        LOG_ERROR("Biscotti server (%s / %s) is incompatible with client (%s / %s).", serverProtocol.constData(),
                  serverMessage.constData(), clientProtocol.constData(), clientMessage.constData());
        return refuse();
    }
    readNotes(*greeting);
    _policy.succeeded();
    return Greeting::Accepted;
}

void CentralisedBiscottiLink::readNotes(CentralisedBiscottiGreeting const& greeting)
{
    LOG_DEBUG("Biscotti server notes: %s", qUtf8Printable(greeting.notes()));
    if (!greeting.hasMaxDataWait()) {
        LOG_DEBUG(" - None relevant");
    } else if (auto const maxDataWaitMs = greeting.maxDataWaitMs()) {
        LOG_DEBUG(" - Maximum data wait from server: %lldms", *maxDataWaitMs);
        setMaxDataWaitMs(*maxDataWaitMs);
    } else {
        LOG_WARNING(" - Could not parse maximum data wait time. Using default.");
        setMaxDataWaitMs(CentralisedBiscotti::DefaultMaxDataWaitMs);
    }
}

CentralisedBiscottiLink::Greeting CentralisedBiscottiLink::refuse()
{
    _greeting = Greeting::Refused;
    disconnectFromHost();
    return _greeting;
}

bool CentralisedBiscottiLink::sendMessage(QByteArray const& bytes)
{
    if (!_socket || !_socket->isValid()) {
        LOG_WARNING("Socket is not ready to write.");
        return false;
    }
    if (_socket->write(bytes) != bytes.size() || !_socket->flush()) {
        LOG_WARNING("Error writing to server.");
        return false;
    }
    LOG_DEBUG("Sent %d bytes to server.", static_cast<int>(bytes.size()));
    return true;
}

QByteArray CentralisedBiscottiLink::readMessageBytes()
{
    QByteArray bytes(std::min<qint64>(readSize, _socket->bytesAvailable()), Qt::Uninitialized);
    bytes.truncate(std::max<qint64>(0, _socket->read(bytes.data(), bytes.size())));
    LOG_DEBUG("Read %d new bytes.", static_cast<int>(bytes.size()));
    return bytes;
}

void CentralisedBiscottiLink::disconnectFromHost()
{
    if (!_socket)
        return;
    // A server that does not read would keep a link open for ever that waits until all is written.
    if (_socket->state() == QAbstractSocket::ClosingState)
        _socket->abort();
    else
        _socket->disconnectFromHost();
}

void CentralisedBiscottiLink::noteSend()
{
    _lastSendMs = _ticker->msSinceEpoch();
}

void CentralisedBiscottiLink::noteReceive()
{
    _lastReceiveMs = _ticker->msSinceEpoch();
}

void CentralisedBiscottiLink::noteMessage()
{
    _lastMessageMs = _ticker->msSinceEpoch();
}
