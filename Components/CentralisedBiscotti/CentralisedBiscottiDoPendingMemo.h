#pragma once

#include "CentralisedBiscottiMemo.h"

class Logger;

/// Sends the next operation if none waits for its acknowledgement, drops posts that are too old, and drops a link
/// that has been silent for too long. A periodic one posts the next of its kind.
class CentralisedBiscottiDoPendingMemo : public CentralisedBiscottiMemo
{
public:
    static constexpr int PostTtlMSecs = CentralisedBiscottiSession::PostTtlMSecs;
    static constexpr int PeriodicPendingMs = 10000;
    static constexpr int MaxAckWaitMs = 15000;

    CentralisedBiscottiDoPendingMemo(CentralisedBiscottiSession& session, bool isPeriodic)
        : CentralisedBiscottiMemo(session), _isPeriodic(isPeriodic)
    {
    }

    void handle() override;

private:
    void logPending() const;
    void doPending();
    void sendNext();

    static Logger* log;

    bool const _isPeriodic;
};
