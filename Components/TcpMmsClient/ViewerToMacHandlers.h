#pragma once

#include "TcpMmsMessageHandler.h"
#include "ViewerToMacFileMessages.h"
#include "ViewerToMacSessionMessages.h"

// Messages of the viewer's that come from the server: nobody expects them. They are logged and dropped.

/// Logs that the message was dropped.
class MmsDroppedMessageHandler : public TcpMmsMessageHandler
{
public:
    MmsDroppedMessageHandler(TcpMmsClient* client, TcpMmsMessage* message);

    static Memo* create(TcpMmsClient* client, TcpMmsMessage* message);

protected:
    void act() override;
};

using MmsLinkViewerToMacConnectHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacConnectFunnelHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacOpenFileHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacStartPlayingHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacCloseFileHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacReadBlockHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacFunnelInfoHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacPongHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacCancelReadBlockHandler = MmsDroppedMessageHandler;
using MmsLinkViewerToMacStreamSwitchHandler = MmsDroppedMessageHandler;
