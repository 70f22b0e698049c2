#include "TcpMmsMessage.h"

#include <cstdio>
#include <stdexcept>
#include <string>

void TcpMmsMessage::getObjectData(LittleEndianWriter& out)
{
    LittleEndianWriter body;
    writeBody(body);
    qsizetype const bytes = bytesBeforeBody - TcpMmsHeader::bytes + body.bytes().size();
    _chunkLength = static_cast<quint32>((bytes + 7) / 8);
    _header.setChunkLength(_chunkLength);
    headFields(out);
    out.rest(body.bytes());
    out.rest(QByteArray(_chunkLength * 8 - bytes, '\0'));
}

void TcpMmsMessage::verify() const
{
    _header.verify();
}

void TcpMmsMessage::expect(char const* message, char const* field, quint32 value, quint32 expected)
{
    if (value == expected)
        return;
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", expected);
    throw std::out_of_range(std::string(message) + " " + field + " != " + number);
}
