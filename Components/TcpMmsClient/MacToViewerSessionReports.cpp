#include "MacToViewerSessionReports.h"

#include "ViewerToMacSessionMessages.h"

#include <stdexcept>

MmsLinkMacToViewerReportConnectedEx::MmsLinkMacToViewerReportConnectedEx(QDataStream& stream)
    : TcpMmsMessageOf(stream)
{
    stream >> _result >> _serverMark >> _macToViewerProtocolRevision >> _viewerToMacProtocolRevision >>
        _blockGroupPlayTime >> _blockGroupBlocks >> _nMaxOpenFiles >> _nBlockMaxBytes >> _maxBitRate;
    std::array<quint32, 4> lengths{};
    for (quint32& length : lengths)
        stream >> length;
    for (std::size_t i = 0; i < lengths.size(); ++i)
        _texts[i] = readText(stream, lengths[i]);
}

void MmsLinkMacToViewerReportConnectedEx::writeBody(QDataStream& stream) const
{
    stream << _result << _serverMark << _macToViewerProtocolRevision << _viewerToMacProtocolRevision
           << _blockGroupPlayTime << _blockGroupBlocks << _nMaxOpenFiles << _nBlockMaxBytes << _maxBitRate;
    for (QString const& text : _texts)
        stream << static_cast<quint32>(text.size() + 1); // With the 0 unit.
    for (QString const& text : _texts)
        writeText(stream, text);
}

void MmsLinkMacToViewerReportConnectedEx::verify() const
{
    using Connect = MmsLinkViewerToMacConnect;
    TcpMmsMessage::verify();
    char const* const name = "MmsLinkMacToViewerReportConnectedEx";
    expect(name, "_macToViewerProtocolRevision", _macToViewerProtocolRevision, Connect::macToViewerProtocolVersion);
    expect(name, "_viewerToMacProtocolRevision", _viewerToMacProtocolRevision, Connect::viewerToMacProtocolVersion);
    expect(name, "_blockGroupBlocks", _blockGroupBlocks, 1);
    expect(name, "_nMaxOpenFiles", _nMaxOpenFiles, 1);
    expect(name, "_nBlockMaxBytes", _nBlockMaxBytes, 0x8000);
    expect(name, "_maxBitRate", _maxBitRate, 10000000);
}

MmsLinkMacToViewerReportConnectedFunnel::MmsLinkMacToViewerReportConnectedFunnel(QDataStream& stream)
    : TcpMmsMessageOf(stream)
{
    stream >> _result >> _playIncarnation >> _number;
    _funnelName = readText(stream);
}

void MmsLinkMacToViewerReportConnectedFunnel::writeBody(QDataStream& stream) const
{
    stream << _result << _playIncarnation << _number;
    writeText(stream, _funnelName);
}

void MmsLinkMacToViewerReportConnectedFunnel::verify() const
{
    TcpMmsMessage::verify();
    if (_funnelName != QLatin1String("Funnel Of The Gods"))
        throw std::out_of_range("MmsLinkMacToViewerReportConnectedFunnel _funnelName != Funnel Of The Gods");
}

void MmsLinkMacToViewerReportFunnelInfo::verify() const
{
    TcpMmsMessage::verify();
    char const* const name = "MmsLinkMacToViewerReportFunnelInfo";
    expect(name, "_transportMask", number(2), 8);
    expect(name, "_nBlockFragments", number(3), 1);
    expect(name, "_fragmentBytes", number(4), 0x10000);
    expect(name, "_nDisks", number(7), 1);
}
