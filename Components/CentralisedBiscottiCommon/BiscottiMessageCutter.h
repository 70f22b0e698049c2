#pragma once

#include "BerStructureGuard.h"

#include <QByteArray>

#include <optional>

/// Cuts a stream of bytes into messages: BiscEnvelopes in BER, one after the other and split anywhere (see
/// Components/AsnCommon/BiscottiMessages.asn1). Only the lengths are looked at; what is in a message is its reader's
/// affair, so that one that makes no sense costs itself and no other.
///
/// A message is at most centralisedBiscottiMaximumMessageBytes long, and nested at most
/// BerStructureGuard::maximumNesting deep. A stream that holds or announces more, or begins a message with another
/// tag, is out of step: nothing says where its next message begins. What is held never exceeds a small multiple of
/// what has come.
class BiscottiMessageCutter
{
public:
    /// Takes the next bytes of the stream; those behind the loss of step are left out.
    void add(QByteArray const& bytes);

    /// The next message that is whole; nothing if there is none, or the stream is out of step.
    std::optional<QByteArray> next();

    /// Whether the stream can be read no further, until reset().
    bool isOutOfStep() const { return _isOutOfStep; }

    /// The bytes that have not been handed out.
    qsizetype bytesHeld() const { return _buffer.size() - _begin; }

    /// Forgets the stream, before a new one.
    void reset() { *this = {}; }

private:
    void dropUsed();
    void loseStep();

    QByteArray _buffer;
    qsizetype _begin = 0;    ///< Of the message under way.
    qsizetype _followed = 0; ///< Bytes of it that the guard has seen.
    BerStructureGuard _guard;
    bool _isOutOfStep = false;
};
