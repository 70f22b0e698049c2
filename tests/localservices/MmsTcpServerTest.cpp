#include "MmsTcpServer.h"

#include "BroadcastTestSupport.h"
#include "LoopbackClient.h"
#include "MmsTcpReport.h"
#include "MmsTcpRequestReader.h"

using MmsTcpServerTest = BroadcastFixture;

TEST_F(MmsTcpServerTest, APlayerHearsOfAHeaderThatChangedWhileItAskedForTheOneBefore)
{
    live().setSilent(true);
    MmsTcpServer server(catalogue, faults, clock, timers);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    LoopbackClient client(server.port());
    auto const say = [&client](quint32 type, QByteArray const& body = QByteArray(48, '\0')) {
        client.say(MmsTcpReport::message(static_cast<MmsTcpReport::Type>(type), 0, body));
    };
    auto const hears = [&client](quint32 type) {
        return client.waitFor(QByteArray(reinterpret_cast<char const*>(&type), sizeof type));
    };
    auto const play = [&] {
        client.forget();
        say(MmsTcpRequest::StreamSwitch);
        say(MmsTcpRequest::StartPlaying);
        return hears(MmsTcpReport::StartedPlaying);
    };
    say(MmsTcpRequest::Connect);
    say(MmsTcpRequest::ConnectFunnel);
    say(MmsTcpRequest::OpenFile, QByteArray(16, '\0') + QByteArray("l\0i\0v\0e\0\0", 10));
    say(MmsTcpRequest::ReadBlock);
    ASSERT_TRUE(hears(MmsTcpReport::ReadBlock) && play());
    live().changeHeader();
    live().changeHeader(); // It does not play now.
    ASSERT_TRUE(play());
    EXPECT_TRUE(hears(MmsTcpReport::StreamChange));
    EXPECT_EQ(live().listenerCount(), 0);
    ASSERT_TRUE(play());
    EXPECT_EQ(live().listenerCount(), 1);
}
