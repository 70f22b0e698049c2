#pragma once

#include "RtspRemuxer.h"

#include <QElapsedTimer>

#include <deque>
#include <memory>
#include <set>
#include <vector>

class Logger;
struct AVCodecContext;
struct AVFormatContext;
struct AVPacket;

struct PacketDeleter {
    void operator()(AVPacket* packet) const;
};
using PacketPointer = std::unique_ptr<AVPacket, PacketDeleter>;

/// Finds out what a new session carries: the first picture and the first sound that can be passed on.
///
/// What the server has not described is learnt by decoding the first packet of the stream that holds it, a key frame
/// in the case of a picture. Packets are kept from the first key frame on, so that the picture begins clean. For one
/// thread.
class RtspStreamFinder
{
public:
    static constexpr int keyFrameTimeout = 12000; ///< ms from the first packet; then a picture begins anywhere.
    static constexpr int analysisTimeout = 2000;  ///< ms from the key frame that an undescribed sound may take.
    static constexpr int datingPackets = 5; ///< With a time stamp, that tell when the ones before without are shown.
    static constexpr qint64 maximumKeptBytes = 16 << 20; ///< Ends the search too.

    /// The context must outlive this object.
    explicit RtspStreamFinder(AVFormatContext const& context);
    ~RtspStreamFinder();

    /// Takes the data of one packet. Returns whether the search is over.
    bool take(AVPacket& packet);

    /// The streams found, picture first, once the search is over. None: there is nothing to play.
    std::vector<RtspStream> takeStreams();

    /// The packets kept, in the order in which they came. FFmpeg may leave the first ones without a time stamp: they
    /// get one.
    std::deque<PacketPointer> takePackets();

private:
    struct Candidate;

    void choose();
    bool keep(AVPacket& packet);
    bool isOver() const;
    bool isKeyFrameDue() const;
    bool isDated(Candidate const* candidate) const;
    void date(Candidate const* candidate);

    static Logger* log;

    AVFormatContext const& _context;
    std::unique_ptr<Candidate> _video;
    std::unique_ptr<Candidate> _audio;
    std::set<int> _leftOut; ///< Streams of which the log knows.
    std::deque<PacketPointer> _packets;
    qint64 _keptBytes = 0;
    QElapsedTimer _sinceFirst; ///< Invalid before the first packet.
    QElapsedTimer _sinceKept;  ///< Invalid before the first that was kept.
};
