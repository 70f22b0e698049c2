#include "BroadcastTestSupport.h"
#include "ControlCommands.h"
#include "ControlConnection.h"
#include "ControlServer.h"
#include "EventLoop.h"
#include "LocalServicesOptions.h"
#include "LoopbackClient.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

namespace
{
using ControlTest = BroadcastFixture;
} // namespace

TEST_F(ControlTest, CommandsChangeTheStreamsOrSayWhatIsWrong)
{
    live();
    addBroadcast("/film", {Clips::wmv()});
    ControlCommands commands(catalogue, faults);
    QList<std::pair<QString, QString>> const wrong = {
        {"fault /nowhere 453", "no stream"}, {"fault /live", "no fault"},     {"fault /live 453 on fire", "on fire"},
        {"rate 0%", "1% to 1000%"},          {"biscotti list", "not served"},
    };
    for (auto const& [line, text] : wrong)
        EXPECT_TRUE(commands.run(line).error.contains(text)) << qPrintable(line + ": " + commands.run(line).error);
    EXPECT_TRUE(faults.toText().isEmpty());

    for (char const* const line : {"fault /live 453 on describe times 3", "fault film cut header", "fault * silent",
                                   "rate 40% /live", "silence on /film", "playlist next /film", "header", "help", ""})
        EXPECT_EQ(commands.run(line).error, QString()) << line;
    EXPECT_EQ(commands.run("faults").lines,
              (QStringList{"* silent", "/film cut header", "/live 453 on describe times 3"}));
    EXPECT_EQ(live().rate(), 40);
    EXPECT_TRUE(catalogue.find("/film")->isSilent());
    EXPECT_EQ(catalogue.find("/film")->playlistGeneration(), 2U);
    EXPECT_EQ(commands.run("clear").error, QString());
    EXPECT_TRUE(faults.toText().isEmpty());
    EXPECT_EQ(live().rate(), 100);
    EXPECT_FALSE(catalogue.find("/film")->isSilent());
}

TEST_F(ControlTest, TheControlPortAnswersEachLineOfWhoIsTrusted)
{
    live();
    ControlCommands commands(catalogue, faults);
    ControlServer server(commands, "secret", clock, timers);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    LoopbackClient client(server.port());
    client.say("token secret\nrate 50%\r\nrate\nlist\nquit\n");
    ASSERT_TRUE(client.waitForEnd());
    QList<QByteArray> const lines = client.heard().trimmed().split('\n');
    ASSERT_EQ(lines.size(), 4) << client.heard().constData();
    EXPECT_EQ(lines.at(0), "OK");
    EXPECT_TRUE(lines.at(1).startsWith("ERROR \"rate \": a number"));
    EXPECT_TRUE(lines.at(2).startsWith("/live: ")) << lines.at(2).constData();
    EXPECT_EQ(live().rate(), 50);
    for (QByteArray const bytes :
         {"token secre\nrate 70%\n", "token secret\nGET / HTTP/1.1\nrate 70%\n",
          "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: 100\r\n\r\ntoken\nrate 70%\n"}) {
        LoopbackClient page(server.port());
        page.say(bytes);
        EXPECT_TRUE(page.waitForEnd()) << bytes.constData();
        EXPECT_TRUE(page.heard().startsWith("ERROR ")) << page.heard().constData();
    }
    EXPECT_EQ(live().rate(), 50);
}

TEST_F(ControlTest, ManyCommandsLeaveTheOthersTheirTurn)
{
    ControlCommands commands(catalogue, faults);
    int turns = 0;
    QTimer everyTurn;
    QObject::connect(&everyTurn, &QTimer::timeout, [&turns] { ++turns; });
    everyTurn.start(0);
    QList<int> turnsAtWork;
    commands.addCommand("work", [&](QStringList const&, QStringList&) {
        QElapsedTimer time;
        for (time.start(); time.elapsed() < ControlConnection::msOfSlice;) {
        }
        turnsAtWork.append(turns);
        return QString();
    });
    ControlServer server(commands, "secret", clock, timers);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    auto client = std::make_unique<LoopbackClient>(server.port());
    client->say("token secret\n" + QByteArray("work\n").repeated(5));
    EXPECT_TRUE(client->waitFor("OK"));
    client.reset(); // It does not wait for the rest.
    EXPECT_TRUE(processEventsUntil([&] { return turnsAtWork.size() == 5; }));
    EXPECT_LT(turnsAtWork.at(0), turnsAtWork.at(1));
}

TEST(LocalServicesOptions, WrongSwitchesAreToldInWords)
{
    QList<std::pair<QStringList, QString>> const cases = {
        {{"--wrong"}, "unknown option --wrong"},
        {{"--stream", "film.asf"}, "/live=film.asf"},
        {{"--mms-http-port", "70000"}, "1 to 65535"},
    };
    for (auto const& [arguments, text] : cases) {
        QString error;
        EXPECT_FALSE(LocalServicesOptions::parse(arguments, error));
        EXPECT_TRUE(error.contains(text)) << qPrintable(error);
    }
    QString error;
    auto const options =
        LocalServicesOptions::parse({"--stream", "live=a=b.asf", "--stream=/live=c.asf", "--control-port=none",
                                     "--biscotti", "refuse .a", "--fault", "/live 453", "--burst", "2.5"},
                                    error);
    ASSERT_TRUE(options) << qPrintable(error);
    ASSERT_EQ(options->streams.size(), 1);
    EXPECT_EQ(options->streams.first().files, (QStringList{"a=b.asf", "c.asf"}));
    EXPECT_FALSE(options->controlPort);
    EXPECT_EQ(options->commands, (QStringList{"biscotti refuse .a", "fault /live 453"}));
}
