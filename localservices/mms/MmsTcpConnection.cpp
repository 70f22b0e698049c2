#include "MmsTcpConnection.h"

#include "AsfFile.h"
#include "Broadcast.h"
#include "BroadcastCatalogue.h"
#include "ByteCursor.h"
#include "FaultPlan.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsFraming.h"
#include "MmsTcpServer.h"

#include <QDateTime>

#include <algorithm>

Logger* MmsTcpConnection::log = LoggerManager::logger();

namespace
{
constexpr qsizetype largestHeaderPiece = 8192;
constexpr qsizetype smallestHeaderPiece = 512;

/// Up to a final 0 or the end of the bytes.
QString textFromUtf16(QByteArrayView bytes)
{
    QString text;
    ByteCursor cursor(bytes);
    while (cursor.left() >= 2) {
        char16_t const unit = cursor.u16();
        if (unit == 0)
            break;
        text += QChar(unit);
    }
    return text;
}
} // namespace

MmsTcpConnection::MmsTcpConnection(std::unique_ptr<QTcpSocket> socket, MmsTcpServer& server)
    : ServiceConnection(std::move(socket)), _server(server), _msBegin(server.msNow()), _msLastHeard(_msBegin),
      _msLastPing(_msBegin)
{
}

MmsTcpConnection::~MmsTcpConnection()
{
    leave();
}

QString MmsTcpConnection::path() const
{
    return _broadcast ? _broadcast->name() : QString();
}

void MmsTcpConnection::over()
{
    leave();
}

void MmsTcpConnection::leave()
{
    if (_broadcast && _state == State::Playing)
        _broadcast->leave(this);
    _state = std::min(_state, State::Open);
}

void MmsTcpConnection::received(QByteArray const& bytes)
{
    _msLastHeard = _server.msNow();
    if (_silent)
        return;
    _reader.add(bytes);
    while (isOpen() && !isFinishing() && !_silent) {
        std::optional<MmsTcpRequest> const request = _reader.next();
        if (!request)
            break;
        handle(*request);
    }
    if (!_reader.errorText().isEmpty())
        refuse(_reader.errorText());
}

void MmsTcpConnection::check(qint64 msNow)
{
    if (_silent)
        return;
    if (_state == State::New && msNow - _msBegin > msForGreeting)
        return drop(QStringLiteral("its greeting does not come to an end"));
    if (_state != State::Playing && msNow - _msLastHeard > msForRequest)
        return drop(QStringLiteral("no message for %1 s").arg(msForRequest / 1000));
    if (_state == State::Playing && msNow - std::max(_msLastHeard, _msLastPing) > msBetweenPings) {
        _msLastPing = msNow;
        report(MmsTcpReport::Ping, MmsTcpReport::plain(success, 0, 2));
    }
}

void MmsTcpConnection::handle(MmsTcpRequest const& request)
{
    LOG_DEBUG("%s: message 0x%X of %lld bytes", qUtf8Printable(peer()), request.type,
              static_cast<long long>(request.body.size()));
    switch (request.type) {
    case MmsTcpRequest::Connect:
        return connectPlayer();
    case MmsTcpRequest::FunnelInfo: {
        quint32 result = success;
        if (isIn(State::Connected, "measures") && passes(Fault::Step::Measure, result))
            report(MmsTcpReport::FunnelInfo, MmsTcpReport::funnelInfo(result));
        return;
    }
    case MmsTcpRequest::ConnectFunnel:
        return connectFunnel(request.body);
    case MmsTcpRequest::OpenFile:
        return openFile(request.body);
    case MmsTcpRequest::ReadBlock:
        return readBlock(request.body);
    case MmsTcpRequest::StreamSwitch:
        return switchStreams(request.body);
    case MmsTcpRequest::StartPlaying:
        return startPlaying(request.body);
    case MmsTcpRequest::StopPlaying:
        return leave();
    case MmsTcpRequest::CloseFile:
        LOG_INFO("%s: closes %s (stop)", qUtf8Printable(peer()), qUtf8Printable(path()));
        leave();
        _broadcast = nullptr;
        _state = std::min(_state, State::Funnel);
        return;
    default:
        return; // Signs of life, logs, and what is of no use for a broadcast.
    }
}

bool MmsTcpConnection::isIn(State lowest, char const* what)
{
    if (_state >= lowest)
        return true;
    refuse(QStringLiteral("it %1 before its time").arg(QLatin1String(what)));
    return false;
}

bool MmsTcpConnection::passes(Fault::Step step, quint32& result)
{
    using Kind = Fault::Kind;
    std::optional<Fault> const fault = _server.faults().take(
        path(), step, {Kind::Result, Kind::Silent, Kind::CutBytes, Kind::CutHeader, Kind::CutPacket});
    if (!fault)
        return true;
    LOG_INFO("%s: fault %s", qUtf8Printable(peer()), qUtf8Printable(fault->toText()));
    switch (fault->kind) {
    case Kind::Result:
        result = fault->result;
        return true;
    case Kind::Silent:
        leave();
        _silent = true;
        return false;
    case Kind::CutBytes:
        cutAfter(fault->bytes);
        return true;
    case Kind::CutHeader:
        _cutHeader = true;
        return true;
    case Kind::CutPacket:
        _packetsUntilCut = MmsFraming::packetOfCut;
        return true;
    default:
        return true;
    }
}

void MmsTcpConnection::report(MmsTcpReport::Type type, QByteArray const& body)
{
    send(MmsTcpReport::message(type, _sequence++, body));
}

void MmsTcpConnection::connectPlayer()
{
    quint32 result = success;
    if (!passes(Fault::Step::Connect, result))
        return;
    _state = std::max(_state, State::Connected);
    report(MmsTcpReport::ConnectedEx, MmsTcpReport::connectedEx(result));
}

void MmsTcpConnection::connectFunnel(QByteArray const& body)
{
    quint32 result = success;
    if (!isIn(State::Connected, "makes its funnel") || !passes(Fault::Step::Funnel, result))
        return;
    ByteCursor cursor(body, 12);
    _streams.setMaximumBitrate(cursor.u32());
    cursor.skip(4);
    if (!cursor.isValid())
        return refuse(QStringLiteral("its funnel message is too short"));
    QString const transport = textFromUtf16(QByteArrayView(body).sliced(20));
    if (transport.contains(QLatin1String("\\UDP\\"), Qt::CaseInsensitive)) {
        LOG_INFO("%s wants UDP and is told that there is none", qUtf8Printable(peer()));
        return report(MmsTcpReport::DisconnectedFunnel, MmsTcpReport::plain(badParameter, 0, 2));
    }
    _state = std::max(_state, State::Funnel);
    report(MmsTcpReport::ConnectedFunnel, MmsTcpReport::connectedFunnel(result, 0));
}

void MmsTcpConnection::openFile(QByteArray const& body)
{
    if (!isIn(State::Funnel, "opens a stream"))
        return;
    ByteCursor cursor(body);
    quint32 const incarnation = cursor.u32();
    cursor.skip(12);
    if (!cursor.isValid())
        return refuse(QStringLiteral("its open message is too short"));
    QString const asked = textFromUtf16(QByteArrayView(body).sliced(16));
    leave();
    _broadcast = _server.catalogue().find(asked);
    quint32 result = _broadcast ? success : fileNotFound;
    if (_broadcast && !_server.catalogue().admits(*_broadcast, asked, QDateTime::currentSecsSinceEpoch()))
        result = accessDenied;
    LOG_INFO("%s: opens %s%s", qUtf8Printable(peer()), qUtf8Printable(asked.section('?', 0, 0).left(200)),
             result == success        ? ""
             : result == accessDenied ? ", which wants a valid token"
                                      : ", which is not here");
    if (!passes(Fault::Step::Open, result))
        return;
    if (result & 0x80000000)
        _broadcast = nullptr;
    _state = _broadcast ? State::Open : State::Funnel;
    if (_broadcast)
        _streams.choose(_broadcast->film().header(), {});
    report(MmsTcpReport::OpenFile, MmsTcpReport::openFile(result, incarnation, _broadcast));
}

void MmsTcpConnection::readBlock(QByteArray const& body)
{
    quint32 result = success;
    if (!isIn(State::Open, "reads the header") || !passes(Fault::Step::Read, result))
        return;
    ByteCursor cursor(body, 40);
    quint32 const incarnation = cursor.u32();
    if (incarnation != 0)
        _headerIncarnation = static_cast<quint8>(incarnation);
    report(MmsTcpReport::ReadBlock, MmsTcpReport::plain(result, incarnation, 3));
    if (!(result & 0x80000000))
        sendHeader();
}

void MmsTcpConnection::sendHeader()
{
    QByteArray const header = _headerSent = _broadcast->header();
    qsizetype const pieceSize =
        std::clamp<qsizetype>(_broadcast->film().header().packetSize(), smallestHeaderPiece, largestHeaderPiece);
    if (_cutHeader)
        cutAfter(header.size() / 2);
    for (MmsFraming::Piece const& piece : MmsFraming::pieces(header, pieceSize, _headerIncarnation))
        send(MmsFraming::record(piece.record, piece.payload));
}

void MmsTcpConnection::switchStreams(QByteArray const& body)
{
    quint32 result = success;
    if (!isIn(State::Open, "switches streams") || !passes(Fault::Step::Switch, result))
        return;
    ByteCursor cursor(body);
    quint32 const count = cursor.u32();
    QList<StreamSelection::Switch> switches;
    for (quint32 i = 0; i < count && i < maximumSwitches && cursor.isValid(); ++i) {
        StreamSelection::Switch wish;
        wish.from = cursor.u16();
        wish.to = cursor.u16();
        quint16 const value = cursor.u16();
        if (cursor.isValid() && value <= StreamSelection::Off) {
            wish.value = static_cast<StreamSelection::Value>(value);
            switches.append(wish);
        }
    }
    if (result == success && (count > maximumSwitches || !cursor.isValid()))
        result = badParameter;
    if (!(result & 0x80000000) && _state == State::Playing)
        _streams.change(_broadcast->film().header(), switches);
    else if (!(result & 0x80000000))
        _streams.choose(_broadcast->film().header(), switches);
    report(MmsTcpReport::StreamSwitch, MmsTcpReport::plain(result, 0, 1));
}

void MmsTcpConnection::startPlaying(QByteArray const& body)
{
    quint32 result = success;
    if (!isIn(State::Open, "plays") || !passes(Fault::Step::Start, result))
        return;
    ByteCursor cursor(body, 28);
    quint32 const incarnation = cursor.u32();
    if (!cursor.isValid())
        return refuse(QStringLiteral("its start message is too short"));
    leave();
    _incarnation = static_cast<quint8>(incarnation);
    report(MmsTcpReport::StartedPlaying, MmsTcpReport::plain(result, incarnation, 4));
    if ((result & 0x80000000) || !isOpen())
        return;
    _state = State::Playing;
    if (_headerSent == _broadcast->header())
        _broadcast->join(this);
    else
        headerChanged(Change::Header); // While it was on its way here, and was not told.
}

void MmsTcpConnection::packetArrived(SharedPacket const& packet)
{
    QByteArray const frame = _streams.frame(packet, {false, _incarnation});
    if (frame.isEmpty())
        return;
    if (_packetsUntilCut > 0 && --_packetsUntilCut == 0)
        cutAfter(frame.size() / 2);
    send(frame);
}

/// The player reads the new header, switches streams and starts anew.
void MmsTcpConnection::headerChanged(Change change)
{
    leave();
    if (change == Change::NextEntry)
        report(MmsTcpReport::EndOfStream, MmsTcpReport::plain(moreFollows, _incarnation, 2));
    report(MmsTcpReport::StreamChange, MmsTcpReport::plain(success, 0, 6));
    _streams.applyTo(_broadcast->film().header());
    sendHeader();
}

void MmsTcpConnection::ended()
{
    leave();
    report(MmsTcpReport::EndOfStream, MmsTcpReport::plain(success, _incarnation, 2));
}
