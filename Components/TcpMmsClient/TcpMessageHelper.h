#pragma once

class LittleEndianReader;
class Memo;
class TcpMmsClient;
class TcpMmsMessage;

/// Makes one type of message known to the TcpMmsPacketizer and the TcpMmsMessageHandlers. The table of all of them,
/// in TcpMessageHelper.cpp, is made at the start of the program.
class TcpMessageHelper
{
public:
    TcpMessageHelper(unsigned int type, char const* name, TcpMmsMessage* (*fromStream)(LittleEndianReader&),
                     Memo* (*create)(TcpMmsClient*, TcpMmsMessage*));

    /// The name of the class of a known type, for the log; "unknown message" for another.
    static char const* nameOf(unsigned int type);

private:
    unsigned int const _type;
    char const* const _name;
};
