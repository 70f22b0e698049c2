#include "SharedPacket.h"

#include "MmsFraming.h"

#include <algorithm>

QByteArray SharedPacket::frame(Framing framing, StreamSelection const& selection) const
{
    auto const key = std::pair(framing, selection);
    auto const found = _frames.find(key);
    if (found != _frames.end())
        return found->second;
    QByteArray const made = makeFrame(framing, selection);
    if (_frames.size() < maximumFrames)
        _frames.emplace(key, made);
    return made;
}

bool SharedPacket::startsKeyFrameOf(int stream) const
{
    return std::any_of(_packet.payloads().cbegin(), _packet.payloads().cend(),
                       [&](AsfPacket::Payload const& payload) {
                           return payload.stream == stream && payload.isKeyFrame && payload.startsObject;
                       });
}

QByteArray SharedPacket::makeFrame(Framing framing, StreamSelection const& selection) const
{
    QByteArray const packet =
        selection.isEverything() ? _packet.bytes() : _packet.filtered([&](AsfPacket::Payload const& payload) {
            StreamSelection::Value const value = selection.value(payload.stream);
            return value == StreamSelection::Full || (value == StreamSelection::KeyFrames && payload.isKeyFrame);
        });
    if (packet.isEmpty())
        return {};
    MmsFraming::Record const record{_locationId, framing.incarnation, 0};
    return framing.http ? MmsFraming::chunk('D', record, packet) : MmsFraming::record(record, packet);
}
