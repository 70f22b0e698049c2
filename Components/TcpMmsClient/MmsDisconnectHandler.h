#pragma once

#include "TcpMmsMessageHandler.h"

/// Disconnects its client.
class MmsDisconnectHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsDisconnectHandler(TcpMmsClient* client) : TcpMmsMessageHandler(client) {}

protected:
    void act() override;
};
