#pragma once

#include <QtGlobal>

/// What every message begins with: 32 bytes, little-endian.
///
/// | offset | width | field           | value                                                            |
/// |--------|-------|-----------------|------------------------------------------------------------------|
/// | 0      | u8    | `_rep`          | 1                                                                |
/// | 1      | u8    | `_version`      | 0                                                                |
/// | 2      | u8    | `_versionMinor` | 0                                                                |
/// | 3      | u8    | `_padding`      | 0                                                                |
/// | 4      | u32   | `_sessionId`    | 0xB00BFACE                                                       |
/// | 8      | u32   | `_messageLength`| bytes of the whole message less 16; see TcpMmsMessage for limits |
/// | 12     | u32   | `_seal`         | 0x20534D4D, "MMS "                                               |
/// | 16     | u32   | `_chunkCount`   | chunk length of the message plus 2                               |
/// | 20     | u16   | `_sequence`     | counts the messages of a session in one direction from 0         |
/// | 22     | u16   | `_mbz`          | 0                                                                |
/// | 24     | u64   | `_timeSent`     | 0                                                                |
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
    quint32 _messageLength = 0;
    quint32 _seal = seal;
    quint32 _chunkCount = 0;
    quint16 _sequence = 0;
    quint16 _mbz = 0;
    quint64 _timeSent = 0;
};
