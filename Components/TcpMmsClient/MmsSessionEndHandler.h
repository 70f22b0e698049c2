#pragma once

#include "MmsClient.h"
#include "TcpMmsMessageHandler.h"

/// Ends the session after all that was received before has been handled.
class MmsSessionEndHandler : public TcpMmsMessageHandler
{
public:
    MmsSessionEndHandler(TcpMmsClient* client, MmsClient::MmsClientState state, MmsClient::MmsClientError error);

protected:
    void act() override;

private:
    MmsClient::MmsClientState const _state;
    MmsClient::MmsClientError const _error;
};
