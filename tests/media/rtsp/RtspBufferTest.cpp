#include "RtspBuffer.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace
{

QByteArray readAll(RtspBuffer& buffer)
{
    QByteArray bytes(buffer.size(), '\0');
    bytes.truncate(buffer.read(bytes.data(), bytes.size()));
    return bytes;
}

constexpr qint64 upkeep = RtspBuffer::chunkUpkeep;

} // namespace

TEST(RtspBuffer, BytesComeOutInOrderWhateverTheSizesOfReads)
{
    RtspBuffer buffer(1 << 20);
    QRandomGenerator random(1);
    QByteArray in;
    QByteArray out;
    for (int i = 0; i < 500; ++i) {
        QByteArray const chunk(random.bounded(300), static_cast<char>(i));
        EXPECT_EQ(buffer.append(chunk, true), 0);
        in += chunk;
        QByteArray piece(random.bounded(310), '\0');
        piece.truncate(buffer.read(piece.data(), piece.size()));
        out += piece;
        ASSERT_EQ(buffer.size(), in.size() - out.size());
    }
    out += readAll(buffer);
    EXPECT_EQ(out, in);
}

TEST(RtspBuffer, ABufferThatIsFullLeapsToTheNextEntry)
{
    RtspBuffer buffer(5 * (upkeep + 10));
    for (char const* text : {"A.........", "a.........", "B.........", "b.........", "b........."})
        EXPECT_EQ(buffer.append(text, std::isupper(*text)), 0);
    EXPECT_EQ(buffer.append("b.........", false), 20); // Both of the first group.
    EXPECT_EQ(readAll(buffer).left(1), "B");
}

TEST(RtspBuffer, WhatIsLeftOfAChunkStaysWhenOthersGo)
{
    RtspBuffer buffer(2 * (upkeep + 10));
    char first = 0;
    buffer.append("A123456789", true);
    EXPECT_EQ(buffer.read(&first, 1), 1);
    buffer.append("B.........", true);
    buffer.append("C.........", true);
    EXPECT_EQ(readAll(buffer), "123456789C.........");
    buffer.append("D.........", true);
    EXPECT_EQ(buffer.read(&first, 1), 1);
    buffer.append("E.........", true);
    buffer.clear();
    EXPECT_EQ(readAll(buffer), ".........");
    buffer.append("D.........", true);
    EXPECT_EQ(buffer.read(&first, 1), 1);
    buffer.reset();
    EXPECT_EQ(readAll(buffer), "");
}

TEST(RtspBuffer, AfterAGapItGoesOnAtAnEntryOnly)
{
    RtspBuffer buffer(2 * (upkeep + 10));
    EXPECT_EQ(buffer.append("a.........", false), 10); // As at the beginning.
    EXPECT_EQ(buffer.append("A.........", true), 0);
    EXPECT_EQ(buffer.append("a.........", false), 0);
    EXPECT_EQ(buffer.append("a.........", false), 30); // A group larger than the buffer.
    EXPECT_EQ(buffer.append("a.........", false), 10);
    EXPECT_EQ(buffer.append("B.........", true), 0);
    EXPECT_EQ(readAll(buffer), "B.........");
    buffer.append("C.........", true);
    EXPECT_EQ(buffer.setCapacity(5), 10);
    EXPECT_EQ(buffer.size(), 0);
}

TEST(RtspBuffer, SmallChunksCannotOutgrowIt)
{
    RtspBuffer buffer(1000 * upkeep);
    for (int i = 0; i < 100000; ++i)
        buffer.append("x", true);
    EXPECT_LT(buffer.size(), 1000);
}
