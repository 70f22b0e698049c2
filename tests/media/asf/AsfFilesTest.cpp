// Against files that others wrote, and what others read from the headers written here.

#include "AsfStreamFilter.h"
#include "ChunkBytes.h"
#include "Clips.h"
#include "FFwrapper.h"
#include "IAsfPacketListener.h"
#include "MmsChunkProcessor.h"

#include <QProcess>
#include <QtEndian>

extern "C" {
#include <libavformat/avformat.h>
}

#include <gmock/gmock.h>
#include <map>

namespace
{
/// Opened by FFmpeg as a viewer's player would.
FormatContextPointer openFile(QString const& path)
{
    AVFormatContext* context = avformat_alloc_context();
    EXPECT_EQ(FFwrapper::openContext(context, qPrintable(path), nullptr), 0);
    return FormatContextPointer(context);
}

QList<int> streamsIn(QString const& path)
{
    FormatContextPointer const context = openFile(path);
    QList<int> ids;
    for (unsigned int i = 0; context && i < context->nb_streams; ++i)
        ids.append(context->streams[i]->id);
    return ids;
}

qsizetype headerSize(QByteArray const& file)
{
    return SimpleAsfParser().ParseHeader(file);
}

/// The file with the header in which only these streams are described.
QByteArray withHeader(QByteArray const& header, QByteArray const& file)
{
    return header + file.mid(headerSize(file));
}

/// A checksum of every decoded picture and of all the sound, with time stamps.
QByteArray frameSums(QString const& path)
{
    QProcess ffmpeg;
    ffmpeg.start("timeout", {"60", "ffmpeg", "-hide_banner", "-loglevel", "error", "-nostdin", "-i", path, "-map",
                             "0", "-f", "framemd5", "-"});
    EXPECT_TRUE(ffmpeg.waitForFinished(60000));
    EXPECT_EQ(ffmpeg.exitCode(), 0);
    return ffmpeg.readAllStandardOutput();
}

/// The same file with a header that was read and written here, all its streams being wanted.
QString rewritten(QString const& path)
{
    QByteArray const file = Clips::bytes(path);
    QMap<int, int> selection;
    QByteArray header;
    AsfStreamFilter(file).useBandwidthLimit(512000, selection, header);
    EXPECT_EQ(selection.keys(AsfStreamFilter::wanted), streamsIn(path));
    return Clips::write("written.asf", withHeader(header, file));
}

struct FrameCollector : IAsfPacketListener {
    void onPacket(SimpleAsfParser::MediaFrame const& frame) override { frames[frame.streamNumber].append(frame); }
    std::map<int, QList<SimpleAsfParser::MediaFrame>> frames;
};
/// Every media object is put together from the packets as FFmpeg does it.
void expectObjectsOfFFmpeg(QString const& path, size_t streams)
{
    QByteArray const file = Clips::bytes(path);
    SimpleAsfParser parser;
    FrameCollector collector;
    parser.setPacketListener(&collector);
    int signalled = 0;
    QObject::connect(&parser, &SimpleAsfParser::onPacket, [&] { ++signalled; });

    qsizetype const dataBegins = parser.ParseHeader(file);
    ASSERT_GT(dataBegins, 0);
    quint64 const dataSize = qFromLittleEndian<quint64>(file.constData() + dataBegins - 34);
    qsizetype const end = dataBegins - 50 + static_cast<qsizetype>(dataSize);
    for (qsizetype at = dataBegins; at < end; at += parser.maxPacketSize())
        EXPECT_EQ(parser.ParseFrame(file.mid(at, parser.maxPacketSize())), parser.maxPacketSize());

    FormatContextPointer const context = openFile(path);
    AVPacket* packet = av_packet_alloc();
    std::map<int, qsizetype> read;
    while (av_read_frame(context.get(), packet) == 0) {
        AVStream const& stream = *context->streams[packet->stream_index];
        auto const& frames = collector.frames[stream.id];
        qsizetype const index = read[stream.id]++;
        ASSERT_LT(index, frames.size());
        EXPECT_EQ(frames[index].data, QByteArray::fromRawData(reinterpret_cast<char*>(packet->data), packet->size));
        bool const isVideo = stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO;
        bool const isKeyFrame = packet->flags & AV_PKT_FLAG_KEY; // FFmpeg says it of all sound.
        EXPECT_TRUE(!isVideo || frames[index].keyFrame == isKeyFrame);
        EXPECT_EQ(frames[index].streamType, isVideo ? asfVideoMediaGuid : asfAudioMediaGuid);
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    EXPECT_EQ(read.size(), streams);
    int all = 0;
    for (auto const& [stream, frames] : collector.frames) {
        EXPECT_EQ(read[stream], frames.size());
        all += static_cast<int>(frames.size());
    }
    EXPECT_EQ(signalled, all);
}
} // namespace

TEST(AsfFiles, HeaderWithAllStreamsDecodesToTheSamePicturesAndSound)
{
    for (auto const& [video, audio] : {std::pair(0, 1), {2, 2}}) {
        SCOPED_TRACE(testing::Message() << video << " and " << audio);
        QString const path = Clips::asf(video, audio);
        QString const written = rewritten(path);
        EXPECT_EQ(streamsIn(written), streamsIn(path));
        EXPECT_TRUE(frameSums(written) == frameSums(path));
    }
}

TEST(AsfFiles, HeaderWithChosenStreamsOpensWithExactlyThose)
{
    for (auto const& [video, audio] : {std::pair(1, 1), {3, 2}}) {
        SCOPED_TRACE(testing::Message() << video << " and " << audio);
        QString const path = Clips::asf(video, audio);
        QByteArray const file = Clips::bytes(path);
        for (int only = 1; only <= video + audio; ++only) {
            QMap<int, int> selection;
            for (int stream = 1; stream <= video + audio; ++stream)
                selection[stream] = stream == only ? AsfStreamFilter::wanted : AsfStreamFilter::switchedOff;
            SimpleAsfParser const parser(file);
            QVector<SimpleAsfObject*> objects;
            for (QUuid const& guid :
                 {asfHeaderGuid, asfFilePropertiesGuid, asfHeaderExtensionGuid, asfStreamPropertiesGuid,
                  asfCodecListGuid, asfBitratePropertiesGuid, asfDataGuid})
                objects += parser.findObjects(guid);
            SimpleAsfEncoder encoder(objects);
            for (int const stream : selection.keys(AsfStreamFilter::switchedOff))
                encoder.filterStream(stream);
            QString const written = Clips::write("written.asf", withHeader(encoder.createHeader(), file));
            EXPECT_EQ(streamsIn(written), QList<int>{only});
        }
    }
}

TEST(AsfFiles, MutualExclusionInARealHeaderLeavesOnePicture)
{
    QString const path = Clips::asf(3, 1);
    QByteArray const file = Clips::bytes(path);
    SimpleAsfParser const parser(file);
    QByteArray extra = AsfBytes::mutex(asfBitrateMutexGuid, asfMutexBitrate, {1, 2, 3});
    if (parser.streamBitrate(1) == 0)
        extra += AsfBytes::bitrates({{1, 100000}, {2, 300000}, {3, 500000}, {4, 48000}});
    QByteArray changed = file;
    qsizetype const size = headerSize(file) - 50;
    changed.insert(size, extra);
    changed.replace(16, 8, AsfBytes::u64(static_cast<quint64>(size + extra.size())));
    QMap<int, int> selection;
    QByteArray header;
    AsfStreamFilter(changed).useBandwidthLimit(512000, selection, header);
    EXPECT_EQ(selection, (QMap<int, int>{{1, 2}, {2, 0}, {3, 2}, {4, 0}}));
    EXPECT_EQ(streamsIn(Clips::write("written.asf", withHeader(header, changed))), QList<int>({2, 4}));
}

TEST(AsfFiles, MediaObjectsAreThoseThatFFmpegReads)
{
    expectObjectsOfFFmpeg(Clips::asf(2, 2), 4);
    expectObjectsOfFFmpeg(Clips::asf(0, 1), 1);
}

/// As a server sends it: without the zeros at the end of packets, in chunks that are split anywhere.
TEST(AsfFiles, StreamOfChunksDecodesToTheSamePicturesAndSound)
{
    QString const path = Clips::wmv();
    QByteArray const file = Clips::bytes(path);
    SimpleAsfParser const parser(file);
    qsizetype const begin = headerSize(file);
    qsizetype const packetSize = parser.maxPacketSize();
    QByteArray stream = ChunkBytes::header(file.left(begin));
    for (qsizetype at = begin; at + packetSize <= file.size(); at += packetSize) {
        QByteArray packet = file.mid(at, packetSize);
        while (packet.endsWith('\0'))
            packet.chop(1);
        stream += ChunkBytes::data(packet);
    }
    stream += ChunkBytes::chunk('C', AsfBytes::u32(0)) + ChunkBytes::data("next");

    QByteArray received;
    MmsChunkProcessor processor;
    processor.setPacketSize(static_cast<int>(packetSize));
    processor.setPadding(true);
    auto const append = [&received](QByteArray const& bytes) { received += bytes; };
    QObject::connect(&processor, &ChunkProcessor::onHeader, append);
    QObject::connect(&processor, &ChunkProcessor::onData, append);
    for (qsizetype at = 0, piece = 1; at < stream.size(); at += piece, piece = piece * 7 % 4099)
        processor.processData(stream.mid(at, piece));
    EXPECT_TRUE(received == file.left(received.size()));
    EXPECT_TRUE(frameSums(Clips::write("received.asf", received)) == frameSums(path));
}
