#pragma once

#include <QByteArray>
#include <QHash>

class LittleEndianReader;
class Logger;
class TcpMmsClient;
class TcpMmsMessage;

/// Cuts what a server sends into messages (TcpMmsMessage) and data packets (MmsData), each of which becomes a memo of
/// its client. Filled at the start of the program, only read afterwards: any thread may use it then.
///
/// What begins with 1, 0, 0 and has the session id at offset 4 is a message, anything else a data packet. A message
/// takes the bytes that its header announces, whether we know fewer or more of them.
class TcpMmsPacketizer
{
public:
    using FromStream = TcpMmsMessage* (*)(LittleEndianReader&);

    enum Result {
        Taken = 0,    ///< Something was taken; more may follow.
        Waiting = 1,  ///< The rest of something has not arrived.
        OutOfStep = 2 ///< This cannot be what a server sends; nothing that follows can be understood.
    };

    static TcpMmsPacketizer& instance();

    void addHandler(unsigned int type, FromStream fromStream);

    /// Gives the client all that is complete in the buffer, in order, and removes it from the front. A size of 0 in
    /// a data packet is waited on like one that has not arrived; the buffer never has to hold more than the longest
    /// message for that: beyond it, and with any other impossible length, the result is OutOfStep.
    Result probeBuffer(TcpMmsClient* client, QByteArray& buffer) const;

private:
    TcpMmsPacketizer() = default;

    struct Step {
        Result result;
        qsizetype bytes;
    };
    Step probe(TcpMmsClient* client, QByteArrayView bytes) const;
    Step probeData(TcpMmsClient* client, QByteArrayView bytes) const;
    Step probeMessage(TcpMmsClient* client, QByteArrayView bytes) const;
    void takeMessage(TcpMmsClient* client, QByteArrayView bytes) const;

    static Logger* log;

    QHash<unsigned int, FromStream> _types;
};
