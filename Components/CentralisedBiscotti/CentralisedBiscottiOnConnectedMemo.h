#pragma once

#include "CentralisedBiscottiMemo.h"

class Logger;

/// The connection stands: greets the server.
class CentralisedBiscottiOnConnectedMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;

private:
    static Logger* log;
};
