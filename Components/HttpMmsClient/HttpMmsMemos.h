#pragma once

#include "AbstractMemo.h"
#include "HttpMmsClient.h"

/// The deferred work of a HttpMmsClient, which is also the owner.
class HttpMmsMemo : public AbstractMemo
{
public:
    explicit HttpMmsMemo(HttpMmsClient* client) : AbstractMemo(client), _client(client) {}

protected:
    HttpMmsClient* client() const { return _client; }

private:
    HttpMmsClient* const _client;
};

/// Asks the server for the stream's header.
class HttpMmsDescribeMemo : public HttpMmsMemo
{
public:
    using HttpMmsMemo::HttpMmsMemo;
    void handle() override { client()->mmsDescribe(); }
};

/// Asks for the stream itself.
class HttpMmsPlayMemo : public HttpMmsMemo
{
public:
    using HttpMmsMemo::HttpMmsMemo;
    void handle() override { client()->mmsPlay(); }
};

/// Tells which streams are wanted of a playlist's next entry.
class HttpMmsSelectStreamMemo : public HttpMmsMemo
{
public:
    using HttpMmsMemo::HttpMmsMemo;
    void handle() override { client()->mmsSelectStream(); }
};

/// Comes when the stream has lasted a while.
class HttpMmsLastingMemo : public HttpMmsMemo
{
public:
    using HttpMmsMemo::HttpMmsMemo;
    void handle() override { client()->streamHasLasted(); }
};

/// Marks the place of a report in the queue; reports are sent at once.
class HttpMmsLoggingMemo : public HttpMmsMemo
{
public:
    using HttpMmsMemo::HttpMmsMemo;
    void handle() override {}
};

/// Marks the place of a stop in the queue; stops are sent at once.
class HttpMmsStopMemo : public HttpMmsMemo
{
public:
    using HttpMmsMemo::HttpMmsMemo;
    void handle() override {}
};
