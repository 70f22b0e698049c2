#pragma once

#include "CentralisedBiscottiMessageDecoder.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "Logger.h"
#include "LoggerManager.h"

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

/// What a decoder said about a stream, and the first post written again.
struct Outcome {
    int errors = 0;
    QList<QByteArray> rawBytes;
    QStringList texts;
    QByteArray rewrittenPost;
    bool operator==(Outcome const& other) const { return rawBytes == other.rawBytes && texts == other.texts; }
};

/// Decodes the bytes in pieces, whose sizes come from the pattern in turn, until the first error.
inline Outcome decode(QByteArray const& bytes, QByteArray const& pattern, CentralisedBiscottiMessageDecoding decoding,
                      CentralisedBiscottiMessageEncoding encoding)
{
    using Decoder = CentralisedBiscottiMessageDecoder;
    Outcome outcome;
    Decoder decoder(nullptr);
    decoder.setDecoding(decoding);
    CentralisedBiscottiMessageEncoder encoder(nullptr);
    encoder.setEncoding(encoding);
    auto const record = [&](CentralisedBiscottiMessageId const&, BiscottiMessage const& message,
                            BiscottiSignatureId const&, bool, QByteArray const& rawBytes) {
        outcome.rawBytes.append(rawBytes);
        outcome.texts.append(message.toString());
    };
    QObject::connect(&decoder, &Decoder::heartbeatAvailable, record);
    QObject::connect(&decoder, &Decoder::ackAvailable, record);
    QObject::connect(&decoder, &Decoder::subscriptionAvailable, record);
    QObject::connect(&decoder, &Decoder::unsubscriptionAvailable, record);
    QObject::connect(&decoder, &Decoder::postAvailable, record);
    QObject::connect(&decoder, &Decoder::postAvailable,
                     [&](CentralisedBiscottiMessageId const& id, BiscottiPost const& post) {
                         if (outcome.rewrittenPost.isEmpty())
                             outcome.rewrittenPost = encoder.encodePost(id, post, {});
                     });
    QObject::connect(&decoder, &Decoder::errorDecoding, [&] { ++outcome.errors; });

    qsizetype turn = 0;
    for (qsizetype position = 0; position < bytes.size() && outcome.errors == 0;) {
        qsizetype const piece = pattern.isEmpty() ? bytes.size() : 1 + (pattern[turn++ % pattern.size()] & 0x3F);
        decoder.appendBytes(bytes.mid(position, piece));
        position += piece;
    }
    return outcome;
}

/// However the stream is split, the same messages come out of it, as they stand in it; and a post that was read is
/// written such that it is read again.
inline void run(uint8_t const* data, size_t size, CentralisedBiscottiMessageDecoding decoding,
                CentralisedBiscottiMessageEncoding encoding)
{
    LoggerManager::logger()->setLevel(Logger::Fatal);
    constexpr qsizetype patternBytes = 3;
    QByteArray const input(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    QByteArray const bytes = input.mid(patternBytes);
    Outcome const whole = decode(bytes, {}, decoding, encoding);
    Outcome const split = decode(bytes, input.first(std::min(patternBytes, input.size())), decoding, encoding);
    require(whole == split);
    for (QByteArray const& rawBytes : whole.rawBytes)
        require(bytes.contains(rawBytes));
    if (!whole.rewrittenPost.isEmpty()) {
        Outcome const again = decode(whole.rewrittenPost, {}, decoding, encoding);
        require(again.errors == 0 && again.rewrittenPost == whole.rewrittenPost);
    }
}

} // namespace BiscottiFuzz
