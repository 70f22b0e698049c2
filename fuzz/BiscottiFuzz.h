#pragma once

#include "CentralisedBiscottiMessageEncoder.h"
#include "DecodedMessages.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

/// What the fuzzers of the message decoder share.
namespace BiscottiFuzz
{

inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// Decodes the bytes in pieces, whose sizes come from the pattern in turn, until the first error.
inline void decode(DecodedMessages& decoded, QByteArray const& bytes, QByteArray const& pattern)
{
    qsizetype turn = 0;
    for (qsizetype position = 0; position < bytes.size() && decoded.errors == 0;) {
        qsizetype const piece = pattern.isEmpty() ? bytes.size() : 1 + (pattern[turn++ % pattern.size()] & 0x3F);
        decoded.decoder.appendBytes(bytes.mid(position, piece));
        position += piece;
    }
}

/// However the stream is split, the same messages come out of it, as they stand in it; and a post that was read is
/// written such that it is read again.
inline void run(uint8_t const* data, size_t size, CentralisedBiscottiMessageDecoding decoding,
                CentralisedBiscottiMessageEncoding encoding)
{
    constexpr qsizetype patternBytes = 3;
    QByteArray const input(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    QByteArray const bytes = input.mid(patternBytes);
    DecodedMessages whole(decoding);
    DecodedMessages split(decoding);
    decode(whole, bytes, {});
    decode(split, bytes, input.first(std::min(patternBytes, input.size())));
    require(whole.messages == split.messages);
    for (DecodedMessages::Message const& message : whole.messages)
        require(bytes.contains(message.rawBytes));
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    encoder.setEncoding(encoding);
    CentralisedBiscottiMessageId const id("m");
    if (QByteArray const written = encoder.encodePost(id, whole.lastPost, {}); !written.isEmpty()) {
        DecodedMessages again(decoding);
        decode(again, written, {});
        require(again.errors == 0 && encoder.encodePost(id, again.lastPost, {}) == written);
    }
}

} // namespace BiscottiFuzz
