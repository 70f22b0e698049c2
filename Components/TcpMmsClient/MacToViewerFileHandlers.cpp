#include "MacToViewerFileHandlers.h"

#include "Logger.h"
#include "TcpMmsClient.h"
#include "TcpMmsFileInfo.h"

void MmsLinkMacToViewerReportOpenFileHandler::act()
{
    if (!isSuccess(TcpMmsMessage::LinkViewerToMacOpenFile, report().result()))
        return;
    client().setMmsFile(new TcpMmsFileInfo(report().file()));
    client().sendLinkViewerToMacReadBlock();
}

void MmsLinkMacToViewerReportReadBlockHandler::act()
{
    if (isSuccess(TcpMmsMessage::LinkViewerToMacReadBlock, report().result()))
        client().readingHeader();
}

void MmsLinkMacToViewerReportStreamSwitchHandler::act()
{
    if (isSuccess(TcpMmsMessage::LinkViewerToMacStreamSwitch, report().result()))
        client().sendLinkViewerToMacStartPlaying();
}

void MmsLinkMacToViewerReportStartedPlayingHandler::act()
{
    if (isSuccess(TcpMmsMessage::LinkViewerToMacStartPlaying, report().result()))
        client().startStreaming();
}

void MmsLinkMacToViewerReportStartStridingHandler::act()
{
    LOG_INFO("Received LinkMacToViewerReportStartStriding");
}

void MmsLinkMacToViewerReportEndOfStreamHandler::act()
{
    if (client().state() != MmsClient::Streaming)
        return;
    client().sendLinkViewerToMacCloseFile();
    client().stopStreaming(false);
}

void MmsLinkMacToViewerReportStreamChangeHandler::act() {}
