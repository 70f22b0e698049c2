#pragma once

#include <QByteArray>

class Broadcast;

/// The messages of the server in MMS over TCP. The header is that of MmsTcpRequest; bodies are told with each. A
/// message is filled up with zero bytes to a multiple of 8.
class MmsTcpReport
{
public:
    enum Type : quint32 {
        ConnectedEx = 0x40001,
        ConnectedFunnel = 0x40002,
        DisconnectedFunnel = 0x40003,
        StartedPlaying = 0x40005,
        OpenFile = 0x40006,
        ReadBlock = 0x40011,
        FunnelInfo = 0x40015,
        Ping = 0x4001B,
        EndOfStream = 0x4001E,
        StreamChange = 0x40020,
        StreamSwitch = 0x40021
    };

    static constexpr quint32 sessionId = 0xB00BFACE;
    static constexpr quint32 seal = 0x20534D4D; ///< "MMS ".
    static constexpr quint32 headerSize = 40;
    static constexpr quint32 fileId = 1; ///< Of any stream: a client opens one at a time.

    /// A whole message.
    static QByteArray message(Type type, quint16 sequence, QByteArray const& body);

    /// Result; server mark 0xF0F0F0F0, which lets the client measure the line; protocol versions 0x0004000B and
    /// 0x0003001C; 0.0 as double; blocks in a group 1; open files 1; block bytes 0x8000; bit rate 10000000; four
    /// lengths, in units with the final 0, and the texts, UTF-16: server version, tool version, update address,
    /// password encryption.
    static QByteArray connectedEx(quint32 result);

    /// Result, incarnation, 0, "Funnel Of The Gods" in UTF-16 with a final 0.
    static QByteArray connectedFunnel(quint32 result, quint32 incarnation);

    /// Result, 0, transport mask 8, block fragments 1, fragment bytes 0x10000, 0, 0, disks 1, 0, 0.
    static QByteArray funnelInfo(quint32 result);

    /// Result; incarnation; file id; 0; 0; attributes, 0x02000000 for a broadcast; duration 0.0 as double; blocks 0;
    /// 16 bytes of 0; packet size; packets 0 as u64; bit rate; header size; 32 bytes of 0. Without a broadcast all is
    /// 0 but the first two.
    static QByteArray openFile(quint32 result, quint32 incarnation, Broadcast const* broadcast);

    /// Result, incarnation, and 0 up to so many numbers u32: ReadBlock 3, StartedPlaying 4, EndOfStream 2,
    /// DisconnectedFunnel 2, StreamSwitch 1 (the result), Ping 2, StreamChange 6.
    static QByteArray plain(quint32 result, quint32 incarnation, int numbers);
};
