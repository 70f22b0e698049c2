#pragma once

#include "AbstractMemo.h"

class MmsLatteClient;
class MmsLatteClientPrivate;

/// Goes on to the next address. Belongs to the private object.
class MmsReconnectNextContentMemo : public AbstractMemo
{
public:
    MmsReconnectNextContentMemo(MmsLatteClient* client, MmsLatteClientPrivate* clientPrivate);

    void handle() override;

private:
    MmsLatteClient* const _client;
    MmsLatteClientPrivate* const _private;
};
