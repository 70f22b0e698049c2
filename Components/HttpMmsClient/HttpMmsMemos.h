#pragma once

#include "AbstractMemo.h"
#include "HttpMmsClient.h"

/// Deferred work of a HttpMmsClient, which is also the owner.
template<void (HttpMmsClient::*work)()>
class HttpMmsMemo : public AbstractMemo
{
public:
    explicit HttpMmsMemo(HttpMmsClient* client) : AbstractMemo(client), _client(client) {}
    void handle() override { (_client->*work)(); }

private:
    HttpMmsClient* const _client;
};

using HttpMmsDescribeMemo = HttpMmsMemo<&HttpMmsClient::mmsDescribe>;
using HttpMmsPlayMemo = HttpMmsMemo<&HttpMmsClient::mmsPlay>;
using HttpMmsSelectStreamMemo = HttpMmsMemo<&HttpMmsClient::mmsSelectStream>;
using HttpMmsLastingMemo = HttpMmsMemo<&HttpMmsClient::streamHasLasted>;

/// Marks the place of a report or a stop in the queue; both are sent at once.
class HttpMmsMark : public AbstractMemo
{
public:
    explicit HttpMmsMark(HttpMmsClient* client) : AbstractMemo(client) {}
    void handle() override {}
};

using HttpMmsLoggingMemo = HttpMmsMark;
using HttpMmsStopMemo = HttpMmsMark;
