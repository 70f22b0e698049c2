#include "MmsTcpServer.h"

#include "BroadcastTestSupport.h"
#include "LoopbackClient.h"
#include "MmsTcpReport.h"
#include "MmsTcpRequestReader.h"

namespace
{

using MmsTcpServerTest = BroadcastFixture;

QByteArray message(quint32 type, QByteArray const& body = QByteArray(40, '\0'))
{
    return MmsTcpReport::message(static_cast<MmsTcpReport::Type>(type), 0, body);
}

/// How many reports of a type have been heard.
qsizetype count(LoopbackClient const& client, MmsTcpReport::Type type)
{
    QByteArray const word = QByteArray::fromRawData(reinterpret_cast<char const*>(&type), sizeof type);
    return client.heard().count(word);
}

} // namespace

TEST_F(MmsTcpServerTest, APlayerHearsOfAHeaderThatChangedWhileItAskedForTheOneBefore)
{
    live().setSilent(true);
    MmsTcpServer server(catalogue, faults, clock, timers);
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    LoopbackClient client(server.port());
    QString const path = "live";
    client.say(message(MmsTcpRequest::Connect) + message(MmsTcpRequest::ConnectFunnel) +
               message(MmsTcpRequest::OpenFile,
                       QByteArray(16, '\0') + QByteArray(reinterpret_cast<char const*>(path.utf16()), 10)) +
               message(MmsTcpRequest::ReadBlock, QByteArray(48, '\0')));
    ASSERT_TRUE(processEventsUntil([&] { return count(client, MmsTcpReport::ReadBlock) == 1; }));
    auto const play = [&] {
        qsizetype const before = count(client, MmsTcpReport::StartedPlaying);
        client.say(message(MmsTcpRequest::StreamSwitch) + message(MmsTcpRequest::StartPlaying));
        return processEventsUntil([&] { return count(client, MmsTcpReport::StartedPlaying) > before; });
    };
    ASSERT_TRUE(play());
    live().changeHeader();
    live().changeHeader(); // It does not play now.
    ASSERT_TRUE(play());
    EXPECT_TRUE(processEventsUntil([&] { return count(client, MmsTcpReport::StreamChange) == 2; }));
    EXPECT_EQ(live().listenerCount(), 0);
    ASSERT_TRUE(play());
    EXPECT_EQ(live().listenerCount(), 1);
}
