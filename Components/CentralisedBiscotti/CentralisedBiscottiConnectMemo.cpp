#include "CentralisedBiscottiConnectMemo.h"

void CentralisedBiscottiConnectMemo::handle()
{
    if (_session.state() == Biscotti::Disconnected)
        _session.link().connectToHost();
}
