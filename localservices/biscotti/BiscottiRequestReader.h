#pragma once

#include "BerStructureGuard.h"
#include "BiscottiRequest.h"

#include <QByteArray>

#include <optional>

/// Cuts the bytes of a client into messages and reads these: BiscEnvelopes in BER, one after the other (see
/// Components/AsnCommon/BiscottiMessages.asn1). Unlike a client, a server has to answer also what it does not
/// understand, so that a message is cut out by its lengths first, and is read only when it is whole.
///
/// A message is at most centralisedBiscottiMaximumMessageBytes long, and nested at most
/// BerStructureGuard::maximumNesting deep; one that declares more breaks the stream before it has come. What is held
/// never exceeds a small multiple of what has come.
class BiscottiRequestReader
{
public:
    void add(QByteArray const& bytes) { _buffer.append(bytes); }

    /// The next message that is whole; nothing if there is none, or the stream is broken.
    std::optional<BiscottiRequest> next();

    /// Why the stream can be read no further; empty as long as it can.
    QString const& errorText() const { return _errorText; }

    /// The bytes that wait for the rest of their message.
    qsizetype bytesHeld() const { return _buffer.size() - _begin; }

private:
    QByteArray _buffer;
    qsizetype _begin = 0;    ///< Of the message under way.
    qsizetype _followed = 0; ///< Bytes of it that the guard has seen.
    BerStructureGuard _guard;
    QString _errorText;
};
