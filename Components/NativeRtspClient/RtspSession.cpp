#include "RtspSession.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RtspNetwork.h"
#include "RtspRemuxer.h"
#include "RtspStreamFinder.h"
#include "RtspTimeline.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <utility>

Logger* RtspSession::log = LoggerManager::logger();

namespace
{

/// Whether the other transport may fare better.
bool mayBeTheTransport(int error)
{
    switch (error) {
    case AVERROR(EPROTONOSUPPORT): // What 461 becomes; some servers find other words.
    case AVERROR_HTTP_BAD_REQUEST:
    case AVERROR_HTTP_OTHER_4XX:
    case AVERROR_HTTP_SERVER_ERROR:
        return true;
    default:
        return false;
    }
}

} // namespace

void RtspSession::run()
{
    _sinceStart.start();
    NetworkErrors::NetworkError const error = play();
    if (_abandoned)
        return;
    _networkAvailable = RtspNetwork::isAvailable(_order.host, _order.port);
    push({.kind = Event::Done, .error = error});
}

void RtspSession::abandon()
{
    std::lock_guard const lock(_mutex);
    _abandoned = true;
    _room.notify_all();
}

QList<RtspSession::Event> RtspSession::takeEvents()
{
    std::lock_guard const lock(_mutex);
    _pendingBytes = 0;
    _room.notify_all();
    return std::exchange(_events, {});
}

void RtspSession::push(Event event)
{
    std::unique_lock lock(_mutex);
    _room.wait(lock, [this] { return _abandoned || _pendingBytes < maximumPendingBytes; });
    if (_abandoned)
        return;
    _pendingBytes += event.bytes.size();
    _events.append(std::move(event));
    if (_events.size() == 1)
        _wake();
}

NetworkErrors::NetworkError RtspSession::play()
{
    // FFmpeg resolves the name itself, for the server and the requests are to see the name, but does not say when
    // that is what has failed.
    if (!RtspNetwork::canResolve(_order.host)) {
        LOG_ERROR("Could not resolve %s", qPrintable(_order.host));
        return NetworkErrors::CouldNotResolve;
    }
    LOG_DEBUG("Resolved %s after %lld ms", qPrintable(_order.host), static_cast<long long>(_sinceStart.elapsed()));
    _phase = Phase::Opening;
    int const result = tryTransports();
    if (!_abandoned)
        LOG_ERROR("Lost %s: %s", _order.url.constData(), qPrintable(FFwrapper::errorText(result)));
    return meaningOf(result);
}

int RtspSession::tryTransports()
{
    RtspTransport const first = _order.transport == RtspTransport::Tcp ? RtspTransport::Tcp : RtspTransport::Udp;
    RtspTransport const second = first == RtspTransport::Tcp ? RtspTransport::Udp : RtspTransport::Tcp;
    int const result = attempt(first, first == RtspTransport::Udp ? _order.patience.udp : _order.patience.silence);
    bool const broughtNothing = _transport == RtspTransport::Unknown;
    bool const wasSilent = _everConnected && result == AVERROR(ETIMEDOUT);
    if (_abandoned || !broughtNothing || !(wasSilent || mayBeTheTransport(result)))
        return result;
    LOG_INFO("%s with %s, trying %s", wasSilent ? "Nothing comes" : "Refused",
             first == RtspTransport::Udp ? "UDP" : "TCP", second == RtspTransport::Udp ? "UDP" : "TCP");
    int const other = attempt(second, _order.patience.silence);
    if (_abandoned || !wasSilent || !mayBeTheTransport(other))
        return other;
    LOG_INFO("The server wants no other transport");
    return attempt(first, _order.patience.silence);
}

int RtspSession::attempt(RtspTransport transport, int firstPacketTimeout)
{
    RtspInput input(_abandoned);
    _phase = Phase::Opening;
    if (int const result = input.open(_order.url, transport, _order.timeout); result < 0)
        return result;
    LOG_DEBUG("Accepted with %s after %lld ms", transport == RtspTransport::Udp ? "UDP" : "TCP",
              static_cast<long long>(_sinceStart.elapsed()));
    _phase = Phase::Streaming;
    if (!std::exchange(_everConnected, true))
        push({.kind = Event::Connected});
    QElapsedTimer sincePlay;
    sincePlay.start();
    int const result = pump(input, transport, firstPacketTimeout);
    // Who breaks off in the midst of a film has not ended it, and some servers put a range to what is live, too.
    std::int64_t const told = input.context()->duration;
    std::int64_t const played = _endTime - _order.startTime - RtspTimeline::delay;
    std::int64_t const tolerance = std::min(endTolerance, told / 2);
    // The last picture may stand for long: then it is the time since the beginning that tells.
    std::int64_t const passed = std::max<std::int64_t>(played, sincePlay.nsecsElapsed() / 1000);
    _finite = told > 0 && played <= told + tolerance && passed >= told - tolerance;
    // A description without streams is no refusal to FFmpeg, which then finds the end at once.
    return result == AVERROR_EOF && input.context()->nb_streams == 0 ? AVERROR_STREAM_NOT_FOUND : result;
}

int RtspSession::pump(RtspInput& input, RtspTransport transport, int firstPacketTimeout)
{
    RtspStreamFinder finder(*input.context());
    RtspRemuxer remuxer;
    bool begun = false;
    PacketPointer const packet(av_packet_alloc());
    for (int timeout = firstPacketTimeout;; timeout = _order.patience.silence) {
        if (int const result = input.read(packet.get(), timeout); result < 0)
            return result;
        if (_transport.exchange(transport) != transport)
            LOG_DEBUG("First packet after %lld ms", static_cast<long long>(_sinceStart.elapsed()));
        if (begun) {
            pass(*packet, remuxer);
            av_packet_unref(packet.get());
        } else if (finder.take(*packet)) {
            if (int const result = beginStreams(finder, remuxer); result < 0)
                return result;
            begun = true;
        }
        if (_abandoned)
            return AVERROR_EXIT;
    }
}

NetworkErrors::NetworkError RtspSession::meaningOf(int error) const
{
    switch (error) {
    case AVERROR_HTTP_UNAUTHORIZED:
        return NetworkErrors::AuthenticationRequired;
    case AVERROR_EOF:
        return _transport == RtspTransport::Unknown ? NetworkErrors::RemoteClosed : NetworkErrors::EndOfStream;
    case AVERROR(EIO):
    case AVERROR(ECONNRESET):
    case AVERROR(EPIPE):
        return NetworkErrors::RemoteClosed;
    case AVERROR(ECONNREFUSED):
    case AVERROR(EHOSTUNREACH):
    case AVERROR(ENETUNREACH):
    case AVERROR(ETIMEDOUT):
        return _everConnected ? NetworkErrors::StreamUnavailable : NetworkErrors::CouldNotConnect;
    default:
        return NetworkErrors::StreamUnavailable;
    }
}

int RtspSession::beginStreams(RtspStreamFinder& finder, RtspRemuxer& remuxer)
{
    std::vector<RtspStream> streams = finder.takeStreams();
    if (streams.empty()) {
        LOG_ERROR("No video or audio streams found. Cannot play %s", _order.url.constData());
        return AVERROR_STREAM_NOT_FOUND;
    }
    if (!remuxer.begin(std::move(streams), _order.startTime))
        return AVERROR_INVALIDDATA;
    LOG_DEBUG("Header after %lld ms", static_cast<long long>(_sinceStart.elapsed()));
    push({.kind = Event::Header, .bytes = remuxer.header()});
    for (PacketPointer const& packet : finder.takePackets())
        pass(*packet, remuxer);
    return 0;
}

void RtspSession::pass(AVPacket& packet, RtspRemuxer& remuxer)
{
    RtspRemuxer::Chunk chunk = remuxer.write(packet);
    if (chunk.bytes.isEmpty())
        return;
    _endTime = remuxer.end();
    push({.kind = Event::Data, .bytes = std::move(chunk.bytes), .isEntry = chunk.isEntry});
}
