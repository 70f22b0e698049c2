#pragma once

#include "SimpleAsfParser.h"

/// Called with each media object as it is complete, on the thread of the parser.
class IAsfPacketListener
{
public:
    virtual ~IAsfPacketListener() = default;
    virtual void onPacket(SimpleAsfParser::MediaFrame const& frame) = 0;
};
