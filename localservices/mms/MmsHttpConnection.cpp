#include "MmsHttpConnection.h"

#include "AsfFile.h"
#include "Broadcast.h"
#include "BroadcastCatalogue.h"
#include "FaultPlan.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsFraming.h"
#include "MmsHttpServer.h"
#include "StreamDocuments.h"

#include <QDateTime>

Logger* MmsHttpConnection::log = LoggerManager::logger();

namespace
{
constexpr quint32 reasonEnd = 0;       // Of an "E" chunk.
constexpr quint32 reasonNextEntry = 1; // Of an "E" chunk: another entry follows.
char const* const describeType = "Content-Type: application/vnd.ms.wms-hdr.asfv1";
char const* const playType = "Content-Type: application/x-mms-framed";
char const* const notCached = "Cache-Control: no-cache";
char const* const supported = "Supported: com.microsoft.wm.predstrm, com.microsoft.wm.sswitch";

QByteArray serverLine()
{
    return "Server: Ombravision-localservices/" OMBRAVISION_VERSION;
}

QByteArray streamPragma(quint32 clientId)
{
    return "Pragma: no-cache,client-id=" + QByteArray::number(clientId) +
           ",features=\"broadcast,playlist\",timeout=60000";
}

QByteArray playlistChunk(Broadcast const& broadcast)
{
    QByteArray const text = "playlist-gen-id=" + QByteArray::number(broadcast.playlistGeneration()) +
                            ", broadcast-id=1, features=\"broadcast,playlist\"" + '\0';
    return MmsFraming::chunk('M', {0, 0, MmsFraming::onlyPiece}, text);
}

QByteArray headerChunks(Broadcast const& broadcast)
{
    QByteArray chunks;
    for (MmsFraming::Piece const& piece : MmsFraming::pieces(broadcast.header(), MmsFraming::maximumPayload, 0))
        chunks += MmsFraming::chunk('H', piece.record, piece.payload);
    return chunks;
}
} // namespace

MmsHttpConnection::MmsHttpConnection(std::unique_ptr<QTcpSocket> socket, MmsHttpServer& server)
    : ServiceConnection(std::move(socket)), _server(server), _msLastRequest(server.msNow()),
      _msRequestBegin(_msLastRequest)
{
}

MmsHttpConnection::~MmsHttpConnection()
{
    leave();
}

void MmsHttpConnection::over()
{
    leave();
}

void MmsHttpConnection::leave()
{
    if (!_broadcast)
        return;
    _broadcast->leave(this);
    _broadcast = nullptr;
    _server.removePlayer(_clientId, this);
}

void MmsHttpConnection::received(QByteArray const& bytes)
{
    QByteArray rest = bytes;
    // What a client says while it plays, or after an answer that ends the connection, is of no interest.
    while (!isFinishing() && !_broadcast && !_silent) {
        HttpRequestReader::Result const result = _reader.next(rest);
        rest.clear();
        if (result == HttpRequestReader::Result::Incomplete) {
            if (_reader.isInRequest() && !std::exchange(_isInRequest, true))
                _msRequestBegin = _server.msNow();
            return;
        }
        _isInRequest = false;
        _msLastRequest = _server.msNow();
        if (result == HttpRequestReader::Result::Bad) {
            LOG_WARNING("%s: bad request, answered with %d", qUtf8Printable(peer()), _reader.status());
            _keepAlive = false;
            return reply(_reader.status(), {}, {});
        }
        handle(_reader.request());
        if (!_keepAlive)
            return;
    }
}

void MmsHttpConnection::check(qint64 msNow)
{
    if (_broadcast || _silent)
        return;
    if (_isInRequest && msNow - _msRequestBegin > msForRequest)
        drop(QStringLiteral("its request does not come to an end"));
    else if (msNow - _msLastRequest > msBetweenRequests)
        drop(QStringLiteral("no request for %1 s").arg(msBetweenRequests / 1000));
}

void MmsHttpConnection::handle(HttpRequest const& http)
{
    MmsHttpRequest const request(http);
    QByteArray const connection = http.value("connection").toLower();
    _keepAlive = http.minorVersion >= 1 ? connection != "close" : connection == "keep-alive";
    _withBody = http.method != "HEAD";
    LOG_INFO("%s: %s %s (%s)", qUtf8Printable(peer()), http.method.constData(), qUtf8Printable(request.path()),
             qUtf8Printable(Fault::nameOf(request.step())));
    if (http.method != "GET" && http.method != "POST" && http.method != "HEAD")
        return reply(405, {"Allow: GET, HEAD, POST"}, {});
    if (handleFault(request))
        return;
    switch (request.step()) {
    case Fault::Step::Select:
        return select(request);
    case Fault::Step::Stop:
        return stop(request);
    case Fault::Step::Log:
        LOG_DEBUG("%s: log of %s: %s", qUtf8Printable(peer()), qUtf8Printable(request.path()), http.body.constData());
        return reply(200, {}, {});
    case Fault::Step::Describe:
    case Fault::Step::Play:
        break;
    default:
        return reply(200, {}, {});
    }
    if (Broadcast* const broadcast = _server.catalogue().find(request.path())) {
        if (!_server.catalogue().admits(*broadcast, QString::fromUtf8(http.target),
                                        QDateTime::currentSecsSinceEpoch()))
            return reply(403, {"Content-Type: text/plain;charset=UTF-8"}, "This stream wants a valid token.\n");
        if (request.step() == Fault::Step::Play)
            return play(request, *broadcast);
        return describe(request, *broadcast);
    }
    std::optional<StreamDocuments::Document> const document =
        _server.documents() ? _server.documents()->find(request.path(), http.value("host")) : std::nullopt;
    if (document)
        return reply(200, {"Content-Type: " + document->type, notCached}, document->content);
    reply(404, {"Content-Type: text/plain;charset=UTF-8"}, "There is no such stream here.\n");
}

/// Does what is to go wrong with this request. True when that is all that happens.
bool MmsHttpConnection::handleFault(MmsHttpRequest const& request)
{
    using Kind = Fault::Kind;
    bool const isStream = request.step() == Fault::Step::Describe || request.step() == Fault::Step::Play;
    std::optional<Fault> fault = _server.faults().take(request.path(), request.step(), {Kind::Status, Kind::Silent});
    if (!fault && isStream)
        fault =
            _server.faults().take(request.path(), request.step(), {Kind::CutBytes, Kind::CutHeader, Kind::CutPacket});
    if (!fault && request.step() == Fault::Step::Select)
        fault = _server.faults().take(request.path(), request.step(), {Kind::Reset});
    if (!fault)
        return false;
    LOG_INFO("%s: fault %s", qUtf8Printable(peer()), qUtf8Printable(fault->toText()));
    switch (fault->kind) {
    case Kind::Status:
        reply(fault->status,
              fault->location.isEmpty() ? QByteArrayList() : QByteArrayList{"Location: " + fault->location.toUtf8()},
              {});
        return true;
    case Kind::Silent:
        _silent = true;
        return true;
    case Kind::Reset:
        reply(200, {"Pragma: xResetStrm=1"}, {});
        return true;
    case Kind::CutBytes:
        cutAfter(fault->bytes);
        return false;
    case Kind::CutHeader:
        if (Broadcast const* const broadcast = _server.catalogue().find(request.path()))
            _bytesOfHeaderUntilCut = broadcast->header().size() / 2;
        return false;
    case Kind::CutPacket:
        _packetsUntilCut = MmsFraming::packetOfCut;
        return false;
    default:
        return false;
    }
}

void MmsHttpConnection::describe(MmsHttpRequest const& request, Broadcast const& broadcast)
{
    _knowsPlaylists = request.knowsPlaylists();
    quint32 const clientId = request.clientId() ? request.clientId() : _server.newClientId();
    reply(200, {describeType, streamPragma(clientId), notCached, supported}, headerChunks(broadcast));
}

void MmsHttpConnection::play(MmsHttpRequest const& request, Broadcast& broadcast)
{
    _path = broadcast.name();
    _clientId = request.clientId() ? request.clientId() : _server.newClientId();
    _knowsPlaylists = request.knowsPlaylists();
    _streams.setMaximumBitrate(request.linkBandwidth());
    _streams.choose(broadcast.film().header(), request.switches());
    _keepAlive = false;
    QByteArrayList const lines = {"HTTP/1.1 200 OK", serverLine(), playType,           streamPragma(_clientId),
                                  notCached,         supported,    "Connection: close"};
    QByteArray start = lines.join("\r\n") + "\r\n\r\n";
    if (_knowsPlaylists)
        start += playlistChunk(broadcast);
    if (_bytesOfHeaderUntilCut >= 0)
        cutAfter(start.size() + _bytesOfHeaderUntilCut);
    if (!send(start + headerChunks(broadcast)))
        return;
    _broadcast = &broadcast;
    _server.addPlayer(_clientId, this);
    broadcast.join(this);
}

void MmsHttpConnection::select(MmsHttpRequest const& request)
{
    MmsHttpConnection* const player = _server.player(request.clientId());
    if (!player || player->path() != request.path()) {
        LOG_INFO("%s: client %u, who selects streams, plays nothing here", qUtf8Printable(peer()),
                 request.clientId());
        return reply(404, {}, {});
    }
    player->setSwitches(request.switches());
    reply(200, {streamPragma(request.clientId()), notCached}, {});
}

void MmsHttpConnection::stop(MmsHttpRequest const& request)
{
    reply(200, {streamPragma(request.clientId()), notCached}, {});
    if (MmsHttpConnection* const player = _server.player(request.clientId()))
        player->finishStream(reasonEnd);
}

void MmsHttpConnection::setSwitches(QList<StreamSelection::Switch> const& switches)
{
    if (_broadcast)
        _streams.change(_broadcast->film().header(), switches);
}

void MmsHttpConnection::packetArrived(SharedPacket const& packet)
{
    QByteArray const frame = _streams.frame(packet, {true, 0});
    if (frame.isEmpty())
        return;
    if (_packetsUntilCut > 0 && --_packetsUntilCut == 0)
        cutAfter(frame.size() / 2);
    send(frame);
}

void MmsHttpConnection::headerChanged(Change change)
{
    _streams.applyTo(_broadcast->film().header());
    QByteArray chunks;
    if (change == Change::NextEntry && _knowsPlaylists)
        chunks = playlistChunk(*_broadcast) + MmsFraming::notice('E', reasonNextEntry);
    else
        chunks = MmsFraming::notice('C', 0);
    send(chunks + headerChunks(*_broadcast));
}

void MmsHttpConnection::ended()
{
    finishStream(reasonEnd);
}

void MmsHttpConnection::reply(int status, QByteArrayList const& headers, QByteArray const& body)
{
    QByteArrayList lines = {"HTTP/1.1 " + QByteArray::number(status) + ' ' + Fault::reasonOf(status), serverLine()};
    lines += headers;
    if (status != 204)
        lines.append("Content-Length: " + QByteArray::number(body.size()));
    lines.append(_keepAlive ? "Connection: keep-alive" : "Connection: close");
    QByteArray const start = lines.join("\r\n") + "\r\n\r\n";
    if (_bytesOfHeaderUntilCut >= 0)
        cutAfter(start.size() + _bytesOfHeaderUntilCut);
    if (send(_withBody ? start + body : start) && !_keepAlive)
        finish();
}

void MmsHttpConnection::finishStream(quint32 reason)
{
    leave();
    send(MmsFraming::notice('E', reason));
    finish();
}
