#pragma once

#include "AbstractMemo.h"
#include "MmsLatteClientPrivate.h"

/// Makes another attempt. Belongs to the private object.
template<void (MmsLatteClientPrivate::*attempt)()>
class MmsAttemptMemo : public AbstractMemo
{
public:
    explicit MmsAttemptMemo(MmsLatteClientPrivate* client) : AbstractMemo(client), _client(client) {}
    void handle() override { (_client->*attempt)(); }

private:
    MmsLatteClientPrivate* const _client;
};

using MmsReconnectMemo = MmsAttemptMemo<&MmsLatteClientPrivate::doReconnectCurrentContent>;
using MmsReconnectNextContentMemo = MmsAttemptMemo<&MmsLatteClientPrivate::doCheckNextContent>;
