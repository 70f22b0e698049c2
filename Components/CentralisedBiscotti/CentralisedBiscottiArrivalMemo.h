#pragma once

#include "CentralisedBiscottiMemo.h"
#include "CentralisedBiscottiMessageId.h"

/// A memo that handles one message of the server; counted among the arrivals while it exists.
class CentralisedBiscottiArrivalMemo : public CentralisedBiscottiMemo
{
public:
    explicit CentralisedBiscottiArrivalMemo(CentralisedBiscottiSession& session) : CentralisedBiscottiMemo(session)
    {
        ++_session.arrivals();
    }
    ~CentralisedBiscottiArrivalMemo() override { --_session.arrivals(); }
    CentralisedBiscottiArrivalMemo(CentralisedBiscottiArrivalMemo const&) = delete;
    CentralisedBiscottiArrivalMemo& operator=(CentralisedBiscottiArrivalMemo const&) = delete;
};
