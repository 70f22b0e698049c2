#pragma once

#include "MmsClient.h"
#include "TcpMmsMessageHandler.h"

/// The limit on the server's answer: when it comes due and the conversation stands where it stood when this was made,
/// the session ends by TcpMmsClient::handleTimeout().
class MmsTimerHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsTimerHandler(TcpMmsClient* client);

protected:
    void act() override;

private:
    quint32 const _lastMessage;
    quint16 const _lastSequence; ///< Tells two messages of one type apart.
    MmsClient::MmsClientState const _state;
};
