#include "UserChannelGizmo.h"

#include "Biscotti.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace
{

/// Writes down what is asked of it.
struct RecordingBiscotti : Biscotti {
    BiscottiState state() const override { return Connected; }
    BiscottiSubscriptionId subscribe(BiscottiSubscription* subscription, BiscottiSubscriber* subscriber,
                                     BiscottiSignatureId const&) override
    {
        told.append(subscriber->biscottiSubscriberId().toString() + ' ' + subscription->interest().toString());
        return {};
    }
    void unsubscribe(BiscottiSubscriptionId const&) override {}
    void unsubscribeAll(BiscottiSubscriberId const& id) override { told.append("not " + id.toString()); }
    BiscottiPostId post(BiscottiPost*, BiscottiSignatureId const&) override { return {}; }

    QStringList told;
};

} // namespace

TEST(UserChannelGizmo, HearsTheTriggerOfItsOwnUserOnly)
{
    RecordingBiscotti biscotti;
    QString const trigger = UserChannelGizmo::TriggerTopic;
    for (QString const& user : {QString("Ann-42"), QString(), QString("@")}) {
        biscotti.told.clear();
        {
            UserChannelGizmo gizmo(&biscotti, user);
            QSignalSpy refresh(&gizmo, &UserChannelGizmo::refreshUserChannels);
            for (char const* const below : {"", ".bob", ".ann-42.more", ".ann-42"}) {
                BiscottiPost post;
                post.setTopic(BiscottiTopic(trigger + below));
                gizmo.handleBiscottiPost(post);
            }
            EXPECT_EQ(refresh.count(), user.size() > 1);
        }
        ASSERT_EQ(biscotti.told.size(), 2);
        EXPECT_TRUE(biscotti.told[0].startsWith("UserChannelGizmo_"));
        EXPECT_TRUE(biscotti.told[0].endsWith("_" + user + ' ' + BiscottiTopic(trigger).append(user).toString()));
        EXPECT_EQ(biscotti.told[1], "not " + biscotti.told[0].section(' ', 0, 0));
    }
}
