#include "MmsReconnectMemo.h"

#include "MmsLatteClient.h"
#include "MmsLatteClientPrivate.h"

MmsReconnectMemo::MmsReconnectMemo(MmsLatteClient* client, MmsLatteClientPrivate* clientPrivate)
    : AbstractMemo(clientPrivate), _client(client), _private(clientPrivate)
{
}

void MmsReconnectMemo::handle()
{
    if (_client->state() == LatteClient::Delivering)
        _private->doReconnectCurrentContent();
}
