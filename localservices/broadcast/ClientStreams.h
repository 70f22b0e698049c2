#pragma once

#include "SharedPacket.h"
#include "StreamSelection.h"

#include <optional>

class AsfHeader;

/// The streams that one client gets, through its wishes and the changes of the broadcast. A value.
class ClientStreams
{
public:
    /// Bits per second that the client can take; 0 for no limit. Counts from the next choice on.
    void setMaximumBitrate(qint64 maximumBitrate) { _maximumBitrate = maximumBitrate; }

    /// Wishes of a client that does not play yet.
    void choose(AsfHeader const& header, QList<StreamSelection::Switch> const& switches);

    /// Wishes of a client that plays. When they bring another picture, they count from its next key frame on.
    void change(AsfHeader const& header, QList<StreamSelection::Switch> const& switches);

    /// The broadcast has another header; the wishes stay.
    void applyTo(AsfHeader const& header) { choose(header, QList(_switches)); }

    /// The first picture that the client gets; 0 when it gets none.
    int picture() const { return _picture; }

    /// What the client gets of a packet; empty when nothing.
    QByteArray frame(SharedPacket const& packet, SharedPacket::Framing framing);

private:
    static int pictureOf(AsfHeader const& header, StreamSelection const& selection);

    qint64 _maximumBitrate = 0;
    QList<StreamSelection::Switch> _switches;
    StreamSelection _selection;
    int _picture = 0;
    std::optional<StreamSelection> _next; ///< Waits for a key frame of the next picture.
    int _nextPicture = 0;
};
