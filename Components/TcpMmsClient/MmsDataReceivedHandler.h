#pragma once

#include "MmsData.h"
#include "TcpMmsMessageHandler.h"

/// Gives a data packet to its client.
class MmsDataReceivedHandler : public TcpMmsMessageHandler
{
public:
    MmsDataReceivedHandler(TcpMmsClient* client, MmsData data);

protected:
    void act() override;

private:
    MmsData const _data;
};
