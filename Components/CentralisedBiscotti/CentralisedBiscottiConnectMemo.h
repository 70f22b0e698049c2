#pragma once

#include "CentralisedBiscottiMemo.h"

/// Makes a new link without waiting for the heartbeat that would.
class CentralisedBiscottiConnectMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;
};
