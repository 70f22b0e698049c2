#include "FFwrapper.h"
#include "TcpMmsClientFactory.h"
#include "TcpMmsClientFixture.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

using namespace TcpMmsWire;

TEST_F(TcpMmsClientTest, SendsTheseBytesUpToTheStream)
{
    connectToServer();
    EXPECT_EQ(socket().peerName(), "media.example");
    EXPECT_EQ(socket().peerPort(), 1755);
    EXPECT_TRUE(log.contains("Connecting to mms://media.example/live/one.wmv?id=5"));
    socket().accept();
    EXPECT_EQ(socket().takeWritten(),
              message(0x30001,
                      numbers({0xF0F0F0EF, 0x0004000B, 0x0003001C}) +
                          text("NSPlayer/4.1.0.3928; {01234567-89ab-cdef-0123-456789abcdef}; Host: media.example")));
    receive(connectedEx(0, funnelInfoMark));
    EXPECT_EQ(socket().takeWritten(), message(0x30018, numbers({2, 0}), 1));
    receive(funnelInfo());
    EXPECT_EQ(socket().takeWritten(), message(0x30002,
                                              numbers({0, 0xFFFFFFFF, 0, 10000000, 2}) +
                                                  text(QString("\\127.0.0.1\\TCP\\%1").arg(socket().localPort())),
                                              2));
    receive(connectedFunnel());
    EXPECT_EQ(socket().takeWritten(), message(0x30005, numbers({1, 0, 0, 0}) + text("/live/one.wmv?id=5"), 3));
    receive(openedFile());
    EXPECT_EQ(
        socket().takeWritten(),
        message(0x30015, numbers({7, 0, 0, 0x8000, 0xFFFFFFFF, 0}) + real(0.0) + real(3600.0) + numbers({2, 0}), 4));
    receive(readBlock());
    EXPECT_EQ(client.state(), MmsClient::ReadingHeader);
    receive(header());
    EXPECT_EQ(socket().takeWritten(),
              message(0x30033, u32(2) + u16(0xFFFF) + u16(1) + u16(0) + u16(0xFFFF) + u16(2) + u16(0), 5));
    receive(streamSwitch());
    EXPECT_EQ(socket().takeWritten(),
              message(0x30007, numbers({7, 0}) + real(0.0) + numbers({0xFFFFFFFF, 0xFFFFFFFF, 0, 4}), 6));
    receive(startedPlaying());
    EXPECT_EQ(client.state(), MmsClient::Streaming);
    receive(message(0x4001B, numbers({1, 2})));
    EXPECT_EQ(socket().takeWritten(), QByteArray::fromHex("01000000"
                                                          "CEFA0BB0"
                                                          "20000000"
                                                          "4D4D5320"
                                                          "04000000"
                                                          "0700"
                                                          "0000"
                                                          "0000000000000000"
                                                          "02000000"
                                                          "1B000300"
                                                          "0000000000000000"));
    EXPECT_TRUE(ends.isEmpty());
}

TEST_F(TcpMmsClientTest, AsksForThePathThatTheAddressHas)
{
    for (auto const& [url, path] : {std::pair{"mms://h", "/"},
                                    {"mms://h/a%20b/%C3%A9.wmv", "/a%20b/%C3%A9.wmv"},
                                    {"mms://h?x=1", "?x=1"},
                                    {"mms://h:80/p?", "/p?"}}) {
        connectToServer(url);
        EXPECT_EQ(socket().peerPort(), QUrl(url).port(1755));
        socket().accept();
        receive(connectedEx()); // Without the mark no FunnelInfo is sent.
        socket().takeWritten();
        receive(connectedFunnel());
        EXPECT_EQ(socket().takeWritten(), message(0x30005, numbers({1, 0, 0, 0}) + text(path), 2)) << url;
    }
}

TEST_F(TcpMmsClientTest, DeliversTheHeaderAndFilledPackets)
{
    goTo(ForData);
    ASSERT_EQ(headers.size(), 1);
    FormatContextPointer const context(
        FFwrapper::contextFromHeader(headers[0].constData(), static_cast<int>(headers[0].size())));
    EXPECT_TRUE(context);
    int const packetSize = client.packetSize();
    EXPECT_EQ(packetSize, FFwrapper::getAsfPacketSize(context.get()));
    EXPECT_GT(client.streamBitrate(), 1);
    QByteArray const whole(packetSize, 'w');
    QByteArray const longer(packetSize + 1, 'l');
    receive(data(0, "short") + data(1, whole) + data(2, longer));
    EXPECT_EQ(packets, QList({QByteArray("short").leftJustified(packetSize, '\0'), whole, longer}));
}

TEST_F(TcpMmsClientTest, ReceivesTheSameWhereverTheBytesAreCut)
{
    QByteArray const ping = message(0x4001B, numbers({1, 2}));
    QByteArray const unknown = message(0x40099, numbers({1, 2, 3}));
    QByteArray const end = message(0x4001E, numbers({0, 0}));
    QByteArray const received = data(0, "one") + ping + unknown + data(1, "two") + end;
    for (qsizetype cut = 0; cut <= received.size(); ++cut) {
        goTo(ForData);
        packets.clear();
        ends.clear();
        receive(received.first(cut));
        if (cut < received.size())
            receive(received.sliced(cut));
        ASSERT_EQ(packets.size(), 2) << cut;
        ASSERT_TRUE(packets[0].startsWith("one") && packets[1].startsWith("two")) << cut;
        ASSERT_EQ(ends, QList({MmsClient::EndOfStream})) << cut;
    }
    EXPECT_EQ(log.count("Unknown message with id 262297"), received.size() + 1);
}

TEST_F(TcpMmsClientTest, ReceivesAConversationByteByByte)
{
    connectToServer();
    socket().accept();
    for (int step = ForConnectedEx; step < ForData; ++step)
        for (char const byte : answer(static_cast<Step>(step)))
            receive(QByteArray(1, byte));
    EXPECT_EQ(client.state(), MmsClient::Streaming);
    EXPECT_EQ(headers.size(), 1);
}

TEST_F(TcpMmsClientTest, DropsAHeaderPacketOutOfItsOrder)
{
    goTo(ForHeader);
    QList<QByteArray> const pieces = parts(asfHeader(), 3);
    receive(data(0, pieces[0]) + data(2, "stray") + data(1, pieces[1]));
    EXPECT_TRUE(log.contains("Receiving packet data length 5 locationId 2 while the state 2"));
    receive(data(2, pieces[2] + "filling"));
    EXPECT_EQ(client.lastMessage(), 0x30033u);
    EXPECT_EQ(headers.size(), 1);
}

TEST_F(TcpMmsClientTest, WaitsForAHeaderAfterWhatIsNone)
{
    goTo(ForHeader);
    receive(data(0, "no header at all"));
    EXPECT_TRUE(log.contains("Unknown chunk of data with locationId 0"));
    receive(header());
    EXPECT_EQ(headers.size(), 1);
}

TEST_F(TcpMmsClientTest, EndsWithAHeaderThatCannotBeUsed)
{
    QByteArray const guid = asfHeader().first(16);
    QByteArray const broken = guid + u32(30) + u32(0) + QByteArray(6 + 50, '\xFF');
    for (auto const& [bytes, text] :
         {std::pair{broken, "Invalid ASF header"},
          {guid + u32(4 << 20) + u32(1), "ASF header of 4299161600 bytes"},
          {guid + u32(0xFFFFFFFF) + u32(0xFFFFFFFF), "ASF header of 18446744073709551615"},
          {guid + u32(0) + u32(0) + QByteArray(26, '\0'), "Invalid ASF header"}}) {
        goTo(ForHeader);
        ends.clear();
        receive(data(0, bytes));
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << text;
        EXPECT_TRUE(log.contains(text)) << text;
    }
}

TEST_F(TcpMmsClientTest, AsksAgainForStreamsThatWereRefusedOnce)
{
    goTo(ForStreamSwitch);
    receive(streamSwitch(0xC00D0030));
    EXPECT_EQ(socket().takeWritten(), message(0x30033, u32(0), 6));
    timers.advance(timeout - 1);
    receive(streamSwitch(0xC00D0030));
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << "a second refusal";
}

TEST_F(TcpMmsClientTest, ANegativeResultEndsTheSession)
{
    for (int step = ForConnectedEx; step < ForData; ++step) {
        if (step == ForHeader)
            continue;
        goTo(static_cast<Step>(step));
        ends.clear();
        receive(answer(static_cast<Step>(step), accessDenied));
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << step;
        EXPECT_TRUE(sockets.sockets().isEmpty()) << step;
    }
    EXPECT_EQ(log.count("failed because of win32 error in server. errno 5"), 7);
    goTo(ForOpenFile);
    receive(openedFile(0x80090001));
    EXPECT_TRUE(
        log.contains("Streaming to mms://media.example/live/one.wmv?id=5 failed because of security problem"));
}

TEST_F(TcpMmsClientTest, AReportToAnotherQuestionIsLate)
{
    goTo(ForReadBlock);
    for (int step = ForConnectedEx; step <= ForStartedPlaying; ++step) {
        if (step != ForReadBlock && step != ForFunnelInfo && step != ForHeader)
            receive(answer(static_cast<Step>(step), step % 2 ? accessDenied : 0));
    }
    EXPECT_EQ(socket().takeWritten(), QByteArray());
    EXPECT_TRUE(ends.isEmpty());
    receive(readBlock());
    receive(funnelInfo());
    EXPECT_EQ(client.state(), MmsClient::ReadingHeader);
    EXPECT_EQ(socket().takeWritten(), QByteArray());
}

TEST_F(TcpMmsClientTest, APingIsAnsweredBetweenQuestionAndAnswer)
{
    goTo(ForOpenFile);
    receive(message(0x4001B, numbers({0, 0})));
    EXPECT_EQ(socket().takeWritten(), message(0x3001B, numbers({0, 0}), 4));
    receive(openedFile());
    EXPECT_EQ(client.lastMessage(), 0x30015u);
}

TEST_F(TcpMmsClientTest, TheEndOfTheStreamClosesTheFile)
{
    goTo(ForStartedPlaying);
    receive(message(0x4001E, numbers({0, 0})));
    EXPECT_TRUE(ends.isEmpty()) << "not before the stream";
    receive(startedPlaying());
    QPointer<FakeTcpSocket> const connection = &socket();
    // The last packet, the report and the end of the connection come at once.
    connection->receive(data(0, "last") + message(0x4001E, numbers({0, 0})));
    connection->closeRemotely();
    run();
    EXPECT_EQ(packets.size(), 1);
    EXPECT_EQ(ends, QList({MmsClient::EndOfStream}));
    EXPECT_TRUE(log.contains("Stop streaming"));
    EXPECT_FALSE(isMemoPending());
}

TEST_F(TcpMmsClientTest, ClosesTheFileBeforeItLeaves)
{
    goTo(ForData);
    QByteArray written;
    FakeTcpSocket* const connection = &socket();
    QObject::connect(&client, &MmsClient::done, [&] { written = connection->takeWritten(); });
    receive(message(0x4001E, numbers({0, 0})));
    EXPECT_EQ(written, message(0x3000D, numbers({0, 7}), 7));
}

TEST_F(TcpMmsClientTest, SilenceEndsTheSessionInEveryStep)
{
    for (int step = ForConnection; step <= ForData; ++step) {
        goTo(static_cast<Step>(step));
        ends.clear();
        timers.advance(timeout - 1);
        EXPECT_TRUE(ends.isEmpty()) << step;
        timers.advance(1);
        bool const isReading = step == ForHeader || step == ForData;
        EXPECT_EQ(ends, QList({isReading ? MmsClient::ReadTimeout : MmsClient::CouldNotConnected})) << step;
        EXPECT_EQ(client.state(), MmsClient::Unconnected);
        EXPECT_TRUE(log.contains(isReading ? "handleReadTimeout" : "handleTimeout"));
        EXPECT_TRUE(sockets.sockets().isEmpty()) << step;
        EXPECT_FALSE(isMemoPending()) << step;
    }
}

TEST_F(TcpMmsClientTest, AnyByteKeepsTheStreamAlive)
{
    goTo(ForData);
    for (int i = 0; i < 5; ++i) {
        timers.advance(timeout - 1);
        receive(QByteArray(1, '\0'));
    }
    EXPECT_TRUE(ends.isEmpty());
    timers.advance(2 * timeout);
    EXPECT_EQ(ends, QList({MmsClient::ReadTimeout}));
}

TEST_F(TcpMmsClientTest, DisconnectsInEveryStepAtOnceAndSilently)
{
    for (int step = ForConnection; step <= ForData; ++step) {
        goTo(static_cast<Step>(step));
        if (step != ForConnection)
            socket().receive(answer(static_cast<Step>(step)) + data(0, "x") + message(0x4001B, numbers({0, 0})));
        client.disconnectFromServer();
        EXPECT_TRUE(sockets.sockets().isEmpty()) << step;
        EXPECT_EQ(client.state(), MmsClient::Closing);
        EXPECT_FALSE(isMemoPending()) << step;
    }
    EXPECT_TRUE(ends.isEmpty());
    EXPECT_TRUE(packets.isEmpty());
}

TEST_F(TcpMmsClientTest, ALostConnectionIsToldOnce)
{
    for (int step = ForConnectedEx; step <= ForData; ++step) {
        goTo(static_cast<Step>(step));
        ends.clear();
        socket().closeRemotely();
        run();
        EXPECT_EQ(ends, QList({MmsClient::RemoteServerClosed})) << step;
        EXPECT_EQ(client.state(), MmsClient::Closed);
        EXPECT_FALSE(isMemoPending()) << step;
    }
}

TEST_F(TcpMmsClientTest, AConnectionThatFailsIsToldWithItsReason)
{
    for (auto const& [error, expected] :
         {std::pair{QAbstractSocket::ConnectionRefusedError, MmsClient::CouldNotConnected},
          {QAbstractSocket::HostNotFoundError, MmsClient::CouldNotResolveServer},
          {QAbstractSocket::NetworkError, MmsClient::RemoteServerClosed},
          {QAbstractSocket::ProxyAuthenticationRequiredError, MmsClient::ProxyAuthenticationRequiredError},
          {QAbstractSocket::SocketTimeoutError, MmsClient::UnknownError}}) {
        goTo(ForConnection);
        ends.clear();
        socket().fail(error);
        run();
        EXPECT_EQ(ends, QList({expected}));
        timers.advance(2 * timeout);
        EXPECT_EQ(ends.size(), 1);
    }
}

TEST_F(TcpMmsClientTest, ASlotMayBeginAnewOrDeleteTheClient)
{
    goTo(ForOpenFile);
    auto const again = QObject::connect(&client, &MmsClient::done, [this] { connectToServer(); });
    receive(openedFile(accessDenied));
    EXPECT_EQ(client.state(), MmsClient::Connecting);
    QObject::disconnect(again);
    goTo(ForData);
    EXPECT_EQ(client.state(), MmsClient::Streaming);

    auto* const other = new TcpMmsClient("", &timers, &sockets, &dates, &queue, nullptr);
    QObject::connect(other, &MmsClient::done, [other] { delete other; });
    other->connectToServer(QUrl("mms://other"), QString(), timeout / 2);
    timers.advance(timeout / 2);
    EXPECT_EQ(sockets.sockets().size(), 1) << "that of the other session";
}

TEST_F(TcpMmsClientTest, TheFactoryTakesAClientBackInMidSession)
{
    TcpMmsClientFactory factory("", &timers, &sockets, &dates, &queue);
    QPointer<MmsClient> const created = factory.createMmsClient(nullptr);
    created->connectToServer(QUrl("mms://h/f"), QString(), timeout);
    factory.disposeMmsClient(created);
    EXPECT_TRUE(sockets.sockets().isEmpty());
    EXPECT_FALSE(isMemoPending());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(created);
}
