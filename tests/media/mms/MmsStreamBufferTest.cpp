#include "MmsStreamBuffer.h"

#include "BitrateWatch.h"
#include "Clips.h"

#include <gmock/gmock.h>

namespace
{

QByteArray const theHeader("header");

qint64 read(MmsStreamBuffer& buffer, qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    return buffer.read(bytes.data(), size);
}

} // namespace

TEST(ByteQueue, GivesBackWhatWentInWhateverTheSizes)
{
    ByteQueue queue;
    QByteArray expected;
    for (int i = 0; i < 1000; ++i) {
        QByteArray const bytes(i * 7 % 400, static_cast<char>(i));
        queue.append(bytes);
        expected += bytes;
        if (i % 100 == 99) {
            queue.truncate(expected.size() / 2);
            expected.truncate(expected.size() / 2);
        }
        QByteArray out(i * 11 % 410, '\0');
        qint64 const count = queue.read(out.data(), out.size());
        ASSERT_EQ(out.first(count), expected.first(std::min(out.size(), expected.size())));
        expected.remove(0, count);
        ASSERT_EQ(queue.size(), expected.size());
    }
}

TEST(MmsStreamBuffer, HandsOutWholePacketsOnly)
{
    MmsStreamBuffer buffer;
    buffer.setHeader(theHeader, 1, 100);
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

TEST(MmsStreamBuffer, LeapsToWhereADemultiplexerCanBegin)
{
    QByteArray const film = Clips::bytes(Clips::wmv(12));
    qsizetype const begin = film.indexOf(QByteArray::fromHex("3626b2758e66cf11a6d900aa0062ce6c")) + 50;
    constexpr int packetSize = 3200;
    MmsStreamBuffer buffer;
    buffer.setHeader(film.left(begin), 80'000, packetSize); // It plays with 50,000 bytes, and later with 25,000.
    AsfEntryFinder const finder(film.left(begin));
    int entries = 0;
    for (qsizetype at = begin; at < begin + 400'000; at += packetSize) {
        entries += finder.isEntry(film.mid(at, packetSize));
        buffer.append(film.mid(at, packetSize));
    }
    EXPECT_GT(entries, 3);
    EXPECT_LT(entries, 30) << "one for each key frame, not for each packet";
    qint64 const dropped = buffer.leapForward();
    EXPECT_GE(buffer.size(), 25'000);
    EXPECT_LT(buffer.size(), 200'000);
    QByteArray next(packetSize, Qt::Uninitialized);
    ASSERT_EQ(buffer.read(next.data(), packetSize), packetSize);
    EXPECT_EQ(next, film.mid(begin + dropped, packetSize));
    EXPECT_TRUE(finder.isEntry(next));
}

TEST(BitrateWatch, ToleratesShortWeaknessAndReportsALongOne)
{
    // Single good seconds do not lift the average; it is taken of the last thirty once a thirty-first came.
    using Seconds = QList<std::pair<int, int>>; // How many of how many bytes, for 8000 bit/s.
    for (auto const& [seconds, hasAlternative, expected, bad] :
         {std::tuple(Seconds{{100, 500}}, true, 100, BitrateWatch::Good),
          {{{100, 499}}, true, 11, BitrateWatch::LowSeconds},
          {{{100, 0}}, false, 100, BitrateWatch::Good},
          {{{11, 0}, {1, 600}, {11, 0}, {1, 600}, {20, 0}}, true, 30, BitrateWatch::LowAverage},
          {{{30, 500}, {11, 499}}, true, 30, BitrateWatch::LowAverage}}) {
        BitrateWatch watch;
        watch.restart(8000);
        int good = 0;
        BitrateWatch::Verdict verdict = BitrateWatch::Good;
        for (auto const& [count, bytes] : seconds)
            for (int i = 0; i < count && verdict == BitrateWatch::Good; ++i)
                good += (verdict = watch.addSecond(bytes, hasAlternative)) == BitrateWatch::Good;
        EXPECT_EQ(good, expected);
        EXPECT_EQ(verdict, bad) << good;
    }
}
