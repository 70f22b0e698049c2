#pragma once

#include "CentralisedBiscottiMemo.h"

class Logger;

/// The link is lost: what waits is put in order for the next one, all subscriptions first.
class CentralisedBiscottiOnDisconnectedMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;

private:
    void replaySubscriptions();

    static Logger* log;
};
