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

/// What a header becomes when all its streams are wanted: the file properties in front, with a size of their own, and
/// for the Data object's size of 0, which is one that is not known, that of its own header.
QByteArray expected(QList<QByteArray> objects)
{
    qsizetype const size = header(objects).size();
    objects.removeFirst();
    objects.prepend(fileProperties(1300, 2, static_cast<quint64>(size)));
    return header(objects).replace(size - 34, 8, u64(50));
}

QList<int> numbers(auto const& streams)
{
    QList<int> result;
    for (auto const& stream : streams)
        result.append(stream.streamNumber);
    return result;
}
} // namespace

TEST(AsfHeader, EveryKindOfObjectIsWrittenAsItCame)
{
    QList<QByteArray> const objects = everyKind();
    EXPECT_EQ(rewritten(header(objects.mid(1) + objects.first(1))), expected(objects));
    QList<QByteArray> const nested = {fileProperties(), headerExtension(objects.mid(1)), audio(1)};
    EXPECT_EQ(rewritten(header(nested)), expected(nested));
}

TEST(AsfHeader, PropertiesAndStreamsAreFoundAlsoInsideOfOtherObjects)
{
    QByteArray const bytes = header(
        {fileProperties(1300, 9), video(3),
         headerExtension({extendedStream(9, audio(4)), extendedStream(5), video(6), headerExtension({audio(7)})}),
         audio(8), streamProperties(asfBinaryMediaGuid, 10, "lost", "kept")});
    SimpleAsfParser parser;
    EXPECT_EQ(parser.ParseHeader(bytes + "packets"), bytes.size());
    EXPECT_EQ(parser.maxPacketSize(), 1300u);
    EXPECT_EQ(parser.maxBitrate(), 464000u);
    EXPECT_TRUE(parser.isBroadcast() && parser.isLive() && !parser.isSeekable());
    EXPECT_EQ(numbers(parser.audioStreams()), QList<int>({7, 8, 4}));
    EXPECT_EQ(numbers(parser.videoStreams()), QList<int>({3, 6}));
    EXPECT_EQ(numbers(parser.otherStreams()), QList<int>({10}));
    EXPECT_EQ(parser.numberOfStreams(), 6);
    EXPECT_EQ(parser.audioStreams().constFirst().format.samplesPerSecond, 44100u);
    EXPECT_EQ(parser.videoStreams().constFirst().format.height, 120u);
}

TEST(AsfHeader, CutAnywhereOrWithoutPropertiesIsRefused)
{
    QByteArray const whole = header(everyKind() + QList<QByteArray>{headerExtension(everyKind())});
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_EQ(rewritten(QByteArray(whole.constData(), size)), "") << size; // A read past the end is seen.
    EXPECT_EQ(rewritten(header({audio(1)})), "") << "without properties";
}

TEST(AsfHeader, SizesThatAreNotThoseOfTheObject)
{
    for (quint64 const size : {quint64(0), quint64(23), quint64(40), quint64(1) << 31, ~quint64(0)}) {
        QByteArray const wrong = audio(1).replace(16, 8, u64(size));
        EXPECT_EQ(rewritten(header({fileProperties(), audio(1), wrong, video(2)})), "") << size;
        QList<QByteArray> const nested = {fileProperties(), headerExtension({audio(1), wrong}), video(2)};
        EXPECT_EQ(rewritten(header(nested)), expected(nested)) << size;
    }
}

TEST(AsfHeader, HeaderExtensionsAreReadOnlySoDeepInsideEachOther)
{
    QByteArray nested = video(2);
    for (int depth = 1; depth <= HeaderExtensionObject::maximumDepth + 1; ++depth) {
        nested = headerExtension({nested});
        QByteArray const result = rewritten(header({fileProperties(), nested}));
        EXPECT_EQ(result, expected({fileProperties(), nested})) << depth;
        EXPECT_EQ(SimpleAsfParser(result).numberOfStreams(), depth <= HeaderExtensionObject::maximumDepth) << depth;
    }
}
