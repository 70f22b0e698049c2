#pragma once

#include "AbstractMemo.h"
#include "MmsLatteClientPrivate.h"

/// Makes another attempt at the address in use. Belongs to the private object.
class MmsReconnectMemo : public AbstractMemo
{
public:
    explicit MmsReconnectMemo(MmsLatteClientPrivate* client) : AbstractMemo(client), _client(client) {}
    void handle() override { _client->doReconnectCurrentContent(); }

private:
    MmsLatteClientPrivate* const _client;
};

/// Makes an attempt at the next address, likewise.
class MmsReconnectNextContentMemo : public AbstractMemo
{
public:
    explicit MmsReconnectNextContentMemo(MmsLatteClientPrivate* client) : AbstractMemo(client), _client(client) {}
    void handle() override { _client->doCheckNextContent(); }

private:
    MmsLatteClientPrivate* const _client;
};
