#include "MmsDisconnectHandler.h"

#include "TcpMmsClient.h"

void MmsDisconnectHandler::act()
{
    client().disconnectFromServer();
}
