#include "ChannelDocumentReader.h"
#include "ChannelFileReader.h"
#include "ChannelStats.h"

#include <gmock/gmock.h>

namespace
{

using Channel = ChannelDescription;

constexpr int television = Channel::AudioMedia | Channel::VideoMedia;

QString onlyUri(ChannelDescription const& channel)
{
    return channel.streamDescriptions().constFirst().uri().toString();
}

} // namespace

TEST(ChannelFileReader, TypesLanguagesAndAddresses)
{
    auto const result = ChannelFileReader::read(
        R"(<Whatever>
        <CHANNEL name="News" id="news_fr" url="mms://h/a" type="Tv"><Description>All <b>day</b> long</Description></CHANNEL>
        <channel name="Song" id="song_it" url="file://films/a b.asf" type="RADIO"><description> </description></channel>
        <channel name="Film" id="film" type="file"/>
        <channel name="Odd" id="odd_FR" url="no address"/></Whatever>)",
        "/dir");
    EXPECT_EQ(result.error, "");
    ASSERT_EQ(result.channels.size(), 4);
    struct Expected {
        char const* id;
        Channel::ChannelType type;
        int media;
        LanguageId language;
        char const* uri;
        char const* summary;
    };
    Expected const table[] = {
        {"news_fr", Channel::PublicChannel, television, LanguageId::French(), "mms://h/a", "All day long"},
        {"song_it", Channel::PublicChannel, 2, LanguageId::Italian(), "file:///dir/films/a%20b.asf", ""},
        {"film", Channel::FileChannel, television, LanguageId::English(), "Uri::Null", ""},
        {"odd_FR", Channel::SecureChannel, television, LanguageId::English(), "Uri::Null", ""},
    };
    for (int i = 0; i < 4; ++i) {
        Channel const& channel = result.channels.at(i);
        EXPECT_EQ(channel.id(), table[i].id);
        EXPECT_EQ(channel.rootId(), table[i].id);
        EXPECT_EQ(channel.channelType(), table[i].type);
        EXPECT_EQ(channel.channelMediaTypes(), table[i].media);
        EXPECT_EQ(channel.audioLanguages(), QSet<LanguageId>{table[i].language});
        EXPECT_EQ(channel.numVideoTracks(), table[i].media == television ? 1 : 0);
        EXPECT_EQ(channel.numAudioTracks(), 1);
        EXPECT_EQ(onlyUri(channel), table[i].uri);
        EXPECT_EQ(channel.summary(), table[i].summary);
    }
}

TEST(ChannelFileReader, AFaultEndsTheFileAndKeepsWhatWasComplete)
{
    auto const cut = ChannelFileReader::read(R"(<c><channel id="a" type="tv"/><channel id="b">)", "/");
    EXPECT_EQ(cut.channels.size(), 1);
    EXPECT_NE(cut.error, "");
    EXPECT_FALSE(ChannelFileReader::read("no XML", "/").hasBegun);
    EXPECT_FALSE(ChannelFileReader::read("<!DOCTYPE c [<!ENTITY e 'x'>]><c><channel id='a'/></c>", "/").hasBegun);
}

TEST(ChannelDocumentReader, ReadsEveryElement)
{
    auto const document = ChannelDocumentReader::read(
        R"(<channels><group><CHANNEL>
        <Name>News &amp; more</Name><unique-short-name>news</unique-short-name><description>All day</description>
        <website-url>http://w/</website-url><link-text>More</link-text><logo-url>http://h/logo.png</logo-url>
        <has-alerts>1</has-alerts><has-chat>no</has-chat><show-banners>false</show-banners>
        <chatroom-name>room</chatroom-name><alerts-topic>topic</alerts-topic><media-profile>Profil é</media-profile>
        <streaming-url>http://h/other</streaming-url><latte-uri>mms://h/one</latte-uri><unknown><name>x</name></unknown>
        <additional-latte-uri>rtsp://h/two</additional-latte-uri><additional-latte-uri>file:///etc/passwd</additional-latte-uri>
        <key>k</key><provider>p</provider><fingerprint>f</fingerprint><channel-type>TV</channel-type>
        <unavailable-reason>Not here</unavailable-reason><purchase-url>http://buy/</purchase-url>
        <autobuzz-enabled>true</autobuzz-enabled><repeated-autobuzz>1</repeated-autobuzz>
        <autobuzz-interval>5000</autobuzz-interval></CHANNEL></group>
        <channel><unique-short-name>radio</unique-short-name><channel-type>RADIO</channel-type><viewer-added>true</viewer-added>
        <latte-uri> </latte-uri><streaming-url>file:///etc/passwd</streaming-url><logo-url>file:///x.png</logo-url></channel>
        <channel><channel-type>tv</channel-type></channel></channels>)");
    EXPECT_EQ(document.error, "");
    ASSERT_EQ(document.entries.size(), 3);
    Channel const news = document.entries.at(0).description;
    EXPECT_EQ(document.entries.at(0).logo, Uri("http://h/logo.png"));
    EXPECT_EQ(news.title() + news.id() + news.rootId() + news.summary(), "News & morenewsnewsAll day");
    EXPECT_EQ(news.website() + news.websiteLabel() + news.chatRoomName() + news.alertsTopic(),
              "http://w/Moreroomtopic");
    EXPECT_TRUE(news.hasAlerts() && !news.hasChat() && !news.showBanners());
    EXPECT_TRUE(!news.isAvailable() && news.autoBuzzEnabled() && !news.repeatedAutoBuzz());
    EXPECT_EQ(news.unavailableReason() + news.purchaseUrl(), "Not herehttp://buy/");
    EXPECT_EQ(news.autoBuzzInterval(), 5000);
    ASSERT_EQ(news.streamDescriptions().size(), 2);
    StreamDescription const second = news.streamDescriptions().at(1);
    EXPECT_EQ(onlyUri(news), "mms://h/one");
    EXPECT_EQ(second.uri(), Uri("rtsp://h/two"));
    EXPECT_TRUE(second.secure() && second.numVideoTracks() == 1 && second.numAudioTracks() == 1);
    EXPECT_EQ(second.key() + second.provider() + second.fingerprint() + second.descriptor(), "kpfProfil é");

    Channel const radio = document.entries.at(1).description;
    EXPECT_EQ(radio.numVideoTracks() * 10 + radio.numAudioTracks(), 1);
    EXPECT_EQ(onlyUri(radio), "Uri::Null");
    EXPECT_TRUE(document.entries.at(1).logo.isNull());
    EXPECT_TRUE(radio.hasChat() && radio.showBanners() && radio.isAvailable());
    EXPECT_TRUE(radio.channelType() == Channel::UserChannel && radio.isViewerAdded());
    EXPECT_TRUE(news.channelType() == Channel::PayPerViewChannel && !news.isViewerAdded());
    EXPECT_EQ(document.entries.at(2).description.channelType(), Channel::SecureChannel);
}

TEST(ChannelDocumentReader, RefusesWhatIsCutOrNoDocument)
{
    QByteArray const whole = "<channels><channel><name>a</name></channel></channels>";
    for (qsizetype length = 0; length < whole.size(); ++length) {
        auto const document = ChannelDocumentReader::read(whole.first(length));
        EXPECT_TRUE(document.entries.isEmpty() && !document.error.isEmpty()) << length;
    }
    for (QByteArray const& text :
         {QByteArray("<html><body>Sign in</body></html>"), QByteArray("<!DOCTYPE c [<!ENTITY e 'x'>]><channels/>"),
          QByteArray(90000, '<'), QByteArray("<a>").repeated(30000)})
        EXPECT_NE(ChannelDocumentReader::faultOf(text), "");
    EXPECT_EQ(ChannelDocumentReader::faultOf("<channels/>"), "");
}

TEST(ChannelStats, GoesThereAndBackAndForgivesFaults)
{
    ChannelStats sent;
    sent.setMs(60000);
    sent.setChannelDetails("a&b", 3);
    sent.setChannelDetails("c", 0);
    ChannelStats const received(sent.toXml());
    EXPECT_EQ(received.ms(), 60000);
    EXPECT_THAT(received.channels(), testing::UnorderedElementsAre("a&b", "c"));
    EXPECT_EQ(received.viewers("a&b"), 3);
    EXPECT_EQ(received.viewers("unknown"), 0);

    ChannelStats const one("<X><MS>soon</MS><Channel><ChannelID>a</ChannelID>\n<Viewers>7</Viewers>");
    EXPECT_EQ(one.ms(), 0);
    EXPECT_EQ(one.channels(), QStringList{"a"});
    EXPECT_EQ(one.viewers("a"), 7);
}
