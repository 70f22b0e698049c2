#include "UserChannelGizmo.h"

#include "FakeBiscotti.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "SortedMemoQueue.h"

#include <QSignalSpy>

#include <gtest/gtest.h>
#include <memory>

TEST(UserChannelGizmo, HearsTheTriggerOfItsOwnUserOnly)
{
    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    SortedMemoQueue queue{&clock, &timers};
    FakeBiscotti biscotti(&queue);
    QString const trigger = UserChannelGizmo::TriggerTopic;
    auto const deliverAll = [&] {
        for (char const* const below : {"", ".bob", ".ann-42.more", ".ann-42"})
            biscotti.deliver(trigger + below, {});
        timers.advance(0);
    };
    for (QString const& user : {QString("Ann-42"), QString(), QString("@")}) {
        auto gizmo = std::make_unique<UserChannelGizmo>(&biscotti, user);
        QSignalSpy refresh(gizmo.get(), &UserChannelGizmo::refreshUserChannels);
        deliverAll();
        EXPECT_EQ(refresh.count(), user.size() > 1);
        auto const asked = biscotti.takeRequests();
        ASSERT_EQ(asked.size(), 1);
        QString const subscriberId = asked[0].subscriberId.toString();
        EXPECT_TRUE(subscriberId.startsWith("UserChannelGizmo_") && subscriberId.endsWith("_" + user))
            << qPrintable(subscriberId);
        EXPECT_EQ(asked[0].subscription.interest().toString(), BiscottiTopic(trigger).append(user).toString());

        gizmo.reset();
        deliverAll(); // Reaches nobody.
        EXPECT_EQ(biscotti.takeRequests().value(0).kind, FakeBiscotti::UnsubscribeAll);
    }
}
