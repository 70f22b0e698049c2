#pragma once

#include "CentralisedBiscottiMemo.h"

class Logger;

/// Bytes have come: reads the server's greeting, then messages.
class CentralisedBiscottiOnReadyReadMemo : public CentralisedBiscottiMemo
{
public:
    using CentralisedBiscottiMemo::CentralisedBiscottiMemo;

    void handle() override;

private:
    bool readGreeting();
    void readMessages();
    bool decode(QByteArray const& bytes);

    static Logger* log;
};
