#include "RtspInput.h"

#include "ReconnectionPolicy.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/mem.h>
}

#include <QCoreApplication>

namespace
{

constexpr int receiveBufferBytes = 1 << 20; // Of a UDP socket, for the burst of a large key frame.

} // namespace

RtspInput::~RtspInput()
{
    close();
}

int RtspInput::open(QByteArray const& url, RtspTransport transport, int timeout)
{
    close();
    _closing = false;
    _deadline.setRemainingTime(timeout);
    AVFormatContext* opening = avformat_alloc_context();
    opening->interrupt_callback = {&interruptCallback, this};
    // No "tls": FFmpeg's RTSP cannot be told to verify certificates, and a server may send us on to any address.
    opening->protocol_whitelist = av_strdup("rtp,udp,tcp");
    AVDictionary* options = nullptr;
    av_dict_set(&options, "rtsp_transport", transport == RtspTransport::Tcp ? "tcp" : "udp", 0);
    av_dict_set_int(&options, "timeout", qint64(timeout) * 1000, 0); // Microseconds.
    av_dict_set_int(&options, "buffer_size", receiveBufferBytes, 0);
    av_dict_set(&options, "user_agent", QCoreApplication::applicationName().toUtf8().constData(), 0);
    _opening = opening;
    _address = nullptr;
    _redirections = 0;
    int const result = avformat_open_input(&opening, url.constData(), av_find_input_format("rtsp"), &options);
    _opening = nullptr;
    av_dict_free(&options);
    _context.reset(opening); // Null after a failure.
    return told(result);
}

int RtspInput::read(AVPacket* packet, int timeout)
{
    _deadline.setRemainingTime(timeout);
    return told(av_read_frame(_context.get(), packet));
}

void RtspInput::close()
{
    if (!_context)
        return;
    _closing = true;
    _deadline.setRemainingTime(closeTimeout);
    _context.reset();
}

int RtspInput::interruptCallback(void* opaque)
{
    auto* const input = static_cast<RtspInput*>(opaque);
    return input->isRedirectedTooOften() || (!input->_closing && input->_abandoned) || input->_deadline.hasExpired()
               ? 1
               : 0;
}

/// FFmpeg follows redirections without end, and gives the context a new address for each; it asks at least once in
/// between whether to go on.
bool RtspInput::isRedirectedTooOften()
{
    if (!_opening || _opening->url == _address)
        return _redirections > ReconnectionPolicy::maximumRedirections;
    if (_address)
        ++_redirections;
    _address = _opening->url;
    return _redirections > ReconnectionPolicy::maximumRedirections;
}

int RtspInput::told(int result) const
{
    if (result >= 0)
        return 0;
    if (_abandoned)
        return AVERROR_EXIT;
    if (_redirections > ReconnectionPolicy::maximumRedirections)
        return AVERROR(ELOOP);
    return _deadline.hasExpired() ? AVERROR(ETIMEDOUT) : result;
}
