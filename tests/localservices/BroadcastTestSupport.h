#pragma once

#include "AsfFile.h"
#include "Broadcast.h"
#include "BroadcastCatalogue.h"
#include "Clips.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "FaultPlan.h"

#include <gtest/gtest.h>

/// A broadcast "/live" of a film of four seconds, and its clock.
class BroadcastFixture : public testing::Test
{
protected:
    static constexpr int msBurst = 2000;

    Broadcast& addBroadcast(QString const& name, QStringList const& films)
    {
        std::vector<std::unique_ptr<AsfFile>> files;
        for (QString const& film : films) {
            QString error;
            files.push_back(AsfFile::open(film, error));
            EXPECT_TRUE(files.back()) << qPrintable(error);
        }
        catalogue.add(std::make_unique<Broadcast>(name, std::move(files), msBurst, clock, timers));
        return *catalogue.find(name);
    }

    Broadcast& live()
    {
        return catalogue.find("/live") ? *catalogue.find("/live") : addBroadcast("/live", {Clips::wmv(4)});
    }

    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    BroadcastCatalogue catalogue;
    FaultPlan faults;
};
