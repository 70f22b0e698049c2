#pragma once

#include "MmsClientFactoryOf.h"
#include "TcpMmsClient.h"

/// Makes TcpMmsClients.
using TcpMmsClientFactory =
    MmsClientFactoryOf<TcpMmsClient, TimerFactory*, TcpSocketFactory*, DateTimeBuilder*, MemoQueue*>;
