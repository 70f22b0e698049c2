#include "ViewerToMacHandlers.h"

#include "Logger.h"
#include "TcpMessageHelper.h"

MmsDroppedMessageHandler::MmsDroppedMessageHandler(TcpMmsClient* client, TcpMmsMessage* message)
    : TcpMmsMessageHandler(client, std::unique_ptr<TcpMmsMessage>(message))
{
}

Memo* MmsDroppedMessageHandler::create(TcpMmsClient* client, TcpMmsMessage* message)
{
    return new MmsDroppedMessageHandler(client, message);
}

void MmsDroppedMessageHandler::act()
{
    LOG_WARNING("Dropped %s, which is not for a viewer", TcpMessageHelper::nameOf(message().type()));
}
