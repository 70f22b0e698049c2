#include "MmsTcpServer.h"

#include "BroadcastTestSupport.h"
#include "ByteCursor.h"
#include "LoopbackClient.h"
#include "MmsFraming.h"
#include "MmsTcpConnection.h"

namespace
{
/// What a server sends: a report, or a record of the stream, whose type is 0.
struct Item {
    quint32 type = 0;
    quint8 incarnation = 0;
    quint8 flags = 0;
    quint32 locationId = 0;
    QByteArray body;
};

QByteArray utf16(QString const& text)
{
    return {reinterpret_cast<char const*>(text.utf16()), 2 * (text.size() + 1)};
}

QByteArray numbers(std::initializer_list<quint32> all)
{
    QByteArray bytes;
    for (quint32 const number : all)
        appendLittleEndian(bytes, number);
    return bytes;
}

/// The framing of both sides is the same.
QByteArray message(quint32 type, QByteArray const& body)
{
    return MmsTcpReport::message(static_cast<MmsTcpReport::Type>(type), 0, body);
}

QByteArray const connectMessage = message(MmsTcpRequest::Connect, numbers({0xF0F0F0EF, 0x0004000B, 0x0003001C}) +
                                                                      utf16("NSPlayer/4.1; {}; Host: x"));
QByteArray const funnelMessage =
    message(MmsTcpRequest::ConnectFunnel, numbers({0, ~0U, 0, 10'000'000, 2}) + utf16("\\\\127.0.0.1\\TCP\\1037"));
QByteArray const readMessage =
    message(MmsTcpRequest::ReadBlock, numbers({1, 0, 0, 0x8000, ~0U, 0, 0, 0, 0, 0x40AC2000, 2, 0}));
QByteArray const startMessage = message(MmsTcpRequest::StartPlaying, numbers({1, 0, 0, 0, ~0U, ~0U, 0, 4}));

QByteArray openMessage(QString const& path)
{
    return message(MmsTcpRequest::OpenFile, numbers({1, 0, 0, 0}) + utf16(path));
}

QByteArray switchMessage(QList<std::pair<quint16, quint16>> const& entries)
{
    QByteArray body = numbers({static_cast<quint32>(entries.size())});
    for (auto const& [stream, value] : entries) {
        for (quint16 const number : {quint16(0xFFFF), stream, value})
            appendLittleEndian(body, number);
    }
    return message(MmsTcpRequest::StreamSwitch, body);
}

class MmsTcpServerTest : public BroadcastFixture
{
protected:
    void SetUp() override
    {
        live();
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    }

    static QList<Item> items(QByteArray const& heard)
    {
        QList<Item> all;
        for (qsizetype place = 0; place + 8 <= heard.size();) {
            ByteCursor cursor(heard, place);
            Item item;
            item.locationId = cursor.u32();
            quint32 const second = cursor.u32();
            qsizetype size = second >> 16;
            if (second == MmsTcpReport::sessionId) {
                size = cursor.u32() + 16;
                cursor.skip(24);
                item.type = cursor.u32();
                item.body = heard.mid(place + 40, size - 40);
            } else {
                item.incarnation = static_cast<quint8>(second);
                item.flags = static_cast<quint8>(second >> 8);
                item.body = heard.mid(place + 8, size - 8);
            }
            if (place + size > heard.size())
                break;
            all.append(item);
            place += size;
        }
        return all;
    }

    /// The types in order, records of the same incarnation in a row as one: its number.
    static QList<quint32> typesOf(QList<Item> const& items)
    {
        QList<quint32> types;
        for (Item const& item : items) {
            quint32 const type = item.type ? item.type : item.incarnation;
            if (item.type || types.isEmpty() || types.last() != type)
                types.append(type);
        }
        return types;
    }

    static bool waitForReport(LoopbackClient& client, quint32 type)
    {
        return processEventsUntil([&] { return typesOf(items(client.heard())).contains(type); });
    }

    void addFault(QString const& path, QString const& text)
    {
        QString error;
        std::optional<Fault> const fault = Fault::parse(text.split(' '), error);
        ASSERT_TRUE(fault) << qPrintable(error);
        faults.add(path, *fault);
    }

    MmsTcpServer server{catalogue, faults, clock, timers};
};
} // namespace

TEST_F(MmsTcpServerTest, ASessionRunsInTheOrderThatPlayersExpect)
{
    addBroadcast("/live", {AsfBuilder(50, 3).file()}); // Its header takes two records.
    LoopbackClient client(server.port());
    client.say(connectMessage + message(MmsTcpRequest::FunnelInfo, numbers({2, 0})) + funnelMessage +
               openMessage("live") + readMessage + switchMessage({{1, 0}, {9, 0}}) + startMessage);
    ASSERT_TRUE(waitForReport(client, 4));
    QList<Item> const all = items(client.heard());
    EXPECT_EQ(typesOf(all), (QList<quint32>{0x40001, 0x40015, 0x40002, 0x40006, 0x40011, 2, 0x40021, 0x40005, 4}));
    QByteArray header;
    QList<Item> pieces;
    for (Item const& item : all) {
        if (item.type) {
            EXPECT_EQ(ByteCursor(item.body).u32(), 0U);
        }
        if (item.type == 0 && item.incarnation == 2) {
            EXPECT_EQ(item.locationId, static_cast<quint32>(pieces.size()));
            pieces.append(item);
            header += item.body;
        }
    }
    EXPECT_EQ(header, live().header());
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces.first().flags, MmsFraming::moreFollows);
    EXPECT_EQ(pieces.last().flags, MmsFraming::lastPiece);
    QByteArray const opened = all.at(3).body;
    EXPECT_EQ(ByteCursor(opened, 20).u32(), 0x02000000U);
    EXPECT_EQ(ByteCursor(opened, 52).u32(), AsfBuilder::packetSize);
    EXPECT_EQ(ByteCursor(opened, 68).u32(), static_cast<quint32>(header.size()));
    EXPECT_EQ(all.last().body.size(), AsfBuilder::packetSize);
}

TEST_F(MmsTcpServerTest, StreamsThatAreSwitchedOffAreLeftOut)
{
    LoopbackClient client(server.port());
    client.say(connectMessage + funnelMessage + openMessage("/live") + readMessage + switchMessage({{1, 2}, {9, 0}}) +
               startMessage);
    ASSERT_TRUE(waitForReport(client, 4));
    for (Item const& item : items(client.heard())) {
        std::optional<AsfPacket> const packet = AsfPacket::parse(item.body);
        if (item.incarnation == 4 && packet) {
            EXPECT_EQ(packet->payloads().size(), 1);
            EXPECT_EQ(packet->payloads().first().stream, AsfBuilder::audioStream);
        }
    }
}

TEST_F(MmsTcpServerTest, EachReportCanBringABadResult)
{
    struct Case {
        QString path;
        QString fault;
        quint32 type;
        quint32 result;
    };
    QByteArray const session = connectMessage + message(MmsTcpRequest::FunnelInfo, numbers({2, 0})) + funnelMessage +
                               openMessage("live") + readMessage + switchMessage({{1, 0}}) + startMessage;
    for (Case const& one : {
             Case{"*", "0x80070005 on connect", 0x40001, 0x80070005},
             Case{"*", "0x80070005 on measure", 0x40015, 0x80070005},
             Case{"*", "0x80070057 on funnel", 0x40002, 0x80070057},
             Case{"/live", "0xC00D001A", 0x40006, 0xC00D001A},
             Case{"/live", "0x80004005 on read", 0x40011, 0x80004005},
             Case{"/live", "0xC00D0030 on switch times 1", 0x40021, 0xC00D0030},
             Case{"/live", "0xC00D0029 on start", 0x40005, 0xC00D0029},
         }) {
        faults.clear();
        addFault(one.path, one.fault);
        LoopbackClient client(server.port());
        client.say(session);
        ASSERT_TRUE(waitForReport(client, one.type)) << qPrintable(one.fault);
        for (Item const& item : items(client.heard())) {
            if (item.type) {
                EXPECT_EQ(ByteCursor(item.body).u32(), item.type == one.type ? one.result : 0U)
                    << qPrintable(one.fault);
            }
        }
    }
    LoopbackClient client(server.port());
    client.say(connectMessage + funnelMessage + openMessage("nothing"));
    ASSERT_TRUE(waitForReport(client, 0x40006));
    EXPECT_EQ(ByteCursor(items(client.heard()).last().body).u32(), MmsTcpConnection::fileNotFound);
}

TEST_F(MmsTcpServerTest, ChangesAndTheEndAreReported)
{
    LoopbackClient client(server.port());
    client.say(connectMessage + funnelMessage + openMessage("live") + readMessage + switchMessage({}) + startMessage);
    ASSERT_TRUE(waitForReport(client, 4));
    client.forget();
    live().nextEntry();
    ASSERT_TRUE(waitForReport(client, 2));
    EXPECT_EQ(typesOf(items(client.heard())), (QList<quint32>{0x4001E, 0x40020, 2}));
    EXPECT_EQ(ByteCursor(items(client.heard()).first().body).u32(), 1U);
    client.forget();
    timers.advance(1'000);
    client.say(switchMessage({}) + startMessage);
    ASSERT_TRUE(waitForReport(client, 4));
    live().end();
    ASSERT_TRUE(waitForReport(client, 0x4001E));
    EXPECT_EQ(ByteCursor(items(client.heard()).last().body).u32(), 0U);
    EXPECT_EQ(live().listenerCount(), 0);
}

TEST_F(MmsTcpServerTest, WhoPlaysInSilenceIsPingedAndWhoDoesNotGreetIsDropped)
{
    LoopbackClient client(server.port());
    client.say(connectMessage + funnelMessage + openMessage("live") + startMessage);
    ASSERT_TRUE(waitForReport(client, 4));
    LoopbackClient half(server.port());
    half.say(connectMessage.chopped(1));
    ASSERT_TRUE(processEventsUntil([&] { return server.connectionCount() == 2; }));
    timers.advance(12'000);
    EXPECT_TRUE(half.waitForEnd());
    live().setSilent(true);
    timers.advance(65'000);
    ASSERT_TRUE(processEventsUntil([&] { return typesOf(items(client.heard())).count(0x4001B) >= 3; }));
    EXPECT_TRUE(client.isConnected());
}

TEST_F(MmsTcpServerTest, UdpIsRefusedInAReport)
{
    LoopbackClient client(server.port());
    client.say(connectMessage + message(MmsTcpRequest::ConnectFunnel,
                                        numbers({0, ~0U, 0, 10'000'000, 2}) + utf16("\\\\1.2.3.4\\UDP\\7000")));
    EXPECT_TRUE(waitForReport(client, 0x40003));
}

TEST_F(MmsTcpServerTest, WhatIsOutOfOrderEndsTheConnection)
{
    QByteArrayList const cases = {
        funnelMessage,
        openMessage("live"),
        connectMessage + openMessage("live"),
        connectMessage + funnelMessage + startMessage,
        connectMessage + funnelMessage + readMessage,
        connectMessage + funnelMessage + switchMessage({}),
        connectMessage + message(MmsTcpRequest::ConnectFunnel, {}),
        connectMessage + funnelMessage + message(MmsTcpRequest::OpenFile, numbers({1})),
        connectMessage + funnelMessage + openMessage("live") + message(MmsTcpRequest::StartPlaying, {}),
        QByteArray("GET / HTTP/1.1\r\nHost: x\r\n\r\n"),
        QByteArray(100, '\0'),
    };
    for (QByteArray const& bytes : cases) {
        LoopbackClient client(server.port());
        client.say(bytes);
        EXPECT_TRUE(client.waitForEnd()) << bytes.toHex().left(100).constData();
    }
}

TEST_F(MmsTcpServerTest, NoLengthFieldIsBelieved)
{
    for (quint32 const value : {0U, 1U, 7U, 8U, 0x7fffffffU, 0x80000000U, 0xffffffffU}) {
        QByteArray raw;
        appendLittleEndian(raw, value);
        for (QByteArray whole :
             {connectMessage, switchMessage({{1, 2}, {9, 0}}), openMessage("live"), funnelMessage}) {
            for (qsizetype const place : {8, 16, 32, 40}) {
                MmsTcpRequestReader reader;
                QByteArray mutated = whole;
                mutated.replace(place, 4, raw);
                for (qsizetype cut = 0; cut < mutated.size(); ++cut) {
                    reader.add(mutated.mid(cut, 1));
                    while (reader.next()) {
                    }
                }
                LoopbackClient client(server.port());
                client.say(connectMessage + funnelMessage + openMessage("live") + mutated);
                EXPECT_TRUE(waitForReport(client, 0x40001));
                processPendingEvents();
            }
        }
    }
    EXPECT_TRUE(processEventsUntil([&] { return server.connectionCount() == 0; })); // And nobody is left over.
}

TEST_F(MmsTcpServerTest, AMessageMayComeInAnyPiecesAndNotBeTooLong)
{
    QByteArray const two = connectMessage + funnelMessage;
    for (qsizetype cut = 0; cut <= two.size(); ++cut) {
        MmsTcpRequestReader reader;
        QList<quint32> types;
        for (QByteArray const& piece : {two.left(cut), two.mid(cut)}) {
            reader.add(piece);
            while (std::optional<MmsTcpRequest> const request = reader.next())
                types.append(request->type);
        }
        EXPECT_EQ(types, (QList<quint32>{MmsTcpRequest::Connect, MmsTcpRequest::ConnectFunnel}));
    }
    MmsTcpRequestReader reader;
    reader.add(message(MmsTcpRequest::OpenFile, QByteArray(200'000, 'x')).left(100));
    EXPECT_FALSE(reader.next());
    EXPECT_FALSE(reader.errorText().isEmpty());
}
