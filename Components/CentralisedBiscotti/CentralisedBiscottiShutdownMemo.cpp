#include "CentralisedBiscottiShutdownMemo.h"

#include "CentralisedBiscottiSession.h"

CentralisedBiscottiShutdownMemo::CentralisedBiscottiShutdownMemo(CentralisedBiscottiSession& session)
    : AbstractMemo(&session), _session(session)
{
}

void CentralisedBiscottiShutdownMemo::handle()
{
    _session.flushPosts();
    _session.link().dispose();
    _isDone.set_value();
}
