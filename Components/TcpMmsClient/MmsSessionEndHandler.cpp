#include "MmsSessionEndHandler.h"

#include "TcpMmsClient.h"

MmsSessionEndHandler::MmsSessionEndHandler(TcpMmsClient* client, MmsClient::MmsClientState state,
                                           MmsClient::MmsClientError error)
    : TcpMmsMessageHandler(client), _state(state), _error(error)
{
}

void MmsSessionEndHandler::act()
{
    client().endSession(_state, _error);
}
