#include "ChannelSearchCombo.h"
#include "ChannelSearchWidget.h"
#include "ChannelSearchWidgetModel.h"
#include "ChannelView.h"
#include "EventLoop.h"
#include "HttpTestServer.h"
#include "MyChannels.h"
#include "SoapService.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QNetworkAccessManager>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace
{

QByteArray soapAnswer(QByteArray const& method, QByteArray const& value)
{
    QByteArray const body = "<Envelope><Body><" + method + "Response><return>" + value + "</return></" + method +
                            "Response></Body></Envelope>";
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

QByteArray foundStream(QByteArray const& id, QByteArray const& name, QByteArray const& uri)
{
    return "<item><id>" + id + "</id><name>" + name + "</name><uri>" + uri +
           "</uri><channel_type>TV</channel_type><rating_average>4.5</rating_average></item>";
}

QByteArray foundPage(int total, QByteArray const& streams)
{
    return "<total_entries>" + QByteArray::number(total) + "</total_entries><user_streams>" + streams +
           "</user_streams>";
}

class ChannelSearchTest : public testing::Test
{
protected:
    ChannelSearchTest()
    {
        widget.setMyChannels(&myChannels);
        widget.resize(400, 400);
        widget.show();
        signIn();
    }

    void signIn()
    {
        SoapService const service = SoapService::at(Uri(QString("http://127.0.0.1:%1").arg(server.port())), &network);
        myChannels.signIn(service, "node");
        widget.signIn(service, "node");
    }
    void search(QString const& query)
    {
        combo()->setEditText(query);
        widget.findChild<QPushButton*>("search")->click();
    }
    ChannelSearchCombo* combo() { return widget.findChild<ChannelSearchCombo*>("query"); }
    QString status() { return widget.status(); }
    void waitFor(QString const& text)
    {
        EXPECT_TRUE(processEventsUntil([&] { return status() == text; })) << status().toStdString();
    }
    QStringList menuOf(int row)
    {
        auto* const view = widget.findChild<ChannelView*>("results");
        view->setCurrentIndex(view->model()->index(row, ChannelSearchWidgetModel::NameColumn));
        emit view->menuRequested(view->currentIndex(), {});
        auto* const menu = widget.findChild<QMenu*>("searchMenu");
        QStringList texts;
        for (QAction const* const action : menu->actions())
            if (!action->isSeparator() && !action->menu())
                texts.append(action->text());
        menu->close();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        return texts;
    }

    HttpTestServer server;
    QNetworkAccessManager network;
    MyChannels myChannels;
    ChannelSearchWidget widget{nullptr, "http://site/channels/"};
};

} // namespace

TEST_F(ChannelSearchTest, TheStatusLineTellsEachEvent)
{
    EXPECT_EQ(combo()->lineEdit()->placeholderText(), "Enter your channel search");
    EXPECT_EQ(combo()->count(), 5) << "suggestions";
    search("  a <b> %1 ");
    EXPECT_EQ(status(), "Searching for a <b> %1...");
    EXPECT_EQ(combo()->itemText(0), "a <b> %1") << "the history";
    server.answer(soapAnswer("GetUserStreams", foundPage(0, {})));
    waitFor("Search for a <b> %1 returned 0 results");
    EXPECT_EQ(widget.findChild<QLabel*>("notice")->text(), "No channel was found.");
    widget.findChild<QPushButton*>("mostAdded")->click();
    EXPECT_EQ(status(), "Searching for most popular...");
    server.answer(
        soapAnswer("GetTopUserStreams", foundPage(2, foundStream("u1", "&lt;b&gt;One&lt;/b&gt;", "mms://h/1") +
                                                         foundStream("u2", "Two", "file:///etc/passwd"))));
    waitFor("Search for most popular returned 2 results");
    ASSERT_EQ(widget.model().rowCount(), 2);
    EXPECT_EQ(widget.model().index(0, ChannelSearchWidgetModel::RatingColumn).data(), "4.5/5");
    ChannelDescription const channel = widget.buildChannelFromRow(0);
    EXPECT_EQ(channel.channelType(), ChannelDescription::UserChannel);
    EXPECT_EQ(channel.title() + channel.rootId() + channel.streamDescriptions().at(0).uri().toString(),
              "<b>One</b>u1mms://h/1");
    EXPECT_FALSE(widget.buildChannelFromRow(1).isAvailable()) << "nothing of this machine is opened";
    EXPECT_EQ(menuOf(0), (QStringList{"Play", "Save to My Channels"}));
    menuOf(0);
    widget.onAddChannel();
    EXPECT_EQ(status(), "Adding <b>One</b>...");
    server.answer(soapAnswer("AddUserStream", "<id>u1</id><name>One</name>"));
    waitFor("One was successfully added");
    EXPECT_TRUE(widget.isChannelAdded("u1"));
    EXPECT_EQ(menuOf(0), QStringList("Play"));
    myChannels.remove(channel);
    server.answer(soapAnswer("DestroyUserStream", "true"));
    waitFor("Channel was removed");
    widget.onChannelsUpdated({channel});
    EXPECT_FALSE(widget.isChannelAdded("u1")) << "it is looked at only";
}

TEST_F(ChannelSearchTest, AnotherSearchEndsTheOneBeforeAndASignOutEndsAll)
{
    search("first");
    server.takeRequest();
    search("second");
    server.answer(soapAnswer("GetUserStreams", foundPage(21, foundStream("u2", "Two", "mms://h/2"))));
    waitFor("Search for second returned 21 results");
    EXPECT_EQ(widget.model().findChannelRowById("u2"), 0);
    widget.findChild<QPushButton*>("more")->click();
    server.answer(soapAnswer("GetUserStreams", foundPage(21, foundStream("u2", "Two", "mms://h/2") +
                                                                 foundStream("u3", "Three", "mms://h/3"))));
    EXPECT_TRUE(processEventsUntil([&] { return widget.model().rowCount() == 2; }));
    search("third");
    server.takeRequest();
    myChannels.signOut();
    widget.signOut();
    server.send(soapAnswer("GetUserStreams", foundPage(1, foundStream("u4", "Four", "mms://h/4"))));
    processPendingEvents();
    EXPECT_EQ(widget.model().rowCount(), 0);
    EXPECT_EQ(widget.findChild<QLabel*>("notice")->text(), "Sign in to search for channels.");
    EXPECT_TRUE(combo()->history().isEmpty());
}

TEST_F(ChannelSearchTest, EachFailureIsToldApart)
{
    for (auto const& [method, text] : QList<std::pair<QString, QString>>{
             {"GetUserStreams", "The search failed: why"},
             {"GetTopUserStreams", "The most popular channels could not be loaded: why"},
             {"AddUserStream", "The channel could not be added: why"},
             {"CreateUserStream", "The channel could not be created: why"},
             {"DestroyUserStream", "The channel could not be removed: why"}}) {
        widget.onSoapRequestFailed(method, "why");
        EXPECT_EQ(status(), text);
    }
    search("news");
    server.answer("HTTP/1.1 503 Away\r\nContent-Length: 0\r\n\r\n");
    EXPECT_TRUE(processEventsUntil([&] { return status().startsWith("The search failed: "); }));
    EXPECT_EQ(widget.findChild<QLabel*>("notice")->text(), status());
    QString const before = status();
    QSignalSpy const failed(&myChannels, &MyChannels::failed);
    ChannelDescription channel;
    channel.setChannelType(ChannelDescription::UserChannel);
    myChannels.remove(channel);
    server.answer("HTTP/1.1 500 Away\r\nContent-Length: 0\r\n\r\n");
    EXPECT_TRUE(processEventsUntil([&] { return failed.size() == 1; }));
    EXPECT_EQ(status(), before) << "it was asked for elsewhere, and is told there";
}
