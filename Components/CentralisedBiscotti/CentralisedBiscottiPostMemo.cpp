#include "CentralisedBiscottiPostMemo.h"

void CentralisedBiscottiPostMemo::handle()
{
    if (_session.queueNextPost())
        _session.postDoPending();
}
