#pragma once

#include "BiscottiCommands.h"
#include "BiscottiPeer.h"
#include "BiscottiServer.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"

#include <gtest/gtest.h>

/// A server whose clock goes by hand, and its log.
class BiscottiServerTest : public testing::Test
{
protected:
    BiscottiServerTest() { EXPECT_TRUE(server->listen(QHostAddress::LocalHost, 0)); }

    std::unique_ptr<BiscottiPeer> peer(QString const& identity = "peer")
    {
        return std::make_unique<BiscottiPeer>(server->port(), identity);
    }

    void stall(BiscottiPeer& slow, BiscottiPeer& sender, QString const& topic);

    QString command(QString const& line, QStringList* lines = nullptr)
    {
        QStringList answer;
        QString const error = BiscottiCommands(*server).run(line.split(' '), answer);
        if (lines)
            *lines = answer;
        return error;
    }

    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    LogCapture log;
    std::unique_ptr<BiscottiServer> server = std::make_unique<BiscottiServer>(clock, timers);
};
