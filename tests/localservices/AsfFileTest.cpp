#include "AsfFile.h"

#include "AsfBuilder.h"
#include "ByteCursor.h"
#include "Clips.h"

#include <gtest/gtest.h>

namespace
{
std::unique_ptr<AsfFile> open(QByteArray const& bytes, QString& error)
{
    return AsfFile::open(Clips::write("file.asf", bytes), error);
}
} // namespace

TEST(AsfFile, WhatCannotBeBroadcastIsToldInWords)
{
    QByteArray const good = AsfBuilder().file();
    QByteArray noPacketSize = good;
    noPacketSize.replace(noPacketSize.indexOf(QByteArray("\x90\1\0\0", 4)), 4, QByteArray(4, '\0'));
    QList<std::pair<QByteArray, QString>> const cases = {
        {{}, "no ASF"},
        {"This is text.", "no ASF"},
        {good.left(24) + QByteArray(2000, '\0'), "ends before"},
        {AsfBuilder(0).file(), "no data packet"},
        {noPacketSize, "0 bytes long"},
    };
    for (auto const& [bytes, text] : cases) {
        QString error;
        EXPECT_FALSE(open(bytes, error));
        EXPECT_TRUE(error.contains(text)) << qPrintable(error);
    }
    QString error;
    EXPECT_FALSE(AsfFile::open("/nowhere/film.asf", error));
    EXPECT_TRUE(error.contains("/nowhere/film.asf")) << qPrintable(error);
}

TEST(AsfFile, ACutFileIsRefusedOrEndsEarly)
{
    QByteArray const good = AsfBuilder(5).file();
    qsizetype const header = AsfBuilder(5).header().size();
    for (qsizetype size = 0; size < good.size(); size += size < header + 60 ? 1 : 37) {
        QString error;
        std::unique_ptr<AsfFile> const file = open(good.left(size), error);
        EXPECT_EQ(file == nullptr, !error.isEmpty());
        EXPECT_LT(file ? file->packetCount() : 0, 5);
    }
}

TEST(AsfFile, HostileObjectSizesEndTheHeader)
{
    QByteArray const header = AsfBuilder().header();
    for (quint64 const size : {0ULL, 1ULL, 23ULL, 0x7FFFFFFFULL, 0x80000000ULL, 0xFFFFFFFFULL, ~0ULL}) {
        for (qsizetype place = 30 + 16; place < header.size() - 8; place += 8) {
            QByteArray bytes = header;
            QByteArray raw;
            appendLittleEndian(raw, size);
            bytes.replace(place, 8, raw);
            QString error;
            AsfHeader::parse(bytes, error);
        }
    }
}

TEST(AsfFile, TheFilmOfFfmpegIsUnderstood)
{
    QString error;
    std::unique_ptr<AsfFile> const file = AsfFile::open(Clips::wmv(), error);
    ASSERT_TRUE(file) << qPrintable(error);
    EXPECT_EQ(file->header().streams().size(), 2);
    EXPECT_EQ(file->keyPackets().value(1).size(), 2); // Two seconds with a key frame each.
    EXPECT_NEAR(file->duration(), 2000, 150);
    EXPECT_EQ(file->objectCounts().value(1), 50U);
    EXPECT_GT(file->header().streams().value(1).bitrate, 10'000U);
}

TEST(AsfFile, TheHeaderOfABroadcastTellsBitratesAndAlternatives)
{
    QString error;
    std::unique_ptr<AsfFile> const file = open(AsfBuilder(50, 2).withoutBitrates().file(), error);
    ASSERT_TRUE(file) << qPrintable(error);
    QByteArray const bytes = file->broadcastHeader("A title");
    QByteArray const top = bytes.chopped(50);
    std::optional<AsfHeader> const header = AsfHeader::parse(top, error);
    ASSERT_TRUE(header) << qPrintable(error);
    EXPECT_EQ(ByteCursor(top, 16).u64(), static_cast<quint64>(top.size()));
    EXPECT_TRUE(bytes.last(50).startsWith(AsfGuids::view(AsfGuids::data)));
    EXPECT_TRUE(header->hasBitrates());
    EXPECT_GT(header->streams().value(1).bitrate, 1000U);
    EXPECT_EQ(header->exclusions(), (QList<QList<int>>{{1, 2}}));
    EXPECT_EQ(ByteCursor(top, top.indexOf(AsfGuids::view(AsfGuids::fileProperties)) + 24 + 64).u32(), 1U);
}
