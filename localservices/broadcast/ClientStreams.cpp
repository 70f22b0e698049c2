#include "ClientStreams.h"

#include "AsfHeader.h"

void ClientStreams::choose(AsfHeader const& header, QList<StreamSelection::Switch> const& switches)
{
    _switches = switches;
    _selection = StreamSelection::choose(header, _switches, _maximumBitrate);
    _picture = pictureOf(header, _selection);
    _next.reset();
}

void ClientStreams::change(AsfHeader const& header, QList<StreamSelection::Switch> const& switches)
{
    StreamSelection const selection = StreamSelection::choose(header, switches, _maximumBitrate);
    int const picture = pictureOf(header, selection);
    if (picture == 0 || picture == _picture)
        return choose(header, switches);
    _switches = switches;
    _next = selection;
    _nextPicture = picture;
}

QByteArray ClientStreams::frame(SharedPacket const& packet, SharedPacket::Framing framing)
{
    if (_next && packet.startsKeyFrameOf(_nextPicture)) {
        _selection = *_next;
        _picture = _nextPicture;
        _next.reset();
    }
    return packet.frame(framing, _selection);
}

int ClientStreams::pictureOf(AsfHeader const& header, StreamSelection const& selection)
{
    for (auto stream = header.streams().cbegin(); stream != header.streams().cend(); ++stream) {
        if (stream->kind == AsfHeader::Kind::Video && selection.value(stream.key()) != StreamSelection::Off)
            return stream.key();
    }
    return 0;
}
