#pragma once

#include "MacToViewerFileReports.h"
#include "MacToViewerSessionReports.h"

class Logger;
class TcpMmsClient;

/// The steps of the conversation: what follows from each type of message that the server sends. A report that has
/// come late does nothing, and a negative result ends the session or is dealt with by TcpMmsClient::handleError().
/// The client may be deleted by any of them.
class TcpMmsConversation
{
public:
    /// Goes on with FunnelInfo, or with ConnectFunnel, as the server's mark says.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportConnectedEx const& report);
    /// Goes on with ConnectFunnel, until a file is being opened.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportFunnelInfo const& report);
    /// Goes on with OpenFile.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportConnectedFunnel const& report);
    /// Goes on with ReadBlock.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportOpenFile const& report);
    /// The header comes next.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportReadBlock const& report);
    /// Goes on with StartPlaying.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportStreamSwitch const& report);
    /// The data packets come next.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportStartedPlaying const& report);
    /// Closes the file and ends the session, if it is streaming.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportEndOfStream const& report);
    /// Answers, at any time.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerPing const& report);
    /// Does nothing.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportStreamChange const& report);
    /// These two only log.
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportDisconnectedFunnel const& report);
    static void follow(TcpMmsClient& client, MmsLinkMacToViewerReportStartStriding const& report);
    /// All others are the viewer's own, which nobody expects from a server: logs and drops them.
    static void follow(TcpMmsClient& client, TcpMmsMessage const& message);

private:
    template<typename Report>
    static bool isSuccess(TcpMmsClient& client, Report const& report, TcpMmsMessage::MmsMessageType request);

    static Logger* log;
};
