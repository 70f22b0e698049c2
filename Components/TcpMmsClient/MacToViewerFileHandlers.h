#pragma once

#include "MacToViewerFileReports.h"
#include "TcpMmsMessageHandler.h"

// What follows from each message of MacToViewerFileReports.h: the steps of the conversation.

/// Goes on with ReadBlock.
class MmsLinkMacToViewerReportOpenFileHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportOpenFileHandler, MmsLinkMacToViewerReportOpenFile>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// The header comes next.
class MmsLinkMacToViewerReportReadBlockHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportReadBlockHandler, MmsLinkMacToViewerReportReadBlock>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Goes on with StartPlaying.
class MmsLinkMacToViewerReportStreamSwitchHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportStreamSwitchHandler, MmsLinkMacToViewerReportStreamSwitch>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// The data packets come next.
class MmsLinkMacToViewerReportStartedPlayingHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportStartedPlayingHandler,
                                    MmsLinkMacToViewerReportStartedPlaying>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Only logs.
class MmsLinkMacToViewerReportStartStridingHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportStartStridingHandler,
                                    MmsLinkMacToViewerReportStartStriding>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Closes the file and ends the session, if it is streaming.
class MmsLinkMacToViewerReportEndOfStreamHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportEndOfStreamHandler, MmsLinkMacToViewerReportEndOfStream>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};

/// Does nothing.
class MmsLinkMacToViewerReportStreamChangeHandler
    : public TcpMmsMessageHandlerOf<MmsLinkMacToViewerReportStreamChangeHandler, MmsLinkMacToViewerReportStreamChange>
{
public:
    using TcpMmsMessageHandlerOf::TcpMmsMessageHandlerOf;

protected:
    void act() override;
};
