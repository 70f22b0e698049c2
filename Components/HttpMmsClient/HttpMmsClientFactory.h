#pragma once

#include "HttpMmsClient.h"
#include "MmsClientFactoryOf.h"

/// Makes HttpMmsClients.
using HttpMmsClientFactory =
    MmsClientFactoryOf<HttpMmsClient, HttpClientFactory*, TimerFactory*, DateTimeBuilder*, MemoQueue*>;
