#include "CentralisedBiscottiHandleHeartbeatMemo.h"

#include "Logger.h"
#include "LoggerManager.h"

Logger* CentralisedBiscottiHandleHeartbeatMemo::log = LoggerManager::logger();

void CentralisedBiscottiHandleHeartbeatMemo::handle()
{
    LOG_DEBUG("*** Received heartbeat from server.");
}
