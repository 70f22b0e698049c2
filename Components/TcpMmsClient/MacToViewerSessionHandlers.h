#pragma once

#include "MacToViewerSessionReports.h"
#include "TcpMmsMessageHandler.h"

// What follows from each message of MacToViewerSessionReports.h: the steps of the conversation.

/// Goes on with FunnelInfo, or with ConnectFunnel, as the server's mark says.
class MmsLinkMacToViewerReportConnectedExHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportConnectedExHandler, MmsLinkMacToViewerReportConnectedEx>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Goes on with ConnectFunnel, until a file is being opened.
class MmsLinkMacToViewerReportFunnelInfoHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportFunnelInfoHandler, MmsLinkMacToViewerReportFunnelInfo>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Goes on with OpenFile.
class MmsLinkMacToViewerReportConnectedFunnelHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportConnectedFunnelHandler,
                                    MmsLinkMacToViewerReportConnectedFunnel>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Only logs.
class MmsLinkMacToViewerReportDisconnectedFunnelHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportDisconnectedFunnelHandler,
                                    MmsLinkMacToViewerReportDisconnectedFunnel>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Answers, at any time.
class MmsLinkMacToViewerPingHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerPingHandler, MmsLinkMacToViewerPing>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};
