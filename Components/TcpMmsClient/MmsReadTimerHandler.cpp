#include "MmsReadTimerHandler.h"

#include "TcpMmsClient.h"

MmsReadTimerHandler::MmsReadTimerHandler(TcpMmsClient* client)
    : TcpMmsMessageHandler(client), _totalBytes(client->totalBytesReceived()), _state(client->state())
{
}

void MmsReadTimerHandler::act()
{
    if (client().state() != _state)
        return; // One of the new state has been made.
    if (client().isReading() && client().totalBytesReceived() == _totalBytes)
        client().handleReadTimeout();
    else
        client().startReadTimer();
}
