#include "AsxPlaylist.h"
#include "RefPlaylist.h"
#include "XmlCheck.h"

#include <gmock/gmock.h>

namespace
{

/// The addresses of each item in turn, items separated by "|".
template<typename Reader>
QString addresses(QString const& text)
{
    Reader playlist(text);
    playlist.parse();
    QStringList items;
    for (PlaylistItem const& item : playlist.items())
        items.append(item.urls().join(' '));
    return items.join('|');
}

} // namespace

TEST(AsxPlaylist, FindsTheAddressesOfItsEntries)
{
    struct Case {
        char const* text;
        char const* addresses;
    };
    Case const cases[] = {
        {"<asx><entry><ref href='mms://a/1'/></entry></asx>", "mms://a/1"},
        {"<ASX VERSION = \"3.0\"><Entry><REF HREF = \"http://a/Live?Key=A&b=c&amp;d=e\" /></ENTRY></asx>",
         "http://a/Live?Key=A&b=c&d=e"},
        {"<asx><entry><ref href='mms://a/1'/><ref href='mms://b/1'/><ref href='mms://a/1'/></entry></asx>",
         "mms://a/1 mms://b/1"},
        {"<asx><entry><ref href='http://a/AD.GIF'/></entry><entry><ref href='mms://a/1'/></entry></asx>",
         "|mms://a/1"},
        {"<asx><repeat count='3'><entry><ref href='a:1'/></entry></repeat><event><entry><ref href='a:2'/></entry>"
         "</event><entryref href='http://a/more.asx'/></asx>",
         "a:1|a:2|http://a/more.asx"},
        {"<asx><base href='http://h/d/'/><entry><base href='http://i/'/><ref href='x'/></entry><entry>"
         "<ref href='y z'/><ref href='mms://a/1'/></entry></asx>",
         "http://i/x|http://h/d/y%20z mms://a/1"},
        {"<asx><!-- <entry> don't --><entry><title>A > B</title><ref href='a:1>2'/></entry></asx>", "a:1>2"},
        {"<html><entry><ref href='a:1'/></entry></html>", ""},
        {"<asx><entry><ref href='a:1'/></asx>", ""},
        {"<!DOCTYPE asx [<!ENTITY a 'b'>]><asx><entry><ref href='a:1'/></entry></asx>", ""},
    };
    for (Case const& c : cases)
        EXPECT_EQ(addresses<AsxPlaylist>(c.text), c.addresses) << c.text;
}

TEST(AsxPlaylist, ReadsTimesWithAndWithoutHoursAndMinutes)
{
    AsxPlaylist playlist(
        QString("<asx><entry><duration value='1:02:03.5'/><starttime value=' 4:05 '/><startmarker "
                "value='6.0789'/><endmarker value='7'/><previewduration value='8s'/></entry></asx>"));
    playlist.parse();
    ASSERT_EQ(playlist.items().size(), 1);
    PlaylistItem const item = playlist.items().constFirst();
    EXPECT_EQ(item.duration(), 3723500);
    EXPECT_EQ(item.startTime(), 245000);
    EXPECT_EQ(item.startMarker(), 6078);
    EXPECT_EQ(item.endMarker(), 7000);
    EXPECT_EQ(item.previewDuration(), PlaylistItem::unknownTime);
}

TEST(AsxPlaylist, LongTextsAreReadWithinTheLimitsOrRefused)
{
    EXPECT_EQ(addresses<AsxPlaylist>("<asx>" + QString("x").repeated(Playlist::maximumLength) + "</asx>"), "");
    AsxPlaylist many("<asx>" + QString("<entry><ref href='a:1'/></entry>").repeated(5000) + "</asx>");
    many.parse();
    EXPECT_EQ(many.items().size(), Playlist::maximumItems);
}

TEST(XmlCheck, NestingIsLimited)
{
    auto const nested = [](int depth) -> QString {
        return QString("<a>").repeated(depth) + QString("</a>").repeated(depth);
    };
    EXPECT_EQ(XmlCheck::faultOf(nested(XmlCheck::maximumDepth)), "");
    EXPECT_NE(XmlCheck::faultOf(nested(XmlCheck::maximumDepth + 1)), "");
}

TEST(RefPlaylist, TakesTheWebAddressesOfItsSection)
{
    EXPECT_EQ(addresses<RefPlaylist>("[Reference]\r\nRef1=http://a/live?MSWMExt=.asf\r\nRef2 = HTTPS://b/x=y\r\n"),
              "http://a/live?MSWMExt=.asf HTTPS://b/x=y");
    EXPECT_EQ(
        addresses<RefPlaylist>("Ref1=http://before/\n [REFERENCE] \nRef1=mms://a/\nhttp://b/\nRef2=http://x/ad.gif"
                               "\n\nRef3=http://c/\n[Other]\nRef1=http://d/"),
        "http://c/");
}

TEST(Playlist, DecodesWhatServersSend)
{
    for (QByteArray const& document :
         {QByteArray("\xEF\xBB\xBF<\xE2\x82\xAC>"), QByteArray("\xFE\xFF\0<\x20\xAC\0>", 8),
          QByteArray("<\0\xAC\x20>\0", 6), QByteArray("<\x80>")})
        EXPECT_EQ(Playlist::decode(document), QString::fromUtf8("<\u20ac>")) << document.toHex().constData();
}
