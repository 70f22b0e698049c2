#pragma once

#include "CentralisedBiscottiMemo.h"

/// Drops the link.
class CentralisedBiscottiDisconnectMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;
};
