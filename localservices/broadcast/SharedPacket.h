#pragma once

#include "AsfPacket.h"
#include "StreamSelection.h"

#include <QByteArray>

#include <map>

/// One data packet of a broadcast, framed for the clients once for each kind of framing and selection: clients that
/// want the same share the bytes. Lives on the broadcast's thread.
class SharedPacket
{
public:
    /// How data packets travel. Both begin with, little-endian: location id u32, incarnation u8, flags u8, size u16
    /// with these 8 bytes. MMS over HTTP puts "$D" and the same size as u16 in front.
    struct Framing {
        bool http = false;
        quint8 incarnation = 0;
        friend auto operator<=>(Framing const&, Framing const&) = default;
    };

    static constexpr size_t maximumFrames = 8; ///< Kept for sharing; what is beyond is framed anew each time.

    SharedPacket(quint32 locationId, AsfPacket packet) : _locationId(locationId), _packet(std::move(packet)) {}

    quint32 locationId() const { return _locationId; }
    qsizetype size() const { return _packet.bytes().size(); }

    bool startsKeyFrameOf(int stream) const;

    /// The packet as it goes to a client; empty when it holds nothing that the client wants.
    QByteArray frame(Framing framing, StreamSelection const& selection) const;

private:
    QByteArray makeFrame(Framing framing, StreamSelection const& selection) const;

    quint32 _locationId;
    AsfPacket _packet;
    mutable std::map<std::pair<Framing, StreamSelection>, QByteArray> _frames;
};
