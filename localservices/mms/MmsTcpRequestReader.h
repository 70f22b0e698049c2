#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// One message of a player in MMS over TCP.
///
/// On the wire, all little-endian: version 1.0 as 01 00 00 00; session id u32 0xB00BFACE; size u32 of what follows
/// the seal's end, that is of the message less 16; seal u32 "MMS "; size in units of 8 bytes u32; sequence u16; 0
/// u16; time u64; then at 32 the size in units of 8 bytes from here on, u32; the type u32; at 40 the body.
struct MmsTcpRequest {
    enum Type : quint32 {
        Connect = 0x30001,
        ConnectFunnel = 0x30002,
        OpenFile = 0x30005,
        StartPlaying = 0x30007,
        StopPlaying = 0x30009,
        CloseFile = 0x3000D,
        ReadBlock = 0x30015,
        FunnelInfo = 0x30018,
        Pong = 0x3001B,
        CancelReadBlock = 0x30025,
        StreamSwitch = 0x30033
    };

    quint32 type = 0;
    QByteArray body;
};

/// Cuts messages out of the bytes that a player sends. Holds no more than one message of the largest size and what
/// came with it.
class MmsTcpRequestReader
{
public:
    static constexpr quint32 maximumSize = 128 << 10; ///< Bytes of a whole message.

    void add(QByteArray const& bytes) { _buffer.append(bytes); }

    /// The next whole message; nothing when more bytes are needed or all is lost, which errorText() tells.
    std::optional<MmsTcpRequest> next();

    /// Why the bytes make no message; empty as long as they do.
    QString const& errorText() const { return _error; }

private:
    QByteArray _buffer;
    QString _error;
};
