#include "RtspBuffer.h"

#include <gtest/gtest.h>

namespace
{

QByteArray read(RtspBuffer& buffer, int size = 1000)
{
    QByteArray bytes(size, '\0');
    bytes.truncate(buffer.read(bytes.data(), size));
    return bytes;
}

constexpr qint64 upkeep = RtspBuffer::chunkUpkeep;

} // namespace

TEST(RtspBuffer, ABufferThatIsFullLeapsToTheNextEntry)
{
    RtspBuffer buffer(5 * (upkeep + 10));
    for (char const* text : {"A.........", "a.........", "B.........", "b.........", "b........."})
        EXPECT_EQ(buffer.append(text, std::isupper(*text)), 0);
    EXPECT_EQ(buffer.append("b.........", false), 20); // Both of the first group.
    EXPECT_EQ(read(buffer, 11), "B.........b");
    EXPECT_EQ(buffer.setCapacity(5), 20);
    EXPECT_EQ(read(buffer), "........."); // What is left of a chunk stays when others go.
    buffer.setCapacity(1 << 20);
    EXPECT_EQ(buffer.append("a.........", false), 10); // After a gap it goes on at an entry only.
}

TEST(RtspBuffer, BeginsAtAnEntryAndIsEmptied)
{
    RtspBuffer buffer(1 << 20);
    EXPECT_EQ(buffer.append("a.........", false), 10);
    for (char const* text : {"A.........", "B........."})
        EXPECT_EQ(buffer.append(text, true), 0);
    EXPECT_EQ(read(buffer, 1), "A");
    buffer.clear();
    EXPECT_EQ(read(buffer, 5), ".....");
    EXPECT_EQ(buffer.append("b.........", false), 10);
    buffer.reset();
    EXPECT_EQ(read(buffer), "");
}
