#pragma once

#include <QtGlobal>

/// What every message begins with: 32 bytes, little-endian.
class TcpMmsHeader
{
public:
    static constexpr int bytes = 32;
    static constexpr int bytesOutsideMessageLength = 16;
    static constexpr quint8 rep = 1;
    static constexpr quint32 sessionId = 0xB00BFACE;
    static constexpr quint32 seal = 0x20534D4D;

    /// The lengths of a message to be sent follow from setChunkLength().
    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_rep, _version, _versionMinor, _padding, _sessionId, _messageLength, _seal, _chunkCount, _sequence,
                _mbz, _timeSent);
    }

    /// Throws std::out_of_range with the first field that has not the value it must have.
    void verify() const;

    /// Sets chunk count and message length for a message with this chunk length.
    void setChunkLength(quint32 chunkLength);
    void setSequence(quint16 sequence) { _sequence = sequence; }
    void setTimeSent(quint64 timeSent) { _timeSent = timeSent; }

    quint32 messageLength() const { return _messageLength; }

private:
    quint8 _rep = rep;
    quint8 _version = 0;
    quint8 _versionMinor = 0;
    quint8 _padding = 0;
    quint32 _sessionId = sessionId;
    quint32 _messageLength = 0; ///< Bytes of the whole message less 16; see TcpMmsMessage for limits.
    quint32 _seal = seal;       ///< "MMS "
    quint32 _chunkCount = 0;    ///< The chunk length of the message plus 2.
    quint16 _sequence = 0;      ///< Counts the messages of a session in one direction from 0.
    quint16 _mbz = 0;
    quint64 _timeSent = 0;
};
