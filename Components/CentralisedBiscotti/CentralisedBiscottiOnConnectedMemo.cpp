#include "CentralisedBiscottiOnConnectedMemo.h"

#include "Logger.h"
#include "LoggerManager.h"

Logger* CentralisedBiscottiOnConnectedMemo::log = LoggerManager::logger();

void CentralisedBiscottiOnConnectedMemo::handle()
{
    // A link that ended before both sides had greeted leaves no change of state behind that would have done this.
    _session.link().reset();
    if (_session.link().sendGreeting())
        return;
    LOG_WARNING("Greeting failed. Disconnecting.");
    _session.link().disconnectFromHost();
}
