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

TEST(ChannelDescription, ALogoComesOutAsItWentInAndIsKnownByItsPixels)
{
    QImage drawn(300, 2, QImage::Format_ARGB32);
    drawn.fill(QColor(1, 2, 3, 4));
    drawn.setPixelColor(299, 1, QColor(5, 6, 7, 8));
    ChannelDescription one;
    one.setLogo(drawn);
    EXPECT_EQ(one.logo(), drawn);
    ChannelDescription other;
    other.setLogo(drawn.copy());
    EXPECT_EQ(one, other);
    EXPECT_NE(one.packedLogo().key(), other.packedLogo().key());
    EXPECT_EQ(one.packedLogo().key(), ChannelDescription(one).packedLogo().key());
    drawn.setPixelColor(0, 0, Qt::red);
    other.setLogo(drawn);
    EXPECT_NE(one, other);
    EXPECT_EQ(one.packedLogo().image({90, 90}).size(), QSize(90, 1));
    EXPECT_EQ(one.packedLogo().image({90, 90}).pixelColor(45, 0).alpha(), 4) << "out of the small one";
    EXPECT_EQ(one.packedLogo().image({150, 150}).size(), QSize(150, 1));

    QImage narrow(3, 3, QImage::Format_Mono); // Its lines have gaps.
    narrow.setColorTable({qRgba(0, 0, 0, 0), qRgb(255, 0, 0)});
    narrow.fill(1);
    one.setLogo(narrow);
    EXPECT_EQ(one.logo().pixelColor(2, 2), QColor(Qt::red));
    one.setLogo(QImage());
    EXPECT_TRUE(one.logo().isNull() && one.packedLogo().isNull() && one.logoLoaded());
}
