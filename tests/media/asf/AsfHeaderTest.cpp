// The header of ASF: what is read from it, and that it is written again byte for byte.

#include "AsfBytes.h"
#include "AsfStreamFilter.h"
#include "HeaderExtensionObject.h"

#include <gmock/gmock.h>

using namespace AsfBytes;

namespace
{
QByteArray rewritten(QByteArray const& header)
{
    QMap<int, int> selection;
    QByteArray result = "must be replaced";
    AsfStreamFilter(header).useBandwidthLimit(1000000000, selection, result);
    return result;
}

/// What a header becomes when all its streams are wanted: the file properties in front, with a size of their own.
QByteArray expected(QList<QByteArray> objects)
{
    qsizetype const size = header(objects).size();
    objects.removeFirst();
    objects.prepend(fileProperties(1300, 2, static_cast<quint64>(size)));
    return header(objects);
}

/// The Data object's size of 0, for one that is not known, is written as that of its own header.
QByteArray withDataSize(QByteArray header)
{
    return header.replace(header.size() - 34, 8, u64(50));
}

QList<int> numbers(auto const& streams)
{
    QList<int> result;
    for (auto const& stream : streams)
        result.append(stream.streamNumber);
    return result;
}

int depthOf(SimpleAsfParser const& parser)
{
    return static_cast<int>(parser.findObjects(asfHeaderExtensionGuid).size());
}
} // namespace

TEST(AsfHeader, EveryKindOfObjectIsWrittenAsItCame)
{
    QList<QByteArray> const objects = everyKind();
    EXPECT_EQ(rewritten(header(objects)), withDataSize(expected(objects)));
    EXPECT_EQ(rewritten(header(objects.mid(1) + objects.first(1))), withDataSize(expected(objects)));

    QList<QByteArray> const nested = {fileProperties(), headerExtension(objects.mid(1)), audio(1)};
    EXPECT_EQ(rewritten(header(nested)), withDataSize(expected(nested)));
}

TEST(AsfHeader, StreamsAreFoundInOrderAlsoInsideOfOtherObjects)
{
    SimpleAsfParser const parser(header(
        {fileProperties(), video(3),
         headerExtension({extendedStream(9, audio(4)), extendedStream(5), video(6), headerExtension({audio(7)})}),
         audio(8), streamProperties(asfBinaryMediaGuid, 10, "lost", "kept")}));
    EXPECT_EQ(numbers(parser.audioStreams()), QList<int>({7, 8, 4}));
    EXPECT_EQ(numbers(parser.videoStreams()), QList<int>({3, 6}));
    EXPECT_EQ(numbers(parser.otherStreams()), QList<int>({10}));
    EXPECT_EQ(parser.numberOfStreams(), 6);
    AudioStreamObject const audio = parser.audioStreams().constFirst();
    EXPECT_EQ(audio.format.samplesPerSecond, 44100u);
    EXPECT_EQ(audio.format.codecData, "codec");
    EXPECT_EQ(audio.errorCorrectionData, "spread");
    EXPECT_EQ(parser.videoStreams().constFirst().format.height, 120u);
}

TEST(AsfHeader, ReturnsWhereTheDataBegins)
{
    QByteArray const whole = header({fileProperties(1300, 0x0B), audio(1)});
    SimpleAsfParser parser;
    EXPECT_EQ(parser.ParseHeader(whole + QByteArray(5000, 'x')), whole.size());
    EXPECT_TRUE(parser.isBroadcast() && parser.isSeekable() && parser.isLive());
    EXPECT_EQ(parser.maxPacketSize(), 1300u);

    parser.reset();
    EXPECT_EQ(parser.maxPacketSize(), 0u);
    EXPECT_EQ(parser.findObject(asfHeaderGuid), nullptr);
}

TEST(AsfHeader, LanguagesAndPrioritiesOfStreams)
{
    SimpleAsfParser const parser(
        header({fileProperties(), languages({"en-us", "fi"}), metadata(asfMetadataLibraryGuid, {2}, 1),
                headerExtension({priorities({4, 2}, {7})})}));
    EXPECT_EQ(parser.streamLanguage(2), "fi");
    EXPECT_EQ(parser.streamLanguage(1), "");
    QList<StreamPriorityRecord> const records = parser.streamPrioritization();
    ASSERT_EQ(records.size(), 3);
    EXPECT_EQ(records[1].streamNumber, 2);
    EXPECT_TRUE(records[1].mandatory);
    EXPECT_FALSE(records[2].mandatory);
}

TEST(AsfHeader, CutAnywhereIsRefused)
{
    QByteArray const whole = header(everyKind() + QList<QByteArray>{headerExtension(everyKind())});
    for (qsizetype size = 0; size < whole.size(); ++size) {
        QByteArray const cut(whole.constData(), size); // Its own storage, so that a read past the end is seen.
        EXPECT_EQ(SimpleAsfParser().ParseHeader(cut), 0) << size;
        EXPECT_EQ(rewritten(cut), "") << size;
    }
}

TEST(AsfHeader, SizesThatAreNotThoseOfTheObject)
{
    QList<quint64> const sizes = {0,          1,          7,          8,          23,        1ull << 31, 0xFFFFFFFF,
                                  1ull << 32, 1ull << 62, 1ull << 63, ~0ull - 23, ~0ull - 1, ~0ull};
    for (QByteArray const& whole : everyKind()) {
        for (quint64 const size : sizes) {
            QByteArray const wrong = whole.left(16) + u64(size) + whole.mid(24);
            EXPECT_EQ(rewritten(header({fileProperties(), audio(1), wrong, video(2)})), "") << size;
            QList<QByteArray> const nested = {fileProperties(), headerExtension({audio(1), wrong}), video(2)};
            EXPECT_EQ(rewritten(header(nested)), withDataSize(expected(nested))) << size;
        }
    }
}

/// Counts and lengths inside of objects, wherever they are, are not believed.
TEST(AsfHeader, AnyFieldAtItsMostDoesNoHarm)
{
    for (QByteArray const& whole : everyKind()) {
        for (int width : {1, 2, 4, 8}) {
            for (qsizetype at = 24; at + width <= whole.size(); ++at) {
                for (char const value : {'\xFF', '\x7F', '\x00'}) {
                    QByteArray changed = whole;
                    changed.replace(at, width, QByteArray(width - 1, '\xFF').append(value));
                    QByteArray const result = rewritten(header({fileProperties(), audio(1), changed}));
                    ASSERT_FALSE(result.isEmpty());
                    ASSERT_EQ(SimpleAsfParser().ParseHeader(result), result.size());
                }
            }
        }
    }
}

TEST(AsfHeader, HeaderExtensionsInsideEachOtherAreCarriedThrough)
{
    QByteArray nested = video(2);
    for (int depth = 1; depth <= 2000; ++depth) {
        nested = headerExtension({nested});
        if (depth != HeaderExtensionObject::maximumDepth && depth != 33 && depth != 2000)
            continue;
        QList<QByteArray> const objects = {fileProperties(), nested};
        QByteArray const result = rewritten(header(objects));
        EXPECT_TRUE(result == withDataSize(expected(objects))) << depth;
        SimpleAsfParser const parser(result);
        EXPECT_EQ(depthOf(parser), std::min(depth, HeaderExtensionObject::maximumDepth + 1));
        EXPECT_EQ(parser.numberOfStreams(), depth <= HeaderExtensionObject::maximumDepth ? 1 : 0);
    }
}

/// As many objects as fit must not make pairs of all of them.
TEST(AsfHeader, ThousandsOfStreamsOfTheSameNumbers)
{
    QList<QByteArray> objects = {fileProperties()};
    for (int i = 0; i < 20000; ++i)
        objects.append(i % 2 ? audio(1 + i % 50) : video(51 + i % 50));
    EXPECT_FALSE(rewritten(header(objects)).isEmpty());
}
