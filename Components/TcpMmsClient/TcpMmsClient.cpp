#include "TcpMmsClient.h"

#include "DateTimeBuilder.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "MmsFarewells.h"
#include "TcpMmsFileInfo.h"
#include "TcpMmsPacketizer.h"
#include "TcpMmsSessionHandlers.h"
#include "TcpSocket.h"
#include "TcpSocketFactory.h"

#include <QThread>

#include <algorithm>
#include <utility>

Logger* TcpMmsClient::log = LoggerManager::logger();

TcpMmsClient::TcpMmsClient(QString const& guid, TimerFactory* timerFactory, TcpSocketFactory* tcpSocketFactory,
                           DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue, QObject* parent)
    : AbstractMmsClient(guid, dateTimeBuilder, memoQueue, parent), _timerFactory(timerFactory),
      _tcpSocketFactory(tcpSocketFactory)
{
    _memoQueue->acquire(this);
}

TcpMmsClient::~TcpMmsClient()
{
    _memoQueue->release(this);
    closeSocket();
}

bool TcpMmsClient::getHeader(QUrl const&, int, QByteArray&)
{
    return false;
}

void TcpMmsClient::connectToServer(QUrl const& url, QString const&, int timeout)
{
    _timeout = timeout;
    _url = url;
    closeSocket();
    resetSession();
    _error = NoError;
    _inSession = true;
    _outOfStep = false;
    _isReading = true;
    _isTransportOver = false;
    _socket = _tcpSocketFactory->createTcpSocket(this);
    _socket->setReadBufferSize(sliceBytes);
    connect(_socket, &TcpSocket::connected, this, &TcpMmsClient::transportConnected, Qt::DirectConnection);
    connect(_socket, &TcpSocket::disconnected, this, &TcpMmsClient::transportDisconnected, Qt::DirectConnection);
    connect(_socket, &TcpSocket::readyRead, this, &TcpMmsClient::transportReadyRead, Qt::DirectConnection);
    connect(_socket, &TcpSocket::error, this, &TcpMmsClient::transportError, Qt::DirectConnection);
    _state = Connecting;
    startTimer();
    LOG_INFO("Connecting to %s", qPrintable(_url.toDisplayString()));
    _socket->connectToHost(_url.host(), static_cast<quint16>(_url.port(defaultPort)));
}

void TcpMmsClient::disconnectFromServer()
{
    if (_state == Streaming)
        sendLinkViewerToMacCloseFile();
    _state = Closing;
    _inSession = false;
    closeSocket();
    resetSession();
    LOG_INFO("Disconnecting from %s", qPrintable(_url.toDisplayString()));
}

void TcpMmsClient::closeSocket()
{
    TcpSocket* const socket = std::exchange(_socket, nullptr);
    if (!socket)
        return;
    disconnect(socket, nullptr, this, nullptr);
    socket->flush(); // CloseFile may be on its way.
    if (_farewells && _state == Closing && socket->isValid() && socket->socketDescriptor() >= 0)
        _farewells->letGo(socket->socketDescriptor());
    socket->abort();
    _tcpSocketFactory->disposeTcpSocket(socket);
}

void TcpMmsClient::setMmsFile(TcpMmsFileInfo* file)
{
    _file.reset(file);
    if (_file)
        _file->path = _url.path();
}

void TcpMmsClient::setAuthenticationPackage(QString const& package)
{
    _authenticationPackage = package;
    LOG_DEBUG("Authentication package %s", qPrintable(package));
}

void TcpMmsClient::setServerVersionInfo(QString const& info)
{
    _serverVersionInfo = info;
    LOG_INFO("Server version %s", qPrintable(info));
}

bool TcpMmsClient::addBandwidthCheckPoint()
{
    _bandwidthCheckPoints.append(_dateTimeBuilder->currentDateTime());
    return _bandwidthCheckPoints.size() > 2;
}

void TcpMmsClient::readingHeader()
{
    _state = ReadingHeader;
    _lastMessage = TcpMmsMessage::NoMessage; // All that was asked is answered.
    _expectedLocationId = 0;
    _selectionRefused = false;
    startReadTimer();
}

void TcpMmsClient::readingNewHeader()
{
    readingHeader();
    startTimer();
}

void TcpMmsClient::startStreaming()
{
    if (_state != ReadingHeader) {
        LOG_WARNING("startStreaming() while the state %d", _state);
        return;
    }
    _state = Streaming;
    startReadTimer();
}

void TcpMmsClient::stopStreaming(bool error)
{
    LOG_INFO("Stop streaming");
    endSession(Closing, error ? RemoteServerClosed : EndOfStream);
}

void TcpMmsClient::startTimer()
{
    handleSoon(new MmsTimerHandler(this), _timeout);
}

void TcpMmsClient::startReadTimer()
{
    handleSoon(new MmsReadTimerHandler(this), _timeout);
}

void TcpMmsClient::handleNow(Memo* memo)
{
    handleSoon(memo, 0);
}

void TcpMmsClient::handleSoon(Memo* memo, int ms)
{
    if (_memoQueue->handleSoon(static_cast<unsigned int>(std::max(ms, 0)), memo))
        _handlers.insert(memo);
}

void TcpMmsClient::removeHandler(Memo* memo)
{
    _handlers.remove(memo);
}

void TcpMmsClient::clearHandlers()
{
    for (Memo* const memo : std::as_const(_handlers)) {
        if (auto* const handler = dynamic_cast<TcpMmsMessageHandler*>(memo))
            handler->cancel(); // One may be running.
    }
    _handlers.clear();
    _memoQueue->clear(this);
}

void TcpMmsClient::handleTimeout()
{
    LOG_WARNING("handleTimeout");
    endSession(Unconnected, CouldNotConnected);
}

void TcpMmsClient::handleReadTimeout()
{
    LOG_WARNING("handleReadTimeout");
    endSession(Unconnected, ReadTimeout);
}

void TcpMmsClient::handleError(int result)
{
    constexpr quint32 facilityMask = 0x7FF000;
    constexpr quint32 security = 0x90000;
    constexpr quint32 win32 = 0x70000;
    constexpr quint32 streaming = 0xD0000;
    constexpr quint32 badStreamSelection = 0xC00D0030;

    auto const value = static_cast<quint32>(result);
    quint32 const facility = value & facilityMask;
    QString const url = _url.toDisplayString();
    if (facility == security) {
        LOG_WARNING("Streaming to %s failed because of security problem", qPrintable(url));
    } else if (facility == win32) {
        LOG_WARNING("Streaming to %s failed because of win32 error in server. errno %d", qPrintable(url),
                    static_cast<int>(value & 0xFFFF));
    } else if (facility == streaming && value == badStreamSelection && !_selectionRefused &&
               _lastMessage == TcpMmsMessage::LinkViewerToMacStreamSwitch) {
        _selectionRefused = true; // A server that refuses its own choice too is not asked for ever.
        _selection.clear();
        sendLinkViewerToMacStreamSwitch();
        return;
    } else {
        LOG_WARNING("Streaming to %s failed. Result 0x%08X", qPrintable(url), value);
    }
    endSession(Unconnected, StreamNotAvailable);
}

void TcpMmsClient::resetSession()
{
    clearHandlers();
    _file.reset();
    _lastMessage = TcpMmsMessage::NoMessage;
    _lastSequence = 0;
    _sequence = 0;
    _timeSent = 0;
    _openCounter = 0;
    _playIncarnation = 0;
    _authenticationPackage.clear();
    _serverVersionInfo.clear();
    _receiveBuffer.clear();
    _isSliceUnderWay = false;
    _uselessBytes = 0;
    _headerAllowance = maximumHeaderBytes;
    _headerBuffer.clear();
    _expectedLocationId = 0;
    _selection.clear();
    _selectionRefused = false;
    _streamBitrate = 1;
    _packetSize = -1;
    _bandwidthCheckPoints.clear();
}

void TcpMmsClient::endSession(MmsClientState state, MmsClientError error)
{
    if (!std::exchange(_inSession, false))
        return;
    _state = state;
    closeSocket();
    resetSession();
    _error = error;
    emit done(error); // Nothing after it: the client may be gone.
}

void TcpMmsClient::transportConnected(TcpSocket*)
{
    _state = Connected;
    sendLinkViewerToMacConnect();
    emit connected();
}

void TcpMmsClient::transportDisconnected(TcpSocket*)
{
    // After what came before it: the last data and the end of the stream arrive together with the end of the
    // connection.
    _isTransportOver = true;
    readSlice();
}

void TcpMmsClient::transportReadyRead(TcpSocket*)
{
    readSlice();
}

void TcpMmsClient::setReading(bool reading)
{
    if (std::exchange(_isReading, reading) != reading && reading && _inSession && !_isSliceUnderWay) {
        _isSliceUnderWay = true; // Not from within: the reader asks for it.
        handleNow(new MmsSliceHandler(this));
    }
}

void TcpMmsClient::sliceHandled()
{
    _isSliceUnderWay = false;
    readSlice();
}

/// Reads on, unless nothing is to be read now: a server that is faster than what it sends is handled has to wait.
void TcpMmsClient::readSlice()
{
    if (!_socket || !_isReading || _isSliceUnderWay || QThread::currentThread()->isInterruptionRequested())
        return;
    QByteArray bytes(sliceBytes, Qt::Uninitialized);
    bytes.truncate(std::max<qint64>(0, _socket->read(bytes.data(), bytes.size())));
    if (bytes.isEmpty()) {
        if (_isTransportOver)
            handleNow(new MmsSessionEndHandler(this, Closed, _error));
        return;
    }
    _totalBytes += bytes.size();
    _uselessBytes += bytes.size();
    if (!_outOfStep)
        cutUp(bytes);
    _isSliceUnderWay = true;
    handleNow(new MmsSliceHandler(this));
}

/// Makes memos of the bytes.
void TcpMmsClient::cutUp(QByteArray const& bytes)
{
    _receiveBuffer += bytes;
    TcpMmsPacketizer::Result result = TcpMmsPacketizer::Taken;
    while (result == TcpMmsPacketizer::Taken)
        result = TcpMmsPacketizer::instance().probeBuffer(this, _receiveBuffer);
    bool const isUseless = _uselessBytes > maximumUselessBytes;
    if (isUseless)
        LOG_ERROR("%lld bytes of %s were no media", static_cast<long long>(_uselessBytes),
                  qPrintable(_url.toDisplayString()));
    if (isUseless || result == TcpMmsPacketizer::OutOfStep) {
        _outOfStep = true;
        _receiveBuffer.clear();
        handleNow(new MmsSessionEndHandler(this, Unconnected, StreamNotAvailable));
    }
}

void TcpMmsClient::transportError(TcpSocket*, QAbstractSocket::SocketError error)
{
    switch (static_cast<int>(error)) {
    case QAbstractSocket::ConnectionRefusedError:
        _error = CouldNotConnected;
        break;
    case QAbstractSocket::HostNotFoundError:
        _error = CouldNotResolveServer;
        break;
    case QAbstractSocket::RemoteHostClosedError:
    case QAbstractSocket::NetworkError:
        if (_state != Closing)
            _error = RemoteServerClosed;
        break;
    case QAbstractSocket::ProxyAuthenticationRequiredError:
        _error = ProxyAuthenticationRequiredError;
        break;
    default:
        _error = UnknownError;
    }
    // A connection that never stood is not reported as disconnected.
    if (_state == Connecting)
        handleNow(new MmsSessionEndHandler(this, Closed, _error));
}
