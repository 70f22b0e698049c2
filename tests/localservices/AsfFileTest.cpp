#include "AsfFile.h"

#include "AsfGuids.h"
#include "ByteCursor.h"
#include "Clips.h"

#include <gtest/gtest.h>

TEST(AsfFile, WhatCannotBeBroadcastIsToldInWords)
{
    QByteArray const good = Clips::bytes(Clips::wmv());
    qsizetype const packets = good.indexOf(AsfGuids::view(AsfGuids::data)) + 50;
    QList<std::pair<QByteArray, QString>> const cases = {
        {"This is text.", "no ASF"},
        {good.left(24) + QByteArray(2000, '\0'), "ends before"},
        {good.left(packets), "no data packet"},
    };
    QString error;
    for (auto const& [bytes, text] : cases) {
        EXPECT_FALSE(AsfFile::open(Clips::write("file.asf", bytes), error));
        EXPECT_TRUE(error.contains(text)) << qPrintable(error);
    }
    EXPECT_FALSE(AsfFile::open("/nowhere/film.asf", error));
    EXPECT_TRUE(error.contains("/nowhere/film.asf")) << qPrintable(error);
}

TEST(AsfFile, TheHeaderOfABroadcastTellsBitratesAndAlternatives)
{
    QString error;
    std::unique_ptr<AsfFile> const file = AsfFile::open(Clips::asf(2, 1), error);
    ASSERT_TRUE(file) << qPrintable(error);
    QByteArray const bytes = file->broadcastHeader("A title");
    QByteArray const top = bytes.chopped(50);
    std::optional<AsfHeader> const header = AsfHeader::parse(top, error);
    ASSERT_TRUE(header) << qPrintable(error);
    EXPECT_EQ(ByteCursor(top, 16).u64(), static_cast<quint64>(top.size()));
    EXPECT_TRUE(header->hasBitrates());
    EXPECT_GT(header->streams().value(1).bitrate, 1000U);
    EXPECT_EQ(header->exclusions(), (QList<QList<int>>{{1, 2}}));
    EXPECT_EQ(ByteCursor(top, top.indexOf(AsfGuids::view(AsfGuids::fileProperties)) + 24 + 64).u32(), 1U);
}
