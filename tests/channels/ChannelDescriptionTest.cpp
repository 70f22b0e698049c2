#include "ChannelDescription.h"

#include <gtest/gtest.h>

namespace
{

StreamDescription stream(char const* uri, bool secure = false)
{
    StreamDescription result{Uri(uri)};
    result.setSecure(secure);
    return result;
}

} // namespace

TEST(ChannelDescription, AStreamGoesByItsAddressTracksAndDescriptor)
{
    char const* const one = "rtsp://host/path/live?token=1";
    char const* const two = "rtsp://host/path/other?token=2";
    struct {
        StreamDescription has;
        StreamDescription removed;
        bool goes;
    } cases[] = {{stream(one), stream(one), true},
                 {stream(one), stream(two), false},
                 {stream(one, true), stream(two), true}, // Behind its base there is only a token, which changes.
                 {stream(one), stream(two, true), false},
                 {stream(one, true), stream("rtsp://host/elsewhere/live?token=1", true), false},
                 {stream(one), stream(one), true},
                 {stream(one), stream(one), false},
                 {stream(one), stream(one), false}};
    cases[5].removed.setKey("k"); // Belongs to letting in.
    cases[6].removed.setDescriptor("d");
    cases[7].removed.appendTrackDescription({});
    for (auto const& [has, removed, goes] : cases) {
        ChannelDescription channel;
        channel.appendStreamDescription(has);
        channel.removeStreamDescription(removed);
        EXPECT_EQ(channel.streamDescriptions().isEmpty(), goes) << qPrintable(removed.uri().toString());
    }
}

TEST(ChannelDescription, ATitleIsALineThatTurnsNothingRound)
{
    ChannelDescription channel;
    channel.setTitle(QString::fromUtf8("News\t\u202Eon\u202C\u2028air \u2067\u05D0\u2069 \u00E9"));
    EXPECT_EQ(channel.title(), QString::fromUtf8("News on air \u05D0 \u00E9"));
}
