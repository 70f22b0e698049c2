// What no server should send, and addresses that no server has.

#include "TcpMmsClientFixture.h"
#include "TcpMmsMessage.h"

#include <QtEndian>

using namespace TcpMmsWire;

namespace
{
constexpr quint32 ping = 0x4001B;
} // namespace

TEST_F(TcpMmsClientTest, AnImpossibleMessageLengthEndsTheSession)
{
    for (quint32 const length : {0u, 1u, 7u, 8u, 23u, 0x1FFF1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFF0u, 0xFFFFFFFFu}) {
        goTo(ForData);
        ends.clear();
        socket().receive(data(0, "before") + messageOfLength(ping, length) + data(0, "after"));
        socket().receive(data(0, "later"));
        run();
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << length;
        EXPECT_TRUE(log.contains(QString("Message of impossible size %1 received").arg(qint64(length) + 16)));
        EXPECT_EQ(packets.size(), 1) << "what came before is delivered, what came after is not";
        EXPECT_FALSE(isMemoPending());
        packets.clear();
    }
}

TEST_F(TcpMmsClientTest, AFloodWaitsInTheSocketAndIsLeft)
{
    QByteArray const pings = message(ping, QByteArray(8000, '\0')).repeated(64);
    for (Step const step : {ForConnectedEx, ForData}) {
        goTo(step);
        ends.clear();
        for (qint64 sent = pings.size(); sent <= TcpMmsClient::maximumUselessBytes; sent += pings.size()) {
            socket().receive(pings);
            EXPECT_GE(socket().bytesAvailable(), pings.size() - TcpMmsClient::sliceBytes);
            run();
            EXPECT_EQ(socket().bytesAvailable(), 0);
            EXPECT_TRUE(ends.isEmpty());
        }
        receive(pings);
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
    }
    goTo(ForData);
    ends.clear();
    socket().stall(); // It does not read our answers.
    for (int i = 0; i < 100; ++i)
        receive(message(ping, numbers({0, 0})).repeated(50) + data(0, "x"));
    EXPECT_TRUE(ends.isEmpty());
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

TEST_F(TcpMmsClientTest, AnImpossibleDataPacketEndsTheSession)
{
    for (int size = 1; size < 8; ++size) {
        goTo(ForData);
        ends.clear();
        receive(data(0, "", size));
        EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << size;
    }
    goTo(ForData);
    receive(data(0, "") + data(0, QByteArray(65527, 'x')));
    EXPECT_EQ(packets.size(), 2) << "the least and the largest size";
}

TEST_F(TcpMmsClientTest, ADataPacketOfNoSizeIsWaitedOnWithinALimit)
{
    goTo(ForData);
    receive(data(0, "", 0));
    timers.advance(2 * timeout);
    EXPECT_EQ(ends, QList({MmsClient::ReadTimeout}));

    goTo(ForData);
    ends.clear();
    receive(data(0, "", 0));
    qint64 const before = client.totalBytesReceived();
    while (ends.isEmpty() && client.totalBytesReceived() - before < 1 << 20)
        receive(QByteArray(1000, '\0'));
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
    EXPECT_LE(client.totalBytesReceived() - before, TcpMmsMessage::maximumBytes + 1000);
}

TEST_F(TcpMmsClientTest, DataThatLooksLikeAMessageIsTakenForOne)
{
    goTo(ForData);
    // Location id 1, size 0xB00B.
    receive(QByteArray::fromHex("01000000CEFA0BB0") + QByteArray(0xB00B - 8, '\0'));
    EXPECT_TRUE(packets.isEmpty());
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << "a message of length 0";
}

TEST_F(TcpMmsClientTest, AReportMayBeLongerOrShorterThanItsKnownFields)
{
    connectToServer();
    socket().accept();
    for (int step = ForConnectedEx; step < ForData; ++step) {
        QByteArray const report = answer(static_cast<Step>(step));
        if (step == ForHeader)
            receive(report);
        else
            receive(message(qFromLittleEndian<quint32>(report.constData() + 36), report.sliced(40) + "surplus"));
    }
    EXPECT_EQ(client.state(), MmsClient::Streaming);

    goTo(ForConnectedEx);
    receive(message(0x40001, u32(accessDenied))); // A refusal with nothing but the result.
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
    EXPECT_TRUE(log.contains("MmsLinkMacToViewerReportConnectedEx ends early"));
}

/// All but ReportStartedPlaying, which ends the session when it takes itself back.
TEST_F(TcpMmsClientTest, EveryMessageIsTakenWhateverItsBodyIs)
{
    for (quint32 const type :
         {0x30001, 0x30002, 0x30005, 0x30007, 0x3000D, 0x30015, 0x30018, 0x3001B, 0x30025, 0x30033,
          0x40001, 0x40002, 0x40003, 0x40006, 0x4000A, 0x40011, 0x40015, 0x4001B, 0x40020, 0x40021}) {
        for (int const size : {0, 1, 3, 4, 8, 40, 200, TcpMmsMessage::maximumBytes - 40}) {
            goTo(ForData);
            receive(message(type, QByteArray(size, '\xFF')) + data(0, "next"));
            ASSERT_TRUE(ends.isEmpty()) << type << " " << size;
            ASSERT_EQ(packets.size(), 1) << type << " " << size;
            packets.clear();
        }
    }
    EXPECT_FALSE(log.contains("Unknown message"));
    EXPECT_EQ(log.count("Dropped MmsLinkViewerToMacConnect,"), 8);
}

TEST_F(TcpMmsClientTest, TextLengthsBeyondTheMessageAreNotBelieved)
{
    for (quint32 const length : {0u, 1u, 7u, 8u, 0x7FFFFFFFu, 0x80000000u, 0x80000001u, 0xFFFFFFFFu}) {
        for (int index = 0; index < 4; ++index) {
            QByteArray report = connectedEx();
            report.replace(40 + 40 + 4 * index, 4, u32(length));
            goTo(ForConnectedEx);
            receive(report);
            EXPECT_EQ(client.lastMessage(), 0x30002u) << length;
        }
    }
}

TEST_F(TcpMmsClientTest, LongAddressesAreSentOrRefusedInWords)
{
    for (int const length : {1, 255, 1000, 65000, 65500, 100000}) {
        connectToServer("mms://h/" + QString(length, 'p'));
        socket().accept();
        receive(connectedEx());
        socket().takeWritten();
        ends.clear();
        receive(connectedFunnel());
        QByteArray const expected = message(0x30005, numbers({1, 0, 0, 0}) + text('/' + QString(length, 'p')), 2);
        if (expected.size() <= TcpMmsMessage::maximumBytes) {
            EXPECT_EQ(socket().takeWritten(), expected) << length;
        } else {
            EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable})) << length;
            EXPECT_TRUE(log.contains("The address is too long"));
        }
    }
    QString const host = QString("a.").repeated(50000) + "de";
    connectToServer("mms://" + host + "/f");
    ends.clear();
    socket().accept();
    run();
    EXPECT_EQ(ends, QList({MmsClient::StreamNotAvailable}));
}
