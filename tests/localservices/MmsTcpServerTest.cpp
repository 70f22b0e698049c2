#include "MmsTcpServer.h"

#include "BroadcastTestSupport.h"
#include "ByteCursor.h"
#include "LoopbackClient.h"
#include "MmsTcpConnection.h"

namespace
{
/// The framing of both sides is the same.
QByteArray message(quint32 type, QByteArray const& body = {})
{
    return MmsTcpReport::message(static_cast<MmsTcpReport::Type>(type), 0, body);
}

QByteArray utf16(QString const& text)
{
    return {reinterpret_cast<char const*>(text.utf16()), 2 * (text.size() + 1)};
}

// Of most bodies the server reads little; the rest is zero here.
QByteArray const connectMessage = message(MmsTcpRequest::Connect);
QByteArray const funnelMessage =
    message(MmsTcpRequest::ConnectFunnel, QByteArray(20, '\0') + utf16("\\\\127.0.0.1\\TCP\\1037"));
QByteArray const openMessage = message(MmsTcpRequest::OpenFile, QByteArray(16, '\0') + utf16("live"));
QByteArray const readMessage = message(MmsTcpRequest::ReadBlock, QByteArray(48, '\0'));
QByteArray const pictureOff = message(MmsTcpRequest::StreamSwitch, QByteArray("\1\0\0\0\xFF\xFF\1\0\2\0", 10));
QByteArray const startMessage =
    message(MmsTcpRequest::StartPlaying, QByteArray(28, '\0') + QByteArray("\4\0\0\0", 4));

class MmsTcpServerTest : public BroadcastFixture
{
protected:
    void SetUp() override
    {
        live();
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    }

    /// What a server has sent whole: types and bodies of reports, and of records, whose type is their incarnation.
    static QList<std::pair<quint32, QByteArray>> items(LoopbackClient const& client)
    {
        QByteArray const& heard = client.heard();
        QList<std::pair<quint32, QByteArray>> all;
        for (qsizetype place = 0; place + 8 <= heard.size();) {
            ByteCursor cursor(heard, place + 4);
            quint32 const start = cursor.u32();
            bool const isReport = start == MmsTcpReport::sessionId;
            qsizetype const size = isReport ? cursor.u32() + 16 : start >> 16;
            cursor.skip(24);
            if (place + size > heard.size())
                break;
            qsizetype const body = isReport ? 40 : 8;
            all.append({isReport ? cursor.u32() : start & 0xFF, heard.mid(place + body, size - body)});
            place += size;
        }
        return all;
    }

    /// The types in order, each as often as it comes anew.
    static QList<quint32> typesOf(LoopbackClient const& client)
    {
        QList<quint32> types;
        for (auto const& [type, body] : items(client)) {
            if (types.isEmpty() || types.last() != type)
                types.append(type);
        }
        return types;
    }

    static bool waitForType(LoopbackClient& client, quint32 type)
    {
        return processEventsUntil([&] { return typesOf(client).contains(type); });
    }

    MmsTcpServer server{catalogue, faults, clock, timers};
};
} // namespace

TEST_F(MmsTcpServerTest, ASessionRunsInTheOrderThatPlayersExpect)
{
    LoopbackClient client(server.port());
    client.say(connectMessage + message(MmsTcpRequest::FunnelInfo) + funnelMessage + openMessage + readMessage +
               pictureOff + startMessage);
    ASSERT_TRUE(waitForType(client, 4));
    EXPECT_EQ(typesOf(client), (QList<quint32>{0x40001, 0x40015, 0x40002, 0x40006, 0x40011, 2, 0x40021, 0x40005, 4}));
    EXPECT_EQ(items(client).at(5).second, live().header());
    std::optional<AsfPacket> const packet = AsfPacket::parse(items(client).last().second);
    ASSERT_TRUE(packet && packet->payloads().size() == 1) << "of the stream that is left on";
    EXPECT_EQ(packet->payloads().first().stream, AsfBuilder::audioStream);

    client.forget();
    live().nextEntry();
    ASSERT_TRUE(waitForType(client, 2));
    EXPECT_EQ(typesOf(client), (QList<quint32>{0x4001E, 0x40020, 2}));
    EXPECT_EQ(ByteCursor(items(client).first().second).u32(), MmsTcpConnection::moreFollows);
    timers.advance(1'000);
    client.say(startMessage);
    ASSERT_TRUE(waitForType(client, 4));
    timers.advance(65'000);
    ASSERT_TRUE(waitForType(client, 0x4001B)) << "it is asked whether it is there";
    live().end();
    client.forget();
    ASSERT_TRUE(waitForType(client, 0x4001E));
    EXPECT_EQ(ByteCursor(items(client).last().second).u32(), MmsTcpConnection::success);
    EXPECT_EQ(live().listenerCount(), 0);
}

TEST_F(MmsTcpServerTest, ABadResultIsReportedAndWhatIsOutOfOrderEndsTheConnection)
{
    QString error;
    faults.add("*", *Fault::parse({"0x80070005", "on", "start", "times", "1"}, error));
    LoopbackClient client(server.port());
    client.say(connectMessage + funnelMessage + openMessage + startMessage);
    ASSERT_TRUE(waitForType(client, 0x40005));
    EXPECT_EQ(ByteCursor(items(client).last().second).u32(), 0x80070005);
    EXPECT_EQ(live().listenerCount(), 0);
    for (QByteArray const& bytes : QByteArrayList{funnelMessage, connectMessage + funnelMessage + startMessage,
                                                  connectMessage + message(MmsTcpRequest::ConnectFunnel)}) {
        LoopbackClient hasty(server.port());
        hasty.say(bytes);
        EXPECT_TRUE(hasty.waitForEnd()) << bytes.toHex().left(100).constData();
    }
}
