#pragma once

#include "CentralisedBiscottiArrivalMemo.h"

class Logger;

/// The server has given a sign of life.
class CentralisedBiscottiHandleHeartbeatMemo : public CentralisedBiscottiArrivalMemo
{
public:
    using CentralisedBiscottiArrivalMemo::CentralisedBiscottiArrivalMemo;

    void handle() override;

private:
    static Logger* log;
};
