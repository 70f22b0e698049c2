#include "MmsPlaylist.h"

#include "HttpContentChecker.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

PlaylistItem item(QStringList const& urls)
{
    PlaylistItem result;
    for (QString const& url : urls)
        result.addUrl(url);
    return result;
}

/// The next addresses; those that are to be asked what they are, with a question mark.
QStringList next(MmsPlaylist& playlist, int count)
{
    QStringList result;
    for (int i = 0; i < count; ++i) {
        std::optional<MmsPlaylist::Address> const address = playlist.next();
        char const* const mark = !address ? "-" : address->isToBeAsked ? "?" : address->useHttp ? "+http" : "+tcp";
        result << QString((address ? address->url : QString()) + mark);
    }
    return result;
}

} // namespace

TEST(MmsPlaylist, WhatAnAddressIsIsAskedOnceAndKnownFromThenOn)
{
    MmsPlaylist playlist;
    playlist.enter("list", "");
    playlist.replace("list", {item({"a"}), item({"b", "c"})});
    next(playlist, 1);
    playlist.setStream("a", true);
    EXPECT_THAT(next(playlist, 1), ElementsAre("b?"));
    EXPECT_EQ(playlist.nextOf("b")->url, "c");
    EXPECT_FALSE(playlist.nextOf("c"));
    EXPECT_FALSE(playlist.nextOf("a"));
    playlist.setStream("c", false); // What b is remains unknown, and what was down may be back.
    EXPECT_THAT(next(playlist, 4), ElementsAre("a+http", "b?", "c+tcp", "a+http"));
}

TEST(MmsPlaylist, ItemsOfAPlaylistTakeThePlaceOfItsAddress)
{
    MmsPlaylist playlist;
    EXPECT_THAT(next(playlist, 1), ElementsAre("-"));
    playlist.enter("list", "");
    playlist.replace("list", {item({"first"}), item({"inner"}), item({"last"})});
    EXPECT_EQ(playlist.current()->referrer, "list");
    EXPECT_THAT(next(playlist, 2), ElementsAre("first?", "inner?"));
    ASSERT_TRUE(playlist.replace("inner", {item({"last", "more"}), item({"i"}), item({"j", "x.GIF"}), item({})}));
    EXPECT_THAT(next(playlist, 6), ElementsAre("i?", "j?", "last?", "more?", "first?", "i?"));
    EXPECT_FALSE(playlist.contains("inner"));
    for (char const* url : {"first", "i", "last"})
        playlist.remove(url);
    EXPECT_FALSE(playlist.hasAlternative());
}

TEST(MmsPlaylist, PlaylistsThatLeadToEachOtherOrTooDeepEnd)
{
    MmsPlaylist playlist;
    playlist.enter("a", "");
    EXPECT_TRUE(playlist.replace("a", {item({"b"}), item({"c"})}));
    EXPECT_FALSE(playlist.replace("b", {item({"a"}), item({"b"})}));
    EXPECT_THAT(next(playlist, 2), ElementsAre("c?", "c?"));

    playlist.clear();
    playlist.enter("0", "");
    int depth = 0;
    while (playlist.replace(QString::number(depth), {item({QString::number(depth + 1)})}))
        ++depth;
    EXPECT_EQ(depth, 8);
    EXPECT_TRUE(playlist.isEmpty());
}
