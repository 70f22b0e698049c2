#include "ViewerToMacFileMessages.h"

#include <stdexcept>

void MmsLinkViewerToMacReadBlock::verify() const
{
    TcpMmsMessage::verify();
    char const* const name = "MmsLinkViewerToMacReadBlock";
    expect(name, "_fileBlockId", _fileBlockId, 0);
    expect(name, "_offset", _offset, 0);
    expect(name, "_length", _length, 0x8000);
    expect(name, "_flags", _flags, 0xFFFFFFFF);
    if (_tEarliest != 0.0)
        throw std::out_of_range("MmsLinkViewerToMacReadBlock _tEarliest != 0.0");
    if (_tDeadline != 3600.0)
        throw std::out_of_range("MmsLinkViewerToMacReadBlock _tDeadline != 3600.0");
    expect(name, "_playSequence", _playSequence, 0);
}
