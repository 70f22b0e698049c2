#include "TcpMmsMessageHandlers.h"

#include "TcpMmsClient.h"
#include "TcpMmsMessage.h"

TcpMmsMessageHandlers& TcpMmsMessageHandlers::instance()
{
    static TcpMmsMessageHandlers handlers;
    return handlers;
}

void TcpMmsMessageHandlers::addMessageHandlerFactory(unsigned int type, Factory factory)
{
    _factories.insert(type, factory);
}

void TcpMmsMessageHandlers::handleMessage(TcpMmsClient* client, TcpMmsMessage* message) const
{
    if (Factory const factory = _factories.value(message->type()))
        client->handleNow(factory(client, message));
    else
        delete message;
}
