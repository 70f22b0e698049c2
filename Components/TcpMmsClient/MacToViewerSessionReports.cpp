#include "MacToViewerSessionReports.h"

#include "ViewerToMacSessionMessages.h"

#include <stdexcept>

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

void MmsLinkMacToViewerReportConnectedFunnel::verify() const
{
    TcpMmsMessage::verify();
    if (_funnelName.text != QLatin1String("Funnel Of The Gods"))
        throw std::out_of_range("MmsLinkMacToViewerReportConnectedFunnel _funnelName != Funnel Of The Gods");
}

void MmsLinkMacToViewerReportFunnelInfo::verify() const
{
    TcpMmsMessage::verify();
    char const* const name = "MmsLinkMacToViewerReportFunnelInfo";
    expect(name, "_transportMask", _numbers[2], 8);
    expect(name, "_nBlockFragments", _numbers[3], 1);
    expect(name, "_fragmentBytes", _numbers[4], 0x10000);
    expect(name, "_nDisks", _numbers[7], 1);
}
