// Which streams of a header are wanted.

#include "AsfStreamFilter.h"

#include "AsfBytes.h"

#include <gmock/gmock.h>

using namespace AsfBytes;

namespace
{
QByteArray bitrateMutex(QList<int> const& streamNumbers)
{
    return mutex(asfBitrateMutexGuid, asfMutexBitrate, streamNumbers);
}

QList<int> switchedOff(QMap<int, int> const& selection)
{
    return selection.keys(AsfStreamFilter::switchedOff);
}

struct Case {
    char const* name;
    QList<QByteArray> objects;
    QList<int> streams;
    QList<int> switchedOff;
};

QList<QByteArray> const threePictures = {audio(1), video(2), video(3), video(4)};
QByteArray const threeRates = bitrates({{1, 64000}, {2, 100000}, {3, 300000}, {4, 700000}});

QList<Case> cases()
{
    QByteArray const language = mutex(asfAdvancedMutexGuid, asfMutexLanguage, {2, 3, 4});
    QByteArray const advanced = mutex(asfAdvancedMutexGuid, asfMutexBitrate, {2, 3, 4});
    return {
        {"nothing excludes another", {audio(1), video(2), bitrates({{1, 64000}, {2, 900000}})}, {1, 2}, {}},
        {"the most below the limit",
         threePictures + QList{threeRates, bitrateMutex({2, 3, 4})},
         {1, 2, 3, 4},
         {2, 4}},
        {"excluded in the extension",
         threePictures + QList{threeRates, headerExtension({language, advanced})},
         {1, 2, 3, 4},
         {2, 4}},
        {"excluded for their languages only", threePictures + QList{threeRates, language}, {1, 2, 3, 4}, {}},
        {"all above the limit: the least",
         {audio(1), video(2), video(3), bitrates({{1, 64000}, {2, 900000}, {3, 800000}}), bitrateMutex({2, 3})},
         {1, 2, 3},
         {2}},
        {"exactly the limit is too much",
         {audio(1), video(2), video(3), bitrates({{1, 12000}, {2, 500000}, {3, 100000}}), bitrateMutex({2, 3})},
         {1, 2, 3},
         {2}},
        {"no record counts as 1 a second",
         {audio(1), video(2), video(3), bitrates({{1, 511998}, {3, 2}}), bitrateMutex({2, 3})},
         {1, 2, 3},
         {3}},
        {"pictures only",
         {video(1), video(2), bitrates({{1, 64000}, {2, 628000}}), bitrateMutex({1, 2})},
         {1, 2},
         {2}},
        {"both kinds excluded, and others stay on",
         {audio(1), audio(2), video(3), video(4), streamProperties(asfCommandMediaGuid, 5, {}),
          bitrates({{1, 64000}, {2, 128000}, {3, 200000}, {4, 440000}}), bitrateMutex({1, 2}), bitrateMutex({3, 4})},
         {1, 2, 3, 4, 5},
         {2, 3}},
    };
}

/// The same number of streams, records and numbers, or what is left of them.
void expectNoTraceOf(int stream, QByteArray const& header)
{
    SimpleAsfParser parser(header);
    EXPECT_EQ(parser.getStreamType(stream), QUuid());
    EXPECT_EQ(parser.streamBitrate(stream), 0);
    EXPECT_EQ(parser.inBitrateMutex(stream), QList<int>());
}
} // namespace

TEST(AsfStreamFilter, BandwidthLimit)
{
    for (Case const& test : cases()) {
        SCOPED_TRACE(test.name);
        QMap<int, int> selection;
        QByteArray result;
        AsfStreamFilter filter(header(QList{fileProperties()} + test.objects));
        filter.useBandwidthLimit(512000, selection, result);
        EXPECT_EQ(selection.keys(), test.streams);
        EXPECT_EQ(switchedOff(selection), test.switchedOff);
        EXPECT_EQ(SimpleAsfParser(result).numberOfStreams(), test.streams.size() - test.switchedOff.size());
        for (int const stream : test.switchedOff)
            expectNoTraceOf(stream, result);
    }
}

TEST(AsfStreamFilter, OnlyStreamsThatAreLeftOnCountForTheBitrate)
{
    QMap<int, int> selection;
    QByteArray result;
    QList<QByteArray> const objects = {fileProperties(), audio(1), video(2),
                                       video(3),         video(4), bitrateMutex({2, 3, 4})};
    AsfStreamFilter filter(header(objects + QList{bitrates({{1, 64000}, {2, 100000}, {3, 300000}, {4, 700000}})}));
    filter.useBandwidthLimit(512000, selection, result);
    EXPECT_EQ(filter.bitrateOf(selection, 1164000), 364000);
    EXPECT_EQ(filter.bitrateOf({{1, 0}, {2, 0}}, 1164000), 1164000) << "none is switched off";
    EXPECT_EQ(AsfStreamFilter(header(objects)).bitrateOf(selection, 1164000), 1164000) << "nothing is known of them";
}

TEST(AsfStreamFilter, SwitchedOffStreamsLeaveEveryObject)
{
    QList<QByteArray> const before = {
        fileProperties(),
        audio(1),
        video(2),
        video(3),
        bitrates({{1, 64000}, {2, 300000}, {3, 700000}, {4, 900000}}),
        bitrateMutex({2, 3, 4}),
        headerExtension({extendedStream(2), extendedStream(3), extendedStream(9, video(4)), extendedStream(4),
                         metadata(asfMetadataGuid, {3, 1, 3, 2, 3}),
                         mutex(asfAdvancedMutexGuid, asfMutexLanguage, {3, 2}), metadata(asfMetadataLibraryGuid, {3}),
                         headerExtension({extendedStream(3), metadata(asfMetadataGuid, {4})})}),
    };
    QMap<int, int> selection;
    QByteArray result;
    AsfStreamFilter(header(before)).useBandwidthLimit(512000, selection, result);
    EXPECT_EQ(switchedOff(selection), QList<int>({3, 4}));

    QList<QByteArray> after = {
        fileProperties(),
        audio(1),
        video(2),
        bitrates({{1, 64000}, {2, 300000}}),
        bitrateMutex({2}),
        headerExtension({extendedStream(2), metadata(asfMetadataGuid, {1, 2}),
                         mutex(asfAdvancedMutexGuid, asfMutexLanguage, {2}), metadata(asfMetadataLibraryGuid, {3}),
                         headerExtension({metadata(asfMetadataGuid, {})})}),
    };
    after[0] = fileProperties(1300, 2, static_cast<quint64>(header(after).size()));
    EXPECT_EQ(result, header(after).replace(header(after).size() - 34, 8, u64(50)));
}

TEST(AsfStreamFilter, HeaderThatCannotBeParsedGivesNoneAndNoStreams)
{
    for (QByteArray const& bytes : {QByteArray(), QByteArray("noise"), header({audio(1)}), header({}).left(100)}) {
        QMap<int, int> selection = {{7, 0}};
        QByteArray result = "before";
        AsfStreamFilter(bytes).useBandwidthLimit(512000, selection, result);
        EXPECT_EQ(result, "");
    }
}

TEST(AsfStreamFilter, Priorities)
{
    QList<QByteArray> const objects = {fileProperties(), audio(1), video(2), video(3), bitrateMutex({2, 3})};
    struct {
        QByteArray priorities;
        QMap<int, int> selection;
    } const table[] = {
        {priorities({1, 2, 3}), {{1, 0}, {2, 2}, {3, 0}}}, // A later one that excludes an earlier one wins.
        {priorities({9}), {}},
    };
    for (auto const& test : table) {
        QMap<int, int> selection;
        QByteArray result = "before";
        AsfStreamFilter(header(objects + QList{headerExtension({test.priorities})}))
            .usePrioritization(selection, result);
        EXPECT_EQ(selection, test.selection);
        if (selection.isEmpty())
            EXPECT_EQ(result, "before");
        else
            EXPECT_EQ(SimpleAsfParser(result).numberOfStreams(), selection.keys(AsfStreamFilter::wanted).size());
    }
}
