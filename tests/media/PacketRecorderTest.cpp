#include "PacketRecorder.h"

#include "Clips.h"
#include "FileDataSource.h"
#include "LogCapture.h"
#include "MatroskaFile.h"
#include "RecordingTimeline.h"
#include "SourceTestSupport.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>
#include <sys/resource.h>

namespace
{

QStringList recordings(QString const& directory, QString const& suffix)
{
    QStringList files;
    for (QFileInfo const& file :
         QDir(Clips::scratch(directory)).entryInfoList({"*." + suffix}, QDir::Files, QDir::Name))
        files << file.filePath();
    return files;
}

/// Reads a source to its end while it records.
ReadResult record(FileDataSource& source, QString const& name, bool dump = false)
{
    source.startRecording(Clips::scratch(name), dump);
    return readToEnd(source);
}

/// What a recording holds, as another program would read it.
struct Film {
    explicit Film(QString const& path) : source(path)
    {
        if (openSource(source))
            result = readToEnd(source);
    }
    FileDataSource source;
    ReadResult result;
};

/// Files of this process end at so many bytes.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &_before);
        rlimit const limit{bytes, _before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &_before); }

private:
    rlimit _before{};
};

} // namespace

TEST(PacketRecorder, ARecordingIsTheFilmFromTheNextKeyFrameOn)
{
    for (QString const& clip :
         {Clips::h264Aac(), Clips::wmv(), Clips::videoOnly(), Clips::audioOnly(), Clips::withCover("m4a")}) {
        QDir(Clips::scratch("films")).removeRecursively();
        FileDataSource source(clip);
        ASSERT_TRUE(openSource(source));
        AVPacket* packet = av_packet_alloc();
        for (bool joined = false; source.videoStream() && !joined; av_packet_unref(packet)) {
            ASSERT_EQ(source.readFrame(packet), 0); // The key frame goes by before the recording begins.
            joined = packet->stream_index == source.videoStream()->index;
        }
        av_packet_free(&packet);
        source.startRecording(Clips::scratch("films/film"));
        ReadResult const first = readToEnd(source);
        ASSERT_GE(source.seekFrame(source.videoStream() ? source.videoStream() : source.audioStream(), 0,
                                   AVSEEK_FLAG_BACKWARD),
                  0);
        ReadResult const second = readToEnd(source); // The film begins anew.
        source.close();
        ASSERT_TRUE(waitUntil([] { return recordings("films", "mkv").size() == 1; }));
        QString const path = recordings("films", "mkv").first();
        ASSERT_TRUE(waitUntil([&] { return Clips::bytes(path).contains("\x1C\x53\xBB\x6B"); })) << "no index";
        Film film(path);
        EXPECT_NEAR(film.source.startTime(), 0.0, 0.05) << qPrintable(clip);
        bool const isCover = clip.contains("cover"); // Which is none of the film.
        int const pictures = isCover ? 0 : second.videoFrames;
        EXPECT_GE(film.result.videoFrames, pictures) << qPrintable(clip);
        EXPECT_LE(film.result.videoFrames, isCover ? 0 : first.videoFrames + second.videoFrames) << qPrintable(clip);
        EXPECT_EQ(film.result.audioFrames > 40, source.uri() != Clips::videoOnly()) << qPrintable(clip);
        EXPECT_EQ(film.result.end, AVERROR_EOF);
    }
}

TEST(PacketRecorder, TwoOfOneNameAndSecondAreTwoFilesAndTheDumpHoldsThePackets)
{
    quint64 bytes = 0;
    for (int i = 0; i < 2; ++i) {
        FileDataSource source(Clips::h264Aac());
        ASSERT_TRUE(openSource(source));
        bytes = record(source, "twice/film", true).bytes;
        EXPECT_TRUE(source.isRecording());
        source.stopRecording();
    }
    EXPECT_TRUE(waitUntil([&] {
        QStringList const dumps = recordings("twice", "dump");
        return dumps.size() == 2 && std::ranges::all_of(dumps, [&](QString const& path) {
                   return QFileInfo(path).size() == static_cast<qint64>(bytes);
               });
    }));
    EXPECT_EQ(recordings("twice", "mkv").size(), 2);
}

TEST(PacketRecorder, ACrashLeavesAFilm)
{
    FileDataSource source(Clips::h264Aac(8));
    ASSERT_TRUE(openSource(source));
    record(source, "crash/film");
    EXPECT_TRUE(waitUntil([] { // The film is whole but for its last second, while the recording goes on.
        QStringList const files = recordings("crash", "mkv");
        if (files.size() != 1)
            return false;
        Film const film(Clips::write("crashed.mkv", Clips::bytes(files.first()))); // As it stands now.
        return film.result.videoFrames >= 100 && film.result.audioFrames >= 170;
    }));
}

TEST(PacketRecorder, WhatCannotBeWrittenIsToldAndTheFilmGoesOn)
{
    FileDataSource source(Clips::h264Aac(8));
    ASSERT_TRUE(openSource(source));
    QSignalSpy const failed(&source, &GLMovieDataSource::recordingFailed);
    source.startRecording("/proc/nowhere/film");
    ASSERT_TRUE(waitUntil([&] { return failed.size() == 1; }));
    EXPECT_FALSE(source.isRecording());
    FileSizeLimit const limit(20000);
    EXPECT_EQ(record(source, "full/film").videoFrames, 200);
    ASSERT_TRUE(waitUntil([&] { return failed.size() == 2; }));
    EXPECT_EQ(failed.last().at(1).toString(), "File too large");
    EXPECT_FALSE(source.isRecording());
}

TEST(PacketRecorder, AnEndThatCannotBeWrittenIsToldToo)
{
    FileDataSource source(Clips::h264Aac());
    ASSERT_TRUE(openSource(source));
    QSignalSpy const failed(&source, &GLMovieDataSource::recordingFailed);
    source.startRecording(Clips::scratch("end/film"));
    readToEnd(source);
    auto const bytes = [](QString const& path) { return QFileInfo(path).size(); };
    EXPECT_TRUE(waitUntil([&] { return std::ranges::any_of(recordings("end", "mkv"), bytes); }));
    FileSizeLimit const limit(2000); // The last second goes to the disk at the end.
    source.stopRecording();
    source.startRecording("/proc/nowhere/film"); // The one before has not been forgotten.
    EXPECT_TRUE(waitUntil([&] { return failed.size() == 2; }));
}

TEST(MatroskaFile, WritesAllDownToTheLastByte)
{
    QFile file(Clips::scratch("bytes"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    for (qint64 const size : {0, 1, 3})
        EXPECT_TRUE(MatroskaFile::writeAll(file, "abc", size));
    EXPECT_EQ(Clips::bytes(file.fileName()), "aabc");
}

TEST(RecordingTimeline, PicturesThatAreShownInAnotherOrderKeepTheirTimes)
{
    auto const parameters = std::make_shared<AVCodecParameters>();
    parameters->codec_type = AVMEDIA_TYPE_VIDEO;
    RecordingTimeline timeline({{.timeBase = {1, 1000}, .parameters = parameters}});
    struct {
        std::int64_t dts, pts, shown; ///< In ms.
    } const pictures[] = {{4920, 5000, 0},  {4960, 5160, 160},           {5000, 5080, 80},
                          {5040, 5040, 40}, {AV_NOPTS_VALUE, 5200, 200}, {5240, AV_NOPTS_VALUE, 240}};
    std::int64_t last = 0;
    AVPacket* packet = av_packet_alloc();
    for (auto const& [dts, pts, shown] : pictures) {
        packet->dts = dts;
        packet->pts = pts;
        packet->duration = 40;
        packet->flags = shown == 0 ? AV_PKT_FLAG_KEY : 0;
        EXPECT_TRUE(timeline.place(*packet, 0));
        EXPECT_EQ(packet->pts, shown * 1000);
        EXPECT_GE(packet->dts, last);
        EXPECT_LE(packet->dts, packet->pts);
        last = packet->dts;
    }
    av_packet_free(&packet);
}
