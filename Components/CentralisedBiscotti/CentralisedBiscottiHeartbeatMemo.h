#pragma once

#include "CentralisedBiscottiMemo.h"

class Logger;

/// Keeps the link up: makes one when there is none, sends a sign of life when there is. Posts the next of its kind.
class CentralisedBiscottiHeartbeatMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;

private:
    void sendHeartbeat();

    static Logger* log;
};
