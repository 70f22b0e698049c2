#pragma once

#include "RtspTimeline.h"

#include <QByteArray>

#include <memory>
#include <optional>
#include <vector>

class Logger;
struct AVCodecParameters;
struct AVFormatContext;
struct AVPacket;

struct CodecParametersDeleter {
    void operator()(AVCodecParameters* parameters) const;
};
using CodecParametersPointer = std::unique_ptr<AVCodecParameters, CodecParametersDeleter>;

/// A stream of the input that is passed on.
struct RtspStream {
    int index; ///< In the input.
    AVRational timeBase;
    CodecParametersPointer parameters; ///< Complete enough for a header.
};

/// Puts packets, as they are, into NUT: a container for streams that takes nearly every codec in any time base, is
/// recognised by its header, and can be begun at any of its synchronisation points. At each entry the container
/// begins anew, but for the header, so that nothing points back to what a reader may never have seen. A packet is
/// copied once. For one thread.
class RtspRemuxer
{
public:
    static constexpr std::int64_t entryInterval = 1000000; ///< µs, at least, from one entry to the next.

    RtspRemuxer();
    ~RtspRemuxer();
    RtspRemuxer(RtspRemuxer const&) = delete;
    RtspRemuxer& operator=(RtspRemuxer const&) = delete;

    /// Whether streams of this codec can be passed on.
    static bool takes(AVCodecParameters const& parameters);

    /// Begins with a header for these streams, which is the same for the same parameters; time begins at `start`
    /// microseconds. False when FFmpeg refuses them.
    bool begin(std::vector<RtspStream> streams, std::int64_t start);
    QByteArray header() const { return _header; }

    struct Chunk {
        QByteArray bytes;
        bool isEntry = false; ///< A demultiplexer can begin here, with a picture that needs no other one.
    };

    /// The chunk that a packet makes; empty for one of another stream, or that FFmpeg refuses. Changes the packet.
    Chunk write(AVPacket& packet);

    /// Where the last packet ends, in microseconds.
    std::int64_t end() const { return _timeline->end(); }

private:
    bool openContainer();
    void closeContainer();
    bool beginsEntry(AVPacket const& packet);
    static int writeCallback(void* opaque, unsigned char* data, int size);

    static Logger* log;

    AVFormatContext* _context = nullptr;
    std::vector<RtspStream> _streams; ///< In the order of those in _context.
    std::optional<RtspTimeline> _timeline;
    std::optional<std::int64_t> _lastEntry; ///< µs
    QByteArray _sink;                       ///< What FFmpeg has written since the last packet.
    QByteArray _header;
    bool _refusalLogged = false;
};
