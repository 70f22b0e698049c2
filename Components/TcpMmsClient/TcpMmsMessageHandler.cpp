#include "TcpMmsMessageHandler.h"

#include "TcpMmsClient.h"

#include <QPointer>

TcpMmsMessageHandler::TcpMmsMessageHandler(TcpMmsClient* client, std::unique_ptr<TcpMmsMessage> message)
    : AbstractMemo(client), _client(client), _message(std::move(message))
{
}

void TcpMmsMessageHandler::handle()
{
    if (!_live)
        return;
    QPointer<TcpMmsClient> const guard(_client);
    act();
    if (guard)
        guard->removeHandler(this);
    _live = false;
}
