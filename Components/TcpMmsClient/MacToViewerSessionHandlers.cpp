#include "MacToViewerSessionHandlers.h"

#include "Logger.h"
#include "TcpMmsClient.h"

void MmsLinkMacToViewerReportConnectedExHandler::act()
{
    if (!isSuccess(TcpMmsMessage::LinkViewerToMacConnect, report().result()))
        return;
    client().setServerVersionInfo(report().serverVersionInfo());
    client().setAuthenticationPackage(report().authenticationPackage());
    if (report().serverMark() == MmsLinkMacToViewerReportConnectedEx::funnelInfoMark)
        client().sendLinkViewerToMacFunnelInfo();
    else
        client().sendLinkViewerToMacConnectFunnel();
}

void MmsLinkMacToViewerReportFunnelInfoHandler::act()
{
    // Whether asked for or not; but one that comes while a file is read or played must not begin all anew.
    if (client().state() != MmsClient::Connected)
        return;
    if (report().result() < 0)
        client().handleError(report().result());
    else
        client().sendLinkViewerToMacConnectFunnel();
}

void MmsLinkMacToViewerReportConnectedFunnelHandler::act()
{
    if (!isSuccess(TcpMmsMessage::LinkViewerToMacConnectFunnel, report().result()))
        return;
    client().setPlayIncarnation(report().playIncarnation());
    client().sendLinkViewerToMacOpenFile();
}

void MmsLinkMacToViewerReportDisconnectedFunnelHandler::act()
{
    LOG_INFO("Received LinkMacToViewerReportDisconnectedFunnel");
}

void MmsLinkMacToViewerPingHandler::act()
{
    client().sendLinkViewerToMacPong();
}
