#include "ViewerToMacSessionMessages.h"

void MmsLinkViewerToMacConnect::verify() const
{
    TcpMmsMessage::verify();
    char const* const name = "MmsLinkViewerToMacConnect";
    expect(name, "_macToViewerProtocolVersion", _macToViewerProtocolVersion, macToViewerProtocolVersion);
    expect(name, "_viewerToMacProtocolVersion", _viewerToMacProtocolVersion, viewerToMacProtocolVersion);
}
