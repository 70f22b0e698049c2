#pragma once

#include "TcpMmsClient.h"
#include "TcpMmsMessageHandler.h"

/// Comes when all memos of the bytes that were read last have been handled.
class MmsSliceHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsSliceHandler(TcpMmsClient* client) : TcpMmsMessageHandler(client) {}

protected:
    void act() override { client().sliceHandled(); }
};
