#include "TcpMmsHeader.h"

#include <stdexcept>

namespace
{
void expect(bool holds, char const* text)
{
    if (!holds)
        throw std::out_of_range(text);
}
} // namespace

void TcpMmsHeader::verify() const
{
    expect(_rep == rep, "Mms Tcp header _rep != 1");
    expect(_version == 0, "Mms Tcp header _version != 0");
    expect(_versionMinor == 0, "Mms Tcp header _versionMinor != 0");
    expect(_sessionId == sessionId, "Mms Tcp header _sessionId != 0xB00BFACE");
    expect(_seal == seal, "Mms Tcp header _seal != 0x20534D4D");
    expect(_mbz == 0, "Mms Tcp header _mbz != 0");
}

void TcpMmsHeader::setChunkLength(quint32 chunkLength)
{
    _chunkCount = chunkLength + 2;
    _messageLength = chunkLength * 8 + bytes - bytesOutsideMessageLength;
}
