#include "MacToViewerFileReports.h"

MmsLinkMacToViewerReportOpenFile::MmsLinkMacToViewerReportOpenFile(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    stream >> _file.result >> _file.number >> _file.fileId;
    for (quint32& number : _file.numbersAfterFileId)
        stream >> number;
    stream >> _file.duration >> _file.blocks;
    stream.readRawData(_file.bytesAfterBlocks.data(), static_cast<int>(_file.bytesAfterBlocks.size()));
    for (quint32& size : _file.sizes)
        stream >> size;
    stream.readRawData(_file.bytesAtEnd.data(), static_cast<int>(_file.bytesAtEnd.size()));
}

void MmsLinkMacToViewerReportOpenFile::writeBody(QDataStream& stream) const
{
    stream << _file.result << _file.number << _file.fileId;
    for (quint32 const number : _file.numbersAfterFileId)
        stream << number;
    stream << _file.duration << _file.blocks;
    stream.writeRawData(_file.bytesAfterBlocks.data(), static_cast<int>(_file.bytesAfterBlocks.size()));
    for (quint32 const size : _file.sizes)
        stream << size;
    stream.writeRawData(_file.bytesAtEnd.data(), static_cast<int>(_file.bytesAtEnd.size()));
}
