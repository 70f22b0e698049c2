#include "AsxPlaylist.h"
#include "LogCapture.h"
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
        {"<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<asx><entry><ref href=\"rtsp://a/1\"/></entry></asx>",
         "rtsp://a/1"},
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
        {"<asx><base href='http\u008f://h/'/><entry><ref href='x'/></entry></asx>", "x"},
        {"<asx><base href='h tp://h/'/><entry><ref href='x'/></entry></asx>", "x"},
        {"<asx><base href='http://'/><entry><ref href='x'/><ref href='//y'/></entry></asx>", "x //y"},
        {"<asx><base href='//h/'/><entry><ref href='x'/></entry></asx>", "x"},
        {"<asx><!-- <entry> don't --><entry><title>A > B</title><ref href='a:1>2'/></entry></asx>", "a:1>2"},
        {"<asx><entry><title><![CDATA[<X> & it's]]></title><ref href='a:1'/></entry></asx>", "a:1"},
        {"<asx><entry><ref/><ref href='  '/></entry></asx>", ""},
        {"", ""},
        {"<html><entry><ref href='a:1'/></entry></html>", ""},
        {"<asx><entry><ref href='a:1'/></asx>", ""},
        {"<!DOCTYPE asx [<!ENTITY a 'b'>]><asx><entry><ref href='a:1'/></entry></asx>", ""},
    };
    for (Case const& c : cases)
        EXPECT_EQ(addresses<AsxPlaylist>(c.text), c.addresses) << c.text;
}

TEST(AsxPlaylist, ReadsWhatAnEntryTellsAboutItself)
{
    AsxPlaylist playlist("<ASX><REPEAT COUNT='2'><ENTRY ClientSkip='YES'><TITLE> News & more &lt;b&gt; </TITLE>"
                         "<AUTHOR>A</AUTHOR><COPYRIGHT>C</COPYRIGHT><DURATION VALUE='1:02:03.5'/>"
                         "<STARTTIME VALUE='00:10'/><PREVIEWDURATION VALUE='soon'/><REF HREF='mms://a/1'/></ENTRY>"
                         "</REPEAT></ASX>");
    LogCapture const capture;
    playlist.parse();
    ASSERT_EQ(playlist.items().size(), 1);
    PlaylistItem const item = playlist.items().first();
    EXPECT_EQ(item.title(), "News & more <b>");
    EXPECT_EQ(item.author() + item.copyright(), "AC");
    EXPECT_EQ(item.repeat(), 2);
    EXPECT_TRUE(item.isSkippable());
    EXPECT_EQ(item.key(), "mms://a/1");
    EXPECT_EQ(item.duration(), 3723500);
    EXPECT_EQ(item.startTime(), 10000);
    EXPECT_EQ(item.previewDuration(), PlaylistItem::unknownTime);
    EXPECT_TRUE(capture.contains("TITLE    : News & more <b>"));
    EXPECT_TRUE(capture.contains("REPEAT   : 2"));
}

TEST(AsxPlaylist, HostileTextsAreReadWithinTheLimitsOrRefused)
{
    qsizetype const length = Playlist::maximumLength - 200;
    auto const repeated = [&](char const* text) { return QString(text).repeated(length / qsizetype(strlen(text))); };
    QStringList const texts = {repeated("<"),
                               repeated("&"),
                               repeated("<a"),
                               repeated("<a '"),
                               repeated("<a '\""),
                               repeated("<!--"),
                               repeated("<![CDATA["),
                               repeated("&#x"),
                               repeated("<a>"),
                               repeated("<a/>"),
                               repeated("a='b' "),
                               repeated("<base href='x'>"),
                               repeated("&amp"),
                               "<asx" + repeated(" a=''") + "/>",
                               QString("x").repeated(Playlist::maximumLength + 1)};
    for (QString const& text : texts) {
        EXPECT_EQ(addresses<AsxPlaylist>("<asx>" + text + "</asx>"), "") << qPrintable(text.left(10));
    }
    QString const entries = QString("<entry><ref href='a:1'/></entry>").repeated(5000);
    AsxPlaylist many("<asx>" + entries + "</asx>");
    many.parse();
    EXPECT_EQ(many.items().size(), Playlist::maximumItems);
}

TEST(AsxPlaylist, ADocumentCutAnywhereGivesNothing)
{
    QString const text = "<ASX><ENTRY><TITLE>A & B</TITLE><!-- x --><REF HREF=\"mms://a/1\"/></ENTRY></ASX>";
    for (qsizetype size = 0; size < text.size(); ++size)
        EXPECT_EQ(addresses<AsxPlaylist>(text.first(size)), "") << size;
}

TEST(XmlCheck, NestingIsLimited)
{
    auto const nested = [](int depth) -> QString {
        return QString("<a>").repeated(depth) + QString("</a>").repeated(depth);
    };
    EXPECT_EQ(XmlCheck::faultOf(nested(XmlCheck::maximumDepth)), "");
    for (int const depth : {XmlCheck::maximumDepth + 1, 1000, 100000})
        EXPECT_NE(XmlCheck::faultOf(nested(depth)), "") << depth;
}

TEST(RefPlaylist, TakesTheWebAddressesOfItsSection)
{
    struct Case {
        char const* text;
        char const* addresses;
    };
    Case const cases[] = {
        {"[Reference]\r\nRef1=http://a/live?MSWMExt=.asf\r\nRef2 = HTTPS://b/x=y\r\n",
         "http://a/live?MSWMExt=.asf HTTPS://b/x=y"},
        {"Ref1=http://before/\n [REFERENCE] \nRef1=mms://a/\nhttp://b/\n\nRef3=http://c/\n[Other]\nRef1=http://d/",
         "http://c/"},
        {"[Reference]\nRef1=http://a/ad.gif\nRef2=", ""},
        {"Ref1=http://a/", ""},
        {"", ""},
    };
    for (Case const& c : cases)
        EXPECT_EQ(addresses<RefPlaylist>(c.text), c.addresses) << c.text;
}

TEST(PlaylistItem, WalksItsAddressesInACircle)
{
    PlaylistItem item;
    EXPECT_FALSE(item.incNextUrl());
    for (QString const url : {"a", "b", "a", "c"})
        item.addUrl(url);
    EXPECT_TRUE(item.incNextUrl());
    EXPECT_TRUE(item.incNextUrl());
    EXPECT_EQ(item.urls().at(item.nextUrl()), "c");
    EXPECT_FALSE(item.incNextUrl());
    EXPECT_EQ(item.nextUrl(), 0);
}

TEST(Playlist, DecodesWhatServersSend)
{
    QString const text = QString::fromUtf8("<asx>\u20ac\u00e9\u2019</asx>");
    QByteArray utf16;
    for (QChar const c : text)
        utf16.append(char(c.unicode() & 0xFF)).append(char(c.unicode() >> 8));
    QByteArray utf16BigEndian;
    for (qsizetype i = 0; i < utf16.size(); i += 2)
        utf16BigEndian.append(utf16.at(i + 1)).append(utf16.at(i));
    QByteArray const documents[] = {text.toUtf8(),
                                    "\xEF\xBB\xBF" + text.toUtf8(),
                                    utf16,
                                    "\xFF\xFE" + utf16,
                                    utf16BigEndian,
                                    "\xFE\xFF" + utf16BigEndian,
                                    "<asx>\x80\xE9\x92</asx>"};
    for (QByteArray const& document : documents)
        EXPECT_EQ(Playlist::decode(document), text) << document.toHex().constData();
    EXPECT_EQ(Playlist::decode({}), "");
    EXPECT_EQ(Playlist::decode(QByteArray("\0", 1)).size(), 1);
}
