#pragma once

#include "CentralisedBiscottiMemo.h"

/// Queues the post that came first for the server; there is one for each post.
class CentralisedBiscottiPostMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;
};
