#pragma once

#include "BiscottiMessageCutter.h"
#include "BiscottiRequest.h"

#include <optional>

/// Reads the messages in the bytes of a client, which BiscottiMessageCutter cuts. Unlike a client, a server has to
/// answer also what it does not understand, as far as an id can be found in it.
class BiscottiRequestReader
{
public:
    void add(QByteArray const& bytes) { _cutter.add(bytes); }

    /// The next message that is whole; nothing if there is none, or the stream is broken.
    std::optional<BiscottiRequest> next();

    /// Whether the stream can be read no further.
    bool isOutOfStep() const { return _cutter.isOutOfStep(); }

    /// The bytes that wait for the rest of their message.
    qsizetype bytesHeld() const { return _cutter.bytesHeld(); }

    /// Forgets them.
    void clear() { _cutter.reset(); }

private:
    BiscottiMessageCutter _cutter;
};
