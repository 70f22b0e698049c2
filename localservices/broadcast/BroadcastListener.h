#pragma once

class SharedPacket;

/// A client of a broadcast. All calls come on the broadcast's thread; a listener may leave in any of them.
class BroadcastListener
{
public:
    enum class Change { NextEntry, Header };

    virtual ~BroadcastListener() = default;

    /// The stream with whose key frame it wants to begin; 0 for any packet.
    virtual int beginsWith() const = 0;

    /// The next packet, in order.
    virtual void packetArrived(SharedPacket const& packet) = 0;

    /// What follows belongs to the next film of the playlist, or to the same film under a changed header.
    virtual void headerChanged(Change change) = 0;

    /// The broadcast is over for those that listen now. They leave by themselves.
    virtual void ended() = 0;
};
