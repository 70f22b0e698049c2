#include "MmsStreamBuffer.h"

#include "BitrateWatch.h"
#include "Clips.h"

#include <QRandomGenerator>

#include <gmock/gmock.h>

namespace
{

QByteArray const header("header");

/// Appends bytes until playing starts; returns the tenths reported on the way, and last the size.
QList<qint64> fill(MmsStreamBuffer& buffer, qint64 piece)
{
    QList<qint64> reports;
    for (;;) {
        MmsStreamBuffer::Appended const result = buffer.append(QByteArray(piece, 'x'));
        if (result.percent >= 0)
            reports.append(result.percent);
        if (result.hasStarted || result.isFull)
            return reports << buffer.size();
    }
}

qint64 read(MmsStreamBuffer& buffer, qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    return buffer.read(bytes.data(), size);
}

} // namespace

TEST(ByteQueue, GivesBackWhatWentInWhateverTheSizes)
{
    QRandomGenerator random(7);
    ByteQueue queue;
    QByteArray expected;
    for (int i = 0; i < 3000; ++i) {
        QByteArray bytes(random.bounded(400), Qt::Uninitialized);
        random.fillRange(reinterpret_cast<quint32*>(bytes.data()), bytes.size() / 4);
        queue.append(bytes);
        expected += bytes;
        if (i % 100 == 99) {
            qsizetype const size = random.bounded(expected.size() + 2);
            queue.truncate(size);
            expected.truncate(size);
        }
        QByteArray out(random.bounded(450), '\0');
        qint64 const count = queue.read(out.data(), out.size());
        ASSERT_EQ(out.first(count), expected.first(std::min(out.size(), expected.size())));
        expected.remove(0, count);
        ASSERT_EQ(queue.size(), expected.size());
    }
}

TEST(MmsStreamBuffer, StartsWithFiveSecondsOfTheStreamAndWithHalfAfterAFailure)
{
    MmsStreamBuffer buffer;
    EXPECT_TRUE(buffer.setHeader(header, 800000, 1000));
    EXPECT_EQ(fill(buffer, 1000), (QList<qint64>{10, 20, 30, 40, 50, 60, 70, 80, 90, 500000}));
    EXPECT_EQ(read(buffer, 500000), 500000);
    buffer.interrupt();
    buffer.useReconnectThreshold();
    EXPECT_EQ(fill(buffer, 500).last(), 250000);
    buffer.interrupt();
    buffer.clear();
    buffer.useReconnectThreshold(); // Not a half of the half.
    EXPECT_EQ(fill(buffer, 500).last(), 250000);
    EXPECT_TRUE(buffer.setHeader("another", 800000, 1000)); // A new stream is a first time again.
    EXPECT_EQ(fill(buffer, 100000), (QList<qint64>{20, 40, 60, 80, 500000}));
}

TEST(MmsStreamBuffer, StartsAtAnyBitrate)
{
    struct Case {
        qint64 bitrate;
        qint64 start;
    };
    // The last ones are limited by the buffer, or they would never start.
    for (Case const& c : {Case{1, 100}, Case{0, 100}, Case{-5, 100}, Case{12'000'000, 7'500'000},
                          Case{std::numeric_limits<qint64>::max(), 33'554'500}}) {
        MmsStreamBuffer buffer;
        buffer.setHeader(header, c.bitrate, -1);
        EXPECT_EQ(fill(buffer, 100).last(), c.start) << c.bitrate;
    }
}

TEST(MmsStreamBuffer, AnEqualHeaderLeavesTheBufferAlone)
{
    MmsStreamBuffer buffer;
    buffer.setHeader(header, 8000, 100);
    EXPECT_TRUE(buffer.append(QByteArray(5000, 'x')).isNewStream);
    EXPECT_FALSE(buffer.setHeader(header, 16000, 200));
    EXPECT_EQ(buffer.bytesAvailable(), 5000);
    MmsStreamBuffer::Appended const result = buffer.append("x");
    EXPECT_TRUE(result.isReadable && !result.isNewStream && !result.hasStarted);
}

TEST(MmsStreamBuffer, HandsOutWholePacketsOnly)
{
    MmsStreamBuffer buffer;
    buffer.setHeader(header, 1, 100);
    buffer.append(QByteArray(99, 'x'));
    EXPECT_EQ(buffer.bytesAvailable(), 0);
    EXPECT_EQ(read(buffer, 1000), 0);
    buffer.append(QByteArray(151, 'x'));
    EXPECT_EQ(buffer.bytesAvailable(), 250);
    EXPECT_EQ(read(buffer, 99), 0);
    EXPECT_EQ(read(buffer, -1), 0);
    EXPECT_EQ(read(buffer, 150), 100);
    EXPECT_EQ(read(buffer, 1000), 100);
    EXPECT_EQ(read(buffer, 1000), 0);
}

TEST(MmsStreamBuffer, WhatComesAfterALossWaitsUntilThereIsEnough)
{
    MmsStreamBuffer buffer;
    buffer.setHeader(header, 8000, 100);
    buffer.append(QByteArray(5000, 'x'));
    EXPECT_TRUE(buffer.interrupt());
    EXPECT_FALSE(buffer.interrupt());
    EXPECT_EQ(read(buffer, 4900), 4900);
    buffer.append(QByteArray(1000, 'y'));
    EXPECT_EQ(buffer.bytesAvailable(), 100); // Of before.
    EXPECT_EQ(read(buffer, 5000), 100);
    EXPECT_EQ(read(buffer, 5000), 0);
    EXPECT_EQ(buffer.size(), 1000);
    EXPECT_TRUE(buffer.append(QByteArray(4000, 'y')).hasStarted);
    EXPECT_EQ(read(buffer, 5000), 5000);

    EXPECT_TRUE(buffer.setHeader("another", 8000, 100)); // Nor is another stream for the reader of this one.
    buffer.append(QByteArray(1000, 'z'));
    EXPECT_EQ(buffer.bytesAvailable(), 0);
    EXPECT_TRUE(buffer.append(QByteArray(4000, 'z')).isNewStream);
    EXPECT_EQ(buffer.bytesAvailable(), 0); // Not before it is announced.
    buffer.release();
    EXPECT_EQ(buffer.bytesAvailable(), 5000);
}

TEST(MmsStreamBuffer, NeverHoldsMoreThanItsCapacity)
{
    MmsStreamBuffer buffer;
    buffer.setHeader(header, 1, 100);
    EXPECT_FALSE(buffer.setRequestedLength(0));
    EXPECT_FALSE(buffer.setRequestedLength(-1));
    EXPECT_EQ(buffer.requestedLength(), 5242880);
    EXPECT_FALSE(buffer.append(QByteArray(5242880, 'x')).isFull);
    EXPECT_TRUE(buffer.append("x").isFull);
    EXPECT_EQ(buffer.size(), 5242880);
    EXPECT_TRUE(buffer.setRequestedLength(1000));
    EXPECT_EQ(buffer.size(), 1000);
    EXPECT_TRUE(buffer.setRequestedLength(1)); // A packet always fits.
    EXPECT_EQ(buffer.size(), 100);
    EXPECT_FALSE(buffer.setRequestedLength(100));
    EXPECT_EQ(read(buffer, 1000), 100);
}

TEST(MmsStreamBuffer, HoldsFifteenSecondsAndSaysWhenItIsNearlyFull)
{
    MmsStreamBuffer buffer;
    buffer.setHeader(header, 8'000'000, 1000);
    qint64 const capacity = 15'000'000;
    while (buffer.size() + 1000 <= capacity - MmsStreamBuffer::reserve)
        ASSERT_FALSE(buffer.append(QByteArray(1000, 'x')).isNearlyFull);
    MmsStreamBuffer::Appended const result = buffer.append(QByteArray(1000, 'x'));
    EXPECT_TRUE(result.isNearlyFull && !result.isFull);
    while (!buffer.append(QByteArray(1000, 'x')).isFull) {
    }
    EXPECT_EQ(buffer.size(), capacity);
    EXPECT_FALSE(buffer.hasRoom());
    read(buffer, capacity / 2);
    EXPECT_TRUE(buffer.hasRoom());
}

TEST(MmsStreamBuffer, LeapsToWhereADemultiplexerCanBegin)
{
    QByteArray const film = Clips::bytes(Clips::wmv(12));
    qsizetype const packets = film.indexOf(QByteArray::fromHex("3626b2758e66cf11a6d900aa0062ce6c")) + 50;
    constexpr int packetSize = 3200;
    MmsStreamBuffer buffer;
    buffer.setHeader(film.left(packets), 80'000, packetSize); // It plays with 50,000 bytes, and later with 25,000.
    AsfEntryFinder const finder(film.left(packets));
    QList<qsizetype> entries;
    qsizetype end = packets;
    for (; film.size() - end >= packetSize && end - packets < 400'000; end += packetSize) {
        QByteArray const packet = film.mid(end, packetSize);
        if (finder.isEntry(packet))
            entries.append(end);
        buffer.append(packet);
    }
    EXPECT_GT(entries.size(), 3);
    EXPECT_LT(entries.size(), 30) << "one for each key frame, not for each packet";
    read(buffer, packetSize);
    qint64 const dropped = buffer.leapForward();
    QByteArray next(packetSize, Qt::Uninitialized);
    ASSERT_EQ(buffer.read(next.data(), packetSize), packetSize);
    EXPECT_EQ(next, film.mid(packets + packetSize + dropped, packetSize));
    EXPECT_TRUE(finder.isEntry(next));
    EXPECT_GE(buffer.size() + packetSize, 25'000);
    EXPECT_LT(buffer.size(), 200'000);
}

TEST(BitrateWatch, ToleratesShortWeaknessAndReportsALongOne)
{
    using V = BitrateWatch;
    struct Case {
        QList<std::pair<int, int>> seconds; ///< How many of how many bytes, for 8000 bit/s.
        bool hasAlternative;
        int at; ///< The second of the first verdict that is not good, from 1; 0 for none.
        V::Verdict verdict;
    };
    Case const cases[] = {
        {{{100, 500}}, true, 0, V::Good},
        {{{100, 499}}, true, 12, V::LowSeconds},
        {{{100, 0}}, false, 0, V::Good},
        {{{11, 0}, {1, 500}, {12, 0}}, true, 24, V::LowSeconds},
        // Single good seconds do not lift the average; it is taken of the last thirty once a thirty-first came.
        {{{11, 0}, {1, 600}, {11, 0}, {1, 600}, {20, 0}}, true, 31, V::LowAverage},
        {{{30, 500}, {11, 499}}, true, 31, V::LowAverage},
        {{{1, 100000}, {11, 0}, {1, 500}, {11, 0}, {1, 500}, {5, 0}, {1, 500}}, true, 31, V::LowAverage},
    };
    for (Case const& c : cases) {
        BitrateWatch watch;
        watch.restart(8000);
        int second = 0;
        int at = 0;
        V::Verdict verdict = V::Good;
        for (auto const& [count, bytes] : c.seconds)
            for (int i = 0; i < count && at == 0; ++i) {
                verdict = watch.addSecond(bytes, c.hasAlternative);
                ++second;
                at = verdict == V::Good ? 0 : second;
            }
        EXPECT_EQ(at, c.at) << &c - cases;
        EXPECT_EQ(verdict, c.verdict) << &c - cases;
    }
}
