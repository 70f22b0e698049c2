#pragma once

#include "MmsClient.h"
#include "TcpMmsMessageHandler.h"

/// The limit on silence while bytes are to flow: when it comes due in the state it was made in and nothing has
/// arrived since, the session ends by TcpMmsClient::handleReadTimeout(); if something has, it begins anew.
class MmsReadTimerHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsReadTimerHandler(TcpMmsClient* client);

protected:
    void act() override;

private:
    qint64 const _totalBytes;
    MmsClient::MmsClientState const _state;
};
