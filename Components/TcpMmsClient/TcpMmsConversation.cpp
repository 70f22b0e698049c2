#include "TcpMmsConversation.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TcpMessageHelper.h"
#include "TcpMmsClient.h"
#include "TcpMmsFileInfo.h"

Logger* TcpMmsConversation::log = LoggerManager::logger();

/// Whether the conversation goes on with a report that answers `request`: it does when that was the last message
/// sent, else the report is late, and when the result is not negative.
template<typename Report>
bool TcpMmsConversation::isSuccess(TcpMmsClient& client, Report const& report, TcpMmsMessage::MmsMessageType request)
{
    if (client.lastMessage() != request) {
        LOG_DEBUG("Late %s", TcpMessageHelper::nameOf(report.type()));
        return false;
    }
    if (report.result() >= 0)
        return true;
    client.handleError(report.result());
    return false;
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportConnectedEx const& report)
{
    if (!isSuccess(client, report, TcpMmsMessage::LinkViewerToMacConnect))
        return;
    client.setServerVersionInfo(report.serverVersionInfo());
    client.setAuthenticationPackage(report.authenticationPackage());
    if (report.serverMark() == MmsLinkMacToViewerReportConnectedEx::funnelInfoMark)
        client.sendLinkViewerToMacFunnelInfo();
    else
        client.sendLinkViewerToMacConnectFunnel();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportFunnelInfo const& report)
{
    // Whether asked for or not; but one that comes while a file is read or played must not begin all anew.
    if (client.state() != MmsClient::Connected)
        return;
    if (report.result() < 0)
        client.handleError(report.result());
    else
        client.sendLinkViewerToMacConnectFunnel();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportConnectedFunnel const& report)
{
    if (!isSuccess(client, report, TcpMmsMessage::LinkViewerToMacConnectFunnel))
        return;
    client.setPlayIncarnation(report.playIncarnation());
    client.sendLinkViewerToMacOpenFile();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportOpenFile const& report)
{
    if (!isSuccess(client, report, TcpMmsMessage::LinkViewerToMacOpenFile))
        return;
    client.setMmsFile(new TcpMmsFileInfo(report.file()));
    client.sendLinkViewerToMacReadBlock();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportReadBlock const& report)
{
    if (isSuccess(client, report, TcpMmsMessage::LinkViewerToMacReadBlock))
        client.readingHeader();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportStreamSwitch const& report)
{
    if (isSuccess(client, report, TcpMmsMessage::LinkViewerToMacStreamSwitch))
        client.sendLinkViewerToMacStartPlaying();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportStartedPlaying const& report)
{
    if (isSuccess(client, report, TcpMmsMessage::LinkViewerToMacStartPlaying))
        client.startStreaming();
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportEndOfStream const&)
{
    if (client.state() != MmsClient::Streaming)
        return;
    client.sendLinkViewerToMacCloseFile();
    client.stopStreaming(false);
}

void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerPing const&)
{
    client.sendLinkViewerToMacPong();
}

/// The header of another stream follows on this connection, in place of one that is still under way. To ignore it
/// would be to wait for the end of a silence.
void TcpMmsConversation::follow(TcpMmsClient& client, MmsLinkMacToViewerReportStreamChange const&)
{
    if (client.state() == MmsClient::Streaming || client.state() == MmsClient::ReadingHeader)
        client.readingNewHeader();
}

void TcpMmsConversation::follow(TcpMmsClient&, MmsLinkMacToViewerReportDisconnectedFunnel const&)
{
    LOG_INFO("Received LinkMacToViewerReportDisconnectedFunnel");
}

void TcpMmsConversation::follow(TcpMmsClient&, MmsLinkMacToViewerReportStartStriding const&)
{
    LOG_INFO("Received LinkMacToViewerReportStartStriding");
}

void TcpMmsConversation::follow(TcpMmsClient&, TcpMmsMessage const& message)
{
    LOG_WARNING("Dropped %s, which is not for a viewer", TcpMessageHelper::nameOf(message.type()));
}
