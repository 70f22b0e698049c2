#pragma once

#include "StreamDescription.h"

/// Which address a stream is opened at, each time that it is opened.
class StreamAddress
{
public:
    virtual ~StreamAddress() = default;

    virtual Uri addressOf(StreamDescription const& stream) = 0;
};

/// The one of the description.
class PlainStreamAddress : public StreamAddress
{
public:
    Uri addressOf(StreamDescription const& stream) override { return stream.uri(); }
};
