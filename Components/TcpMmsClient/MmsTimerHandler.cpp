#include "MmsTimerHandler.h"

#include "TcpMmsClient.h"

MmsTimerHandler::MmsTimerHandler(TcpMmsClient* client)
    : TcpMmsMessageHandler(client), _lastMessage(client->lastMessage()), _lastSequence(client->lastSequence()),
      _state(client->state())
{
}

void MmsTimerHandler::act()
{
    if (client().lastMessage() == _lastMessage && client().lastSequence() == _lastSequence &&
        client().state() == _state)
        client().handleTimeout();
}
