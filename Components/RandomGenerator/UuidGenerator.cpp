#include "UuidGenerator.h"

#include "RandomGenerator.h"

#include <array>

QUuid UuidGenerator::generateRandomUuid(RandomGenerator& randomGenerator)
{
    auto const random31Bits = [&] { return static_cast<quint32>(randomGenerator.qint32rand(0x7FFFFFFF)); };
    std::array<quint32, 4> words;
    for (auto word = words.rbegin(); word != words.rend(); ++word) {
        *word = random31Bits();
        *word |= random31Bits() << 31;
    }
    // The words lie over the UUID's fields, the low byte of each word first.
    auto const byte = [&](int i) { return static_cast<uchar>(words[i / 4] >> (i % 4 * 8)); };
    auto const timeMid = static_cast<ushort>(words[1]);
    auto const timeHigh = static_cast<ushort>(words[1] >> 16);
    return QUuid(words[0], timeMid, static_cast<ushort>((timeHigh & 0x0FFF) | 0x4000),
                 static_cast<uchar>((byte(8) & 0x3F) | 0x80), byte(9), byte(10), byte(11), byte(12), byte(13),
                 byte(14), byte(15));
}
