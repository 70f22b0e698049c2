// Headers that others wrote, and what others read from the ones written here.

#include "AsfBytes.h"
#include "AsfStreamFilter.h"
#include "Clips.h"
#include "FFwrapper.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <gmock/gmock.h>

namespace
{
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

QByteArray const exclusion = AsfBytes::mutex(asfBitrateMutexGuid, asfMutexBitrate, {1, 2, 3});
QByteArray const rates = AsfBytes::bitrates({{1, 100000}, {2, 300000}, {3, 500000}, {4, 48000}});
} // namespace

TEST(AsfFiles, WantedStreamsOfARealHeaderAreThoseThatFFmpegFinds)
{
    QByteArray const file = Clips::bytes(Clips::asf(3, 1));
    qsizetype const headerSize = SimpleAsfParser().ParseHeader(file);
    for (auto const& [extra, wanted] : {std::pair(QByteArray(), QList{1, 2, 3, 4}), {exclusion + rates, {2, 4}}}) {
        QByteArray changed = file;
        changed.insert(headerSize - 50, extra);
        changed.replace(16, 8, AsfBytes::u64(static_cast<quint64>(headerSize - 50 + extra.size())));
        QMap<int, int> selection;
        QByteArray header;
        AsfStreamFilter(changed).useBandwidthLimit(512000, selection, header);
        EXPECT_EQ(selection.keys(AsfStreamFilter::wanted), wanted);
        EXPECT_EQ(streamsIn(Clips::write("written.asf", header + file.mid(headerSize))), wanted);
    }
}
