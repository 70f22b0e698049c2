#include "TcpMmsMessageHandler.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TcpMessageHelper.h"
#include "TcpMmsClient.h"

#include <QPointer>

Logger* TcpMmsMessageHandler::log = LoggerManager::logger();

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

bool TcpMmsMessageHandler::isSuccess(TcpMmsMessage::MmsMessageType request, int result) const
{
    if (client().lastMessage() != request) {
        LOG_DEBUG("Late %s", TcpMessageHelper::nameOf(message().type()));
        return false;
    }
    if (result >= 0)
        return true;
    client().handleError(result);
    return false;
}
