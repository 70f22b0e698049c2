#include "ChannelDescription.h"

#include <functional>
#include <gmock/gmock.h>

namespace
{

StreamDescription stream(char const* uri, bool secure = false)
{
    StreamDescription result{Uri(uri)};
    result.setSecure(secure);
    return result;
}

} // namespace

TEST(LanguageId, NullHasALiteralThatIsItsSortKey)
{
    EXPECT_TRUE(LanguageId(QString()).isNull());
    EXPECT_EQ(LanguageId::Null().toIso639_3(), "<LanguageId::Null>");
    QList<LanguageId> languages{LanguageId::Italian(), LanguageId::German(), LanguageId::Null(), LanguageId("Zz"),
                                LanguageId("1")};
    std::sort(languages.begin(), languages.end());
    EXPECT_THAT(languages, testing::ElementsAre(LanguageId("1"), LanguageId::Null(), LanguageId("Zz"),
                                                LanguageId::German(), LanguageId::Italian()));
}

TEST(StreamDescription, EqualityLooksAtTheLeftOperandsSecurity)
{
    char const* const one = "rtsp://host/path/live?token=1";
    char const* const two = "rtsp://host/path/other?token=2";
    EXPECT_EQ(stream(one), stream(one));
    EXPECT_NE(stream(one), stream(two));
    EXPECT_EQ(stream(one, true), stream(two, false));
    EXPECT_NE(stream(one, false), stream(two, true));
    EXPECT_NE(stream(one, true), stream("rtsp://host/elsewhere/live?token=1", true));
}

TEST(StreamDescription, EqualityIgnoresTheEntitlementTextsOnly)
{
    StreamDescription changed = stream("mms://host/a");
    changed.setKey("k");
    changed.setProvider("p");
    changed.setProfile("p");
    changed.setFingerprint("f");
    EXPECT_EQ(stream("mms://host/a"), changed);
    changed.setDescriptor("d");
    EXPECT_NE(stream("mms://host/a"), changed);
    changed.setDescriptor({});
    changed.appendTrackDescription({});
    EXPECT_NE(stream("mms://host/a"), changed);
}

TEST(ChannelDescription, EqualityCoversAllFieldsButThree)
{
    using Change = std::function<void(ChannelDescription&)>;
    Change const ignored[] = {
        [](ChannelDescription& d) { d.setPurchased(true); },
        [](ChannelDescription& d) { d.setPurchaseUrl("u"); },
        [](ChannelDescription& d) { d.setShowBanners(false); },
    };
    Change const compared[] = {
        [](ChannelDescription& d) { d.setId("x"); },
        [](ChannelDescription& d) { d.setRootId("x"); },
        [](ChannelDescription& d) { d.setTitle("x"); },
        [](ChannelDescription& d) { d.setSummary("x"); },
        [](ChannelDescription& d) { d.setWebsite("x"); },
        [](ChannelDescription& d) { d.setWebsiteLabel("x"); },
        [](ChannelDescription& d) { d.setHasAlerts(true); },
        [](ChannelDescription& d) { d.setHasChat(false); },
        [](ChannelDescription& d) { d.setChatRoomName("x"); },
        [](ChannelDescription& d) { d.setAlertsTopic("x"); },
        [](ChannelDescription& d) { d.setLogo(QImage(1, 1, QImage::Format_RGB32)); },
        [](ChannelDescription& d) { d.setLogo(QImage()); },
        [](ChannelDescription& d) { d.setAvailable(false); },
        [](ChannelDescription& d) { d.setUnavailableReason("x"); },
        [](ChannelDescription& d) { d.setFavourite(true); },
        [](ChannelDescription& d) { d.setChannelType(ChannelDescription::FileChannel); },
        [](ChannelDescription& d) { d.setChannelMediaTypes(6); },
        [](ChannelDescription& d) { d.setAutoBuzzEnabled(true); },
        [](ChannelDescription& d) { d.setRepeatedAutoBuzz(true); },
        [](ChannelDescription& d) { d.setAutoBuzzInterval(1); },
        [](ChannelDescription& d) { d.appendStreamDescription(stream("mms://a/b")); },
    };
    ChannelDescription everyIgnored;
    for (Change const& change : ignored)
        change(everyIgnored);
    EXPECT_TRUE(everyIgnored.isNull());
    for (Change const& change : compared) {
        ChannelDescription changed;
        change(changed);
        EXPECT_FALSE(changed.isNull()) << &change - compared;
        EXPECT_TRUE(changed == ChannelDescription(changed));
    }
}

TEST(ChannelDescription, TracksAndLanguagesAddUpOverStreams)
{
    StreamDescription first = stream("mms://a/1");
    first.appendTrackDescription({LanguageId::English(), TrackDescription::VideoTrack});
    first.appendTrackDescription({LanguageId::English(), TrackDescription::AudioTrack});
    first.appendTrackDescription({LanguageId::French(), TrackDescription::AudioTrack});
    StreamDescription second = stream("mms://a/2");
    second.appendTrackDescription({LanguageId::French(), TrackDescription::AudioTrack});
    second.appendTrackDescription({LanguageId::German(), TrackDescription::SubtitleTrack});
    second.appendTrackDescription({LanguageId::German(), TrackDescription::UnsetTrack});

    ChannelDescription channel;
    channel.appendStreamDescription(first);
    channel.appendStreamDescription(second);
    EXPECT_EQ(channel.numAudioTracks(), 3);
    EXPECT_EQ(channel.numVideoTracks(), 1);
    EXPECT_EQ(channel.numSubtitleTracks(), 1);
    EXPECT_EQ(channel.audioLanguages(), (QSet<LanguageId>{LanguageId::English(), LanguageId::French()}));
    EXPECT_EQ(channel.subtitleLanguages(), QSet<LanguageId>{LanguageId::German()});

    channel.removeStreamDescription(first);
    EXPECT_EQ(channel.streamDescriptions(), QList<StreamDescription>{second});
}

TEST(ChannelDescription, TextForTheLog)
{
    ChannelDescription channel;
    channel.setId("news_fr");
    channel.setTitle("News");
    channel.setSummary("All day");
    channel.appendStreamDescription(stream("mms://a/1"));
    EXPECT_EQ(channel.toString(), "  News 'All day' news_fr [mms://a/1]");
    channel.setFavourite(true);
    channel.setAvailable(false);
    channel.setUnavailableReason("not here");
    EXPECT_EQ(channel.toString(), "FX (not here)News 'All day' news_fr [mms://a/1]");
}
