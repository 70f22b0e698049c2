// Which streams of a header are wanted.

#include "AsfStreamFilter.h"

#include "AsfBytes.h"
#include "Clips.h"
#include "FFwrapper.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <gmock/gmock.h>

using namespace AsfBytes;

namespace
{
QByteArray bitrateMutex(QList<int> const& streamNumbers)
{
    return mutex(asfBitrateMutexGuid, asfMutexBitrate, streamNumbers);
}

/// The streams that FFmpeg finds, opened as a viewer's player would.
QList<int> streamsIn(QString const& path)
{
    AVFormatContext* opened = avformat_alloc_context();
    EXPECT_EQ(FFwrapper::openContext(opened, qPrintable(path), nullptr), 0);
    FormatContextPointer const context(opened);
    QList<int> ids;
    for (unsigned int i = 0; context && i < context->nb_streams; ++i)
        ids.append(context->streams[i]->id);
    return ids;
}
} // namespace

TEST(AsfStreamFilter, TheMostBelowTheLimitOfThoseThatExcludeEachOther)
{
    QList<QByteArray> const pictures = {audio(1), video(2), video(3), video(4)};
    QByteArray const rates = bitrates({{1, 64000}, {2, 100000}, {3, 300000}, {4, 700000}});
    QByteArray const language = mutex(asfAdvancedMutexGuid, asfMutexLanguage, {2, 3});
    QByteArray const advanced = mutex(asfAdvancedMutexGuid, asfMutexBitrate, {2, 3, 4});
    struct {
        char const* name;
        QList<QByteArray> objects;
        QList<int> switchedOff;
    } const table[] = {
        {"nothing is excluded", pictures + QList{rates}, {}},
        {"not for their languages", pictures + QList{rates, headerExtension({language, advanced})}, {2, 4}},
        {"all above the limit: the least",
         {audio(1), video(2), video(3), bitrates({{1, 64000}, {2, 900000}, {3, 800000}}), bitrateMutex({2, 3})},
         {2}},
        {"exactly the limit is too much",
         {audio(1), video(2), video(3), bitrates({{1, 12000}, {2, 500000}, {3, 100000}}), bitrateMutex({2, 3})},
         {2}},
        {"no record counts as 1 a second",
         {audio(1), video(2), video(3), bitrates({{1, 511998}, {3, 2}}), bitrateMutex({2, 3})},
         {3}},
        {"pictures only", {video(1), video(2), bitrates({{1, 64000}, {2, 628000}}), bitrateMutex({1, 2})}, {2}},
        {"both kinds excluded, and others stay on",
         {audio(1), audio(2), video(3), video(4), streamProperties(asfCommandMediaGuid, 5, {}),
          bitrates({{1, 64000}, {2, 128000}, {3, 200000}, {4, 440000}}), bitrateMutex({1, 2}), bitrateMutex({3, 4})},
         {2, 3}},
    };
    for (auto const& test : table) {
        QMap<int, int> selection;
        QByteArray result;
        AsfStreamFilter filter(header(QList{fileProperties()} + test.objects));
        filter.useBandwidthLimit(512000, selection, result);
        EXPECT_EQ(selection.size(), filter.numberOfStreams()) << test.name;
        EXPECT_EQ(selection.keys(AsfStreamFilter::switchedOff), test.switchedOff) << test.name;
    }
}

TEST(AsfStreamFilter, OnlyStreamsThatAreLeftOnCountForTheBitrate)
{
    AsfStreamFilter const filter(header({fileProperties(), bitrates({{1, 64000}, {2, 100000}, {3, 300000}})}));
    EXPECT_EQ(filter.bitrateOf({{1, 0}, {2, 2}, {3, 0}}, 1164000), 364000);
    EXPECT_EQ(filter.bitrateOf({{1, 0}, {2, 0}}, 1164000), 1164000) << "none is switched off";
    EXPECT_EQ(filter.bitrateOf({{1, 0}, {2, 2}, {4, 0}}, 1164000), 1164000) << "not all are known";
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
    EXPECT_EQ(selection.keys(AsfStreamFilter::switchedOff), QList<int>({3, 4}));

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

TEST(AsfStreamFilter, WantedStreamsOfARealHeaderAreThoseThatFFmpegFinds)
{
    QByteArray const file = Clips::bytes(Clips::asf(3, 1));
    QByteArray const limits = bitrateMutex({1, 2, 3}) + bitrates({{1, 100000}, {2, 300000}, {3, 500000}, {4, 48000}});
    qsizetype const headerSize = SimpleAsfParser().ParseHeader(file);
    for (auto const& [extra, wanted] : {std::pair(QByteArray(), QList{1, 2, 3, 4}), {limits, {2, 4}}}) {
        QByteArray changed = file;
        changed.insert(headerSize - 50, extra);
        changed.replace(16, 8, u64(static_cast<quint64>(headerSize - 50 + extra.size())));
        QMap<int, int> selection;
        QByteArray rewritten;
        AsfStreamFilter(changed).useBandwidthLimit(512000, selection, rewritten);
        EXPECT_EQ(selection.keys(AsfStreamFilter::wanted), wanted);
        EXPECT_EQ(streamsIn(Clips::write("written.asf", rewritten + file.mid(headerSize))), wanted);
    }
}
