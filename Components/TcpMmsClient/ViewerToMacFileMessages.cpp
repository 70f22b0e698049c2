#include "ViewerToMacFileMessages.h"

#include <QIODevice>

#include <algorithm>
#include <stdexcept>

MmsLinkViewerToMacOpenFile::MmsLinkViewerToMacOpenFile(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    for (quint32& number : _numbers)
        stream >> number;
    _path = readText(stream);
}

void MmsLinkViewerToMacOpenFile::writeBody(QDataStream& stream) const
{
    for (quint32 const number : _numbers)
        stream << number;
    writeText(stream, _path);
}

MmsLinkViewerToMacReadBlock::MmsLinkViewerToMacReadBlock(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    stream >> _fileId >> _fileBlockId >> _offset >> _length >> _flags >> _unused >> _tEarliest >> _tDeadline >>
        _kind >> _playSequence;
}

void MmsLinkViewerToMacReadBlock::writeBody(QDataStream& stream) const
{
    stream << _fileId << _fileBlockId << _offset << _length << _flags << _unused << _tEarliest << _tDeadline << _kind
           << _playSequence;
}

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

MmsLinkViewerToMacStreamSwitch::MmsLinkViewerToMacStreamSwitch(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    quint32 count = 0;
    stream >> count;
    qint64 const left = stream.device()->bytesAvailable() / StreamSwitchEntry::bytes;
    if (count > left)
        stream.setStatus(QDataStream::ReadPastEnd);
    for (qint64 i = std::min<qint64>(count, left); i > 0; --i) {
        quint16 marker = 0;
        StreamSwitchEntry entry;
        stream >> marker >> entry.streamNumber >> entry.selection;
        _entries.append(entry);
    }
}

void MmsLinkViewerToMacStreamSwitch::writeBody(QDataStream& stream) const
{
    stream << static_cast<quint32>(_entries.size());
    for (StreamSwitchEntry const& entry : _entries)
        stream << StreamSwitchEntry::marker << entry.streamNumber << entry.selection;
}

MmsLinkViewerToMacStartPlaying::MmsLinkViewerToMacStartPlaying(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    stream >> _fileId >> _unused >> _position;
    for (quint32& number : _numbers)
        stream >> number;
}

void MmsLinkViewerToMacStartPlaying::writeBody(QDataStream& stream) const
{
    stream << _fileId << _unused << _position;
    for (quint32 const number : _numbers)
        stream << number;
}
