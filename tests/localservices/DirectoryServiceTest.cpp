#include "BiscottiPeer.h"
#include "Clips.h"
#include "ControlCommands.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "HlsBroadcasts.h"
#include "LocalServices.h"
#include "LocalServicesOptions.h"
#include "LoopbackClient.h"

#include <QFile>

#include <gtest/gtest.h>

namespace
{
class DirectoryServiceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        LocalServicesOptions options;
        options.controlPort = options.webTlsPort = std::nullopt;
        options.biscottiPort = options.webPort = 0;
        options.isBiscottiPortGiven = options.isWebPortGiven = true;
        options.database = ":memory:";
        options.passwordIterations = 2;
        QString error;
        ASSERT_TRUE(services.start(options, error)) << qPrintable(error);
    }

    quint16 portOf(QString const& key) const
    {
        for (QString const& line : services.portLines().split('\n')) {
            if (line.section(' ', 0, 0) == key)
                return line.section(' ', 2).toUShort();
        }
        return 0;
    }

    /// What the SOAP interface answers.
    QByteArray call(QByteArray const& method, QByteArray const& arguments)
    {
        QByteArray const body =
            "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Body><m:" + method +
            " xmlns:m='urn:" + method + "'>" + arguments + "</m:" + method + "></e:Body></e:Envelope>";
        LoopbackClient client(portOf("web"));
        client.say("POST /client/api HTTP/1.1\r\nConnection: close\r\nContent-Type: text/xml\r\nContent-Length: " +
                   QByteArray::number(body.size()) + "\r\n\r\n" + body);
        EXPECT_TRUE(client.waitForEnd());
        return client.heard();
    }

    QString run(QString const& line) { return services.commands().run(line).error; }

    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    LocalServices services{clock, timers};
};
} // namespace

TEST_F(DirectoryServiceTest, ChangesAreToldToThoseWhomTheyConcern)
{
    ASSERT_EQ(run("account add ann@example.org some password"), QString());
    QByteArray const login = QByteArray("ann%40example.org some%20password node 3.2.0 0-Linux x86_64").toBase64();
    QByteArray const told = call("LoginWithErrorHandling", "<login>" + login + "</login>");
    ASSERT_TRUE(told.contains("<authenticated>true</authenticated>")) << told.constData();
    QByteArray const id = told.mid(told.indexOf("<user_id>") + 9).split('<').first();
    QString const topic = ".ombra.mychannels.trigger.refresh.user." + QString::fromLatin1(id);
    BiscottiPeer peer(portOf("biscotti"));
    ASSERT_EQ(peer.ask(peer.subscription("1", "s", topic)), 200);
    BiscottiPeer other(portOf("biscotti"), "other");
    ASSERT_EQ(other.ask(other.subscription("1", "s", ".ombra.mychannels.trigger.refresh.user.999")), 200);

    QByteArray const node = "<node_identifier>node</node_identifier>";
    QList<std::function<QString()>> const changes = {
        [&] { return run("channel add news TV mms://host/news Late News"); },
        [&] { return run("channel set news description Every hour"); },
        [&] { return run("message to ann@example.org Hello"); },
        [&] { return run("account join ann@example.org AllChannels"); },
        [&] {
            QByteArray const answer = call("TogglePartnerChannel", node + "<channel_id>news</channel_id>");
            return answer.contains(">true<") ? QString() : QString::fromUtf8(answer);
        },
    };
    for (qsizetype i = 0; i < changes.size(); ++i) {
        EXPECT_EQ(changes.at(i)(), QString());
        EXPECT_TRUE(processEventsUntil([&] { return peer.posts.size() == i + 1; })) << i;
    }
    EXPECT_EQ(peer.posts.last().topic(), BiscottiTopic(topic));
    EXPECT_TRUE(other.posts.isEmpty());
}

TEST_F(DirectoryServiceTest, CommandsSayWhatIsWrong)
{
    for (char const* const line :
         {"account add ann x", "account add ann@example.org short", "account join nobody@example.org AllChannels",
          "account role", "channel add ../x TV mms://host/x X", "channel add x TV /x X", "channel set one",
          "channel remove none", "channel default none", "stream add nobody@example.org mms://host/x X",
          "message add", "message to nobody@example.org x", "message remove 7", "signin set tickets 3",
          "signin set chat_allowed 3", "web gone", "web certificate good", "web fault", "web dance"}) {
        ControlCommands::Answer const answer = services.commands().run(line);
        EXPECT_NE(answer.error, QString()) << line;
        EXPECT_TRUE(answer.isCommand) << line;
    }
    EXPECT_EQ(ControlCommands::withoutSecrets("account password ann@example.org a b"),
              "account password ann@example.org ...");
    EXPECT_EQ(ControlCommands::withoutSecrets("channel set one key k"), "channel set one key ...");
    EXPECT_TRUE(call("Dance", {}).contains("There is no method Dance."));
    EXPECT_TRUE(call("AddUserStream", {}).contains("Please sign in first."));
    EXPECT_TRUE(call("LoginWithErrorHandling", "<login>!</login>").contains("cannot be read"));
}

TEST(HlsBroadcasts, RunThroughTheFilmForEver)
{
    FakeTickCounter clock;
    HlsBroadcasts broadcasts(clock);
    QString error;
    for (char const* const name : {"a.ts", "b.ts", "c.ts"})
        Clips::write(name, name);
    QString const list =
        Clips::write("film.m3u8", "#EXTM3U\n#EXTINF:2,\na.ts\n#EXTINF:2.0,\nb.ts\n#EXTINF:1,\nc.ts\n");
    ASSERT_TRUE(broadcasts.add("/film", list, error)) << qPrintable(error);
    EXPECT_FALSE(broadcasts.add("/bad", Clips::write("bad.m3u8", "#EXTINF:2,\n../../none.ts\n"), error));
    auto const listed = [&] {
        QStringList lines =
            QString::fromUtf8(broadcasts.answer("/film/live.m3u8").body).split('\n', Qt::SkipEmptyParts);
        lines = lines.mid(3);
        lines.removeIf([](QString const& line) { return line.startsWith("#EXTINF"); });
        return lines.join(' ');
    };
    EXPECT_EQ(listed(), "#EXT-X-MEDIA-SEQUENCE:0 #EXT-X-DISCONTINUITY-SEQUENCE:0 0.ts 1.ts 2.ts");
    clock.advance(1999);
    EXPECT_EQ(listed().right(4), "2.ts");
    clock.advance(1);
    EXPECT_EQ(listed(),
              "#EXT-X-MEDIA-SEQUENCE:0 #EXT-X-DISCONTINUITY-SEQUENCE:0 0.ts 1.ts 2.ts #EXT-X-DISCONTINUITY 0.ts");
    clock.advance(3000);
    EXPECT_EQ(listed(),
              "#EXT-X-MEDIA-SEQUENCE:2 #EXT-X-DISCONTINUITY-SEQUENCE:0 2.ts #EXT-X-DISCONTINUITY 0.ts 1.ts 2.ts");
    clock.advance(2000);
    EXPECT_EQ(listed(), "#EXT-X-MEDIA-SEQUENCE:3 #EXT-X-DISCONTINUITY-SEQUENCE:0 #EXT-X-DISCONTINUITY 0.ts 1.ts 2.ts "
                        "#EXT-X-DISCONTINUITY 0.ts");
    clock.advance(2000);
    EXPECT_TRUE(listed().startsWith("#EXT-X-MEDIA-SEQUENCE:4 #EXT-X-DISCONTINUITY-SEQUENCE:1 1.ts"));
    EXPECT_EQ(broadcasts.answer("/film/1.ts").body, "b.ts");
    for (char const* const path : {"/film/3.ts", "/film/../film/1.ts", "/none/live.m3u8", "/film/99999999.ts", "/"})
        EXPECT_EQ(broadcasts.answer(path).status, 404) << path;
}
