#include "MmsReconnectNextContentMemo.h"

#include "MmsLatteClient.h"
#include "MmsLatteClientPrivate.h"

MmsReconnectNextContentMemo::MmsReconnectNextContentMemo(MmsLatteClient* client, MmsLatteClientPrivate* clientPrivate)
    : AbstractMemo(clientPrivate), _client(client), _private(clientPrivate)
{
}

void MmsReconnectNextContentMemo::handle()
{
    if (_client->state() == LatteClient::Delivering)
        _private->doCheckNextContent();
}
