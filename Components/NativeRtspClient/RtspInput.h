#pragma once

#include "FFwrapper.h"

#include <QByteArray>
#include <QDeadlineTimer>

#include <atomic>

struct AVFormatContext;
struct AVPacket;

/// How the media travel.
enum class RtspTransport { Unknown, Udp, Tcp };

/// One FFmpeg RTSP connection, every call of which returns when its time is over or when it is abandoned. For one
/// thread, but for the flag.
class RtspInput
{
public:
    static constexpr int closeTimeout = 500; ///< ms that telling the server of the end may take.

    /// The flag makes every call return, now and later.
    explicit RtspInput(std::atomic<bool> const& abandoned) : _abandoned(abandoned) {}
    ~RtspInput();

    /// Connects and lets the server play, within so many ms. Returns 0 or FFmpeg's error: AVERROR(EPROTONOSUPPORT)
    /// for a server that refuses the transport, AVERROR(ETIMEDOUT), AVERROR(ELOOP) for one that redirects without
    /// end, AVERROR_EXIT when abandoned.
    int open(QByteArray const& url, RtspTransport transport, int timeout);

    /// The next packet, within so many ms.
    int read(AVPacket* packet, int timeout);

    /// Takes leave of the server.
    void close();

    AVFormatContext* context() const { return _context.get(); }

private:
    static int interruptCallback(void* opaque);
    bool isRedirectedTooOften();
    int told(int result) const;

    std::atomic<bool> const& _abandoned;
    QDeadlineTimer _deadline; ///< Of the call at hand.
    bool _closing = false;
    AVFormatContext* _opening = nullptr; ///< While FFmpeg opens it.
    char const* _address = nullptr;      ///< Of _opening, as last seen; compared only.
    int _redirections = 0;
    FormatContextPointer _context;
};
