#include "TcpMmsClientFixture.h"
#include "TcpMmsMessage.h"

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
    EXPECT_EQ(socket().takeWritten(), message(0x3001B, numbers({0, 0}), 7));
    EXPECT_TRUE(ends.isEmpty());
}

TEST_F(TcpMmsClientTest, AsksForThePathThatTheAddressHas)
{
    for (auto const& [url, path] :
         {std::pair{"mms://h", "/"}, {"mms://h/a%20b/%C3%A9.wmv", "/a%20b/%C3%A9.wmv"}, {"mms://h:80/p?", "/p?"}}) {
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
    int const packetSize = client.packetSize();
    EXPECT_EQ(packetSize, 3200);
    EXPECT_EQ(client.streamBitrate(), 464000);
    QByteArray const whole(packetSize, 'w');
    QByteArray const longer(packetSize + 1, 'l');
    receive(data(0, "short") + data(1, whole) + data(2, longer));
    EXPECT_EQ(packets, QList({QByteArray("short").leftJustified(packetSize, '\0'), whole, longer}));
}

TEST_F(TcpMmsClientTest, ReceivesTheSameWhereverTheBytesAreCut)
{
    QByteArray const unknown = message(0x40099, numbers({1, 2, 3}));
    QByteArray const received = data(0, "one") + unknown + data(1, "two") + message(0x4001E, numbers({0, 0}));
    for (qsizetype cut = 0; cut < received.size(); ++cut) {
        goTo(ForData);
        receive(received.first(cut));
        receive(received.sliced(cut));
        ASSERT_EQ(packets.size(), 2) << cut;
        ASSERT_TRUE(packets[0].startsWith("one") && packets[1].startsWith("two")) << cut;
        ASSERT_EQ(ends, QList({MmsClient::EndOfStream})) << cut;
    }
    EXPECT_EQ(log.count("Unknown message with id 262297"), received.size());
}

TEST_F(TcpMmsClientTest, DropsHeaderPacketsThatAreNoneAndEndsWithAHeaderThatCannotBeUsed)
{
    goTo(ForHeader);
    receive(data(0, "no header at all"));
    EXPECT_TRUE(log.contains("Unknown chunk of data with locationId 0"));
    QByteArray const half = asfHeader().first(asfHeader().size() / 2);
    receive(data(0, half) + data(2, "stray"));
    EXPECT_TRUE(log.contains("Receiving packet data length 5 locationId 2 while the state 2"));
    receive(data(1, asfHeader().sliced(half.size()) + "filling"));
    EXPECT_EQ(headers.size(), 1);

    for (auto const& broken : QList<QByteArray>{u32(30) + u32(0) + QByteArray(56, '\xFF'), u32(4 << 20) + u32(1)}) {
        goTo(ForHeader);
        receive(data(0, asfHeader().first(16) + broken));
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
    }
    EXPECT_TRUE(log.contains("Invalid ASF header") && log.contains("ASF header of 4299161600 bytes"));
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
        receive(answer(static_cast<Step>(step), accessDenied));
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << step;
        EXPECT_TRUE(sockets.sockets().isEmpty()) << step;
    }
    EXPECT_EQ(log.count("failed because of win32 error in server. errno 5"), 7);
}

TEST_F(TcpMmsClientTest, AReportToAnotherQuestionIsLate)
{
    goTo(ForReadBlock);
    for (Step const step : {ForConnectedEx, ForConnectedFunnel, ForOpenFile, ForStreamSwitch, ForStartedPlaying})
        receive(answer(step, accessDenied));
    EXPECT_TRUE(ends.isEmpty());
    receive(readBlock());
    receive(funnelInfo());
    EXPECT_EQ(client.state(), MmsClient::ReadingHeader);
    EXPECT_EQ(socket().takeWritten(), QByteArray());
}

TEST_F(TcpMmsClientTest, TheEndOfTheStreamClosesTheFileBeforeItLeaves)
{
    FakeTcpSocket* connection = nullptr;
    QByteArray written;
    QObject::connect(&client, &MmsClient::done, [&] { written = connection->takeWritten(); });
    for (bool const isLost : {false, true}) {
        goTo(ForStartedPlaying);
        receive(message(0x4001E, numbers({0, 0})));
        EXPECT_TRUE(ends.isEmpty()) << "not before the stream";
        receive(startedPlaying());
        connection = &socket();
        connection->receive(data(0, "last") + message(0x4001E, numbers({0, 0})));
        if (isLost) // At once.
            connection->closeRemotely();
        run();
        EXPECT_EQ(ends, QList({MmsClient::EndOfStream}));
        EXPECT_EQ(written, isLost ? QByteArray() : message(0x3000D, numbers({0, 7}), 7));
        EXPECT_EQ(packets.size(), 1);
        EXPECT_FALSE(isMemoPending());
    }
}

TEST_F(TcpMmsClientTest, AnotherStreamFollowsOnTheSameConnection)
{
    QByteArray const change = message(0x40020, numbers({0, 0, 0, 0, 0, 0}));
    goTo(ForHeader);
    receive(data(0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9") + change); // Its rest will not come.
    receive(header() + streamSwitch() + startedPlaying());
    socket().takeWritten();
    for (quint32 sequence = 7; sequence < 11; sequence += 2) {
        receive(data(0, "old") + change + data(3, "none's"));
        EXPECT_EQ(client.state(), MmsClient::ReadingHeader);
        receive(header());
        EXPECT_EQ(socket().takeWritten(),
                  message(0x30033, u32(2) + u16(0xFFFF) + u16(1) + u16(0) + u16(0xFFFF) + u16(2) + u16(0), sequence));
        receive(streamSwitch() + startedPlaying() + data(0, "new"));
        EXPECT_EQ(client.state(), MmsClient::Streaming);
        socket().takeWritten();
    }
    EXPECT_EQ(headers.size(), 3);
    EXPECT_EQ(packets.size(), 4);
    timers.advance(timeout);
    EXPECT_EQ(ends, QList({MmsClient::ReadTimeout})) << "one limit on silence, not those of the streams before";
    goTo(ForData);
    receive(change);
    timers.advance(timeout);
    EXPECT_EQ(ends, QList({MmsClient::ReadTimeout})) << "the header does not come";
    goTo(ForData);
    receive(change);
    timers.advance(timeout - 1);
    receive(data(4, "more of the old"));
    timers.advance(1);
    EXPECT_EQ(ends, QList({MmsClient::CouldNotConnected})) << "but something else";
}

TEST_F(TcpMmsClientTest, EveryStepEndsAtSilenceALossOrAStopAtOnce)
{
    for (int step = ForConnection; step <= ForData; ++step) {
        SCOPED_TRACE(step);
        goTo(static_cast<Step>(step));
        timers.advance(timeout - 1);
        EXPECT_TRUE(ends.isEmpty());
        timers.advance(1);
        bool const isReading = step == ForHeader || step == ForData;
        EXPECT_EQ(ends, QList({isReading ? MmsClient::ReadTimeout : MmsClient::CouldNotConnected}));
        EXPECT_EQ(client.state(), MmsClient::Unconnected);
        EXPECT_TRUE(sockets.sockets().isEmpty() && !isMemoPending());

        goTo(static_cast<Step>(step));
        socket().closeRemotely();
        run();
        EXPECT_EQ(ends, QList({MmsClient::RemoteServerClosed}));
        EXPECT_EQ(client.state(), MmsClient::Closed);
        EXPECT_FALSE(isMemoPending());

        goTo(static_cast<Step>(step));
        if (step != ForConnection)
            socket().receive(answer(static_cast<Step>(step)));
        client.disconnectFromServer();
        EXPECT_TRUE(sockets.sockets().isEmpty() && !isMemoPending() && ends.isEmpty());
        EXPECT_EQ(client.state(), MmsClient::Closing);
    }
    goTo(ForData);
    for (int i = 0; i < 3; ++i, timers.advance(timeout - 1))
        receive(QByteArray(1, '\0'));
    EXPECT_TRUE(ends.isEmpty()) << "any byte keeps the stream alive";
}

TEST_F(TcpMmsClientTest, AConnectionThatFailsIsToldWithItsReason)
{
    for (auto const& [error, expected] :
         {std::pair{QAbstractSocket::ConnectionRefusedError, MmsClient::CouldNotConnected},
          {QAbstractSocket::HostNotFoundError, MmsClient::CouldNotResolveServer},
          {QAbstractSocket::NetworkError, MmsClient::RemoteServerClosed},
          {QAbstractSocket::SocketTimeoutError, MmsClient::UnknownError}}) {
        goTo(ForConnection);
        socket().fail(error);
        run();
        EXPECT_EQ(ends, QList({expected}));
    }
}

TEST_F(TcpMmsClientTest, ASlotMayBeginAnewOrDeleteTheClient)
{
    goTo(ForOpenFile);
    auto const again = QObject::connect(&client, &MmsClient::done, [this] { connectToServer(); });
    receive(openedFile(accessDenied));
    EXPECT_EQ(client.state(), MmsClient::Connecting);
    QObject::disconnect(again);

    auto* const other = new TcpMmsClient("", &timers, &sockets, &dates, &queue, nullptr);
    QObject::connect(other, &MmsClient::done, [other] { delete other; });
    other->connectToServer(QUrl("mms://other"), QString(), timeout / 2);
    timers.advance(timeout / 2);
    EXPECT_EQ(sockets.sockets().size(), 1) << "that of the other session";
}

TEST_F(TcpMmsClientTest, AnImpossibleLengthEndsTheSession)
{
    for (quint32 const length : {0u, 23u, 0x1FFF1u, 0xFFFFFFFFu}) {
        QByteArray wrong = message(0x4001B, {});
        wrong.replace(8, 4, u32(length));
        goTo(ForData);
        receive(data(0, "before") + wrong + data(0, "after"));
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << length;
        EXPECT_TRUE(log.contains(QString("Message of impossible size %1 received").arg(qint64(length) + 16)));
        EXPECT_EQ(packets.size(), 1) << "what came before is delivered, what came after is not";
        EXPECT_FALSE(isMemoPending());
    }
    goTo(ForData);
    receive(data(0, "", 8) + data(0, "", 7));
    EXPECT_EQ(packets.size(), 1) << "the least size";
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
}

TEST_F(TcpMmsClientTest, AFloodIsLeft)
{
    goTo(ForData);
    QByteArray const pings = message(0x4001B, QByteArray(8000, '\0')).repeated(64);
    for (qint64 sent = pings.size(); sent <= TcpMmsClient::maximumUselessBytes; sent += pings.size()) {
        socket().receive(pings);
        EXPECT_GE(socket().bytesAvailable(), pings.size() - TcpMmsClient::sliceBytes);
        run();
        EXPECT_TRUE(ends.isEmpty());
    }
    receive(pings);
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));

    goTo(ForData);
    socket().stall(); // It does not read our answers.
    for (int i = 0; i < 100; ++i)
        receive(message(0x4001B, numbers({0, 0})).repeated(50) + data(0, "x"));
    EXPECT_LE(socket().bytesToWrite(), TcpMmsClient::maximumUnsentBytes + 48);
}

TEST_F(TcpMmsClientTest, WhatIsNotReadWaitsAndIsNoSilence)
{
    goTo(ForData);
    client.setReading(false);
    receive(data(0, "later"));
    timers.advance(5 * timeout);
    socket().closeRemotely();
    timers.advance(timeout);
    EXPECT_TRUE(ends.isEmpty() && packets.isEmpty());
    client.setReading(true);
    run();
    EXPECT_EQ(packets.size(), 1);
    EXPECT_EQ(ends, QList({MmsClient::RemoteServerClosed}));
}

TEST_F(TcpMmsClientTest, ADataPacketOfNoSizeIsWaitedOnWithinALimit)
{
    goTo(ForData);
    receive(data(0, "", 0) + QByteArray(TcpMmsMessage::maximumBytes / 2, '\0'));
    EXPECT_TRUE(ends.isEmpty());
    receive(QByteArray(TcpMmsMessage::maximumBytes, '\0'));
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
}
