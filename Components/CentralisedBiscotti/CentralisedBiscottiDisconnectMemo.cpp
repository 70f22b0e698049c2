#include "CentralisedBiscottiDisconnectMemo.h"

void CentralisedBiscottiDisconnectMemo::handle()
{
    _session.link().disconnectFromHost();
}
