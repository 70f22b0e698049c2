#pragma once

#include "AbstractMemo.h"

class MmsLatteClient;
class MmsLatteClientPrivate;

/// Connects once more to the address in use. Belongs to the private object.
class MmsReconnectMemo : public AbstractMemo
{
public:
    MmsReconnectMemo(MmsLatteClient* client, MmsLatteClientPrivate* clientPrivate);

    void handle() override;

private:
    MmsLatteClient* const _client;
    MmsLatteClientPrivate* const _private;
};
