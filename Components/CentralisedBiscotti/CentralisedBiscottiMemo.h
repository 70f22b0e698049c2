#pragma once

#include "AbstractMemo.h"
#include "CentralisedBiscottiSession.h"

/// A memo of a CentralisedBiscotti, which owns it.
class CentralisedBiscottiMemo : public AbstractMemo
{
public:
    explicit CentralisedBiscottiMemo(CentralisedBiscottiSession& session)
        : AbstractMemo(session.client()), _session(session)
    {
    }

protected:
    CentralisedBiscottiSession& _session;
};
