#include "HttpFileDataSource.h"

#include "Clips.h"
#include "LogCapture.h"
#include "LoopbackHttpServer.h"
#include "SourceTestSupport.h"

#include <gmock/gmock.h>

namespace
{
using Manner = LoopbackHttpServer::Manner;
}

TEST(HttpFileDataSource, PlaysWhatItDownloads)
{
    struct Case {
        Manner manner;
        QString clip;
    };
    Case const cases[] = {{Manner::Whole, Clips::h264Aac()},
                          {Manner::Slow, Clips::h264AacIndexLast()},
                          {Manner::Chunked, Clips::wmv()}};
    for (Case const& c : cases) {
        LogCapture const capture;
        QByteArray const film = Clips::bytes(c.clip);
        LoopbackHttpServer server(c.manner, film);
        HttpFileDataSource source(server.url());
        QSignalSpy const state(&source, &GLMovieDataSource::stateChanged);
        QSignalSpy const complete(&source, &HttpFileDataSource::downloadComplete);
        ASSERT_TRUE(openSource(source)) << qPrintable(c.clip);
        Reader reader(source);
        ReadResult const result = reader.result();
        EXPECT_EQ(result.end, AVERROR_EOF);
        EXPECT_EQ(result.videoFrames, 50) << qPrintable(c.clip);
        EXPECT_TRUE(waitUntil([&] { return complete.size() == 1; }));
        EXPECT_EQ(source.bytesRead(), static_cast<quint64>(film.size()));
        EXPECT_EQ(state.first().at(1).toString(), "Acquiring Channel...\nPlease wait");
        EXPECT_TRUE(server.request().contains("User-Agent: OmbravisionTests\r\n"));
        EXPECT_TRUE(capture.contains("Download completed for " + source.uri()));
    }
}

TEST(HttpFileDataSource, FailuresTellTheViewer)
{
    struct Case {
        Manner manner;
        QByteArray body;
        char const* logged;
        char const* said = "";
    };
    QByteArray const film = Clips::bytes(Clips::h264AacIndexLast());
    Case const cases[] = {
        {Manner::NotFound, "Nothing is here", "Network Error ", "Resource not available"},
        {Manner::Stalled, film, "Network Error ", "Stream unavailable"},
        {Manner::CutOff, film, "Network Error ", "Stream unavailable"},
        {Manner::Whole, {}, "Failed to determine file format for ", "The server sends nothing that can be played"},
        {Manner::Slow, QByteArray(30000, '\xA7'), "Failed to determine file format for "},
        {Manner::Whole, "1\n00:00:00,000 --> 00:00:01,000\nHello\n\n",
         "No video or audio streams found. Cannot play "},
    };
    for (Case const& c : cases) {
        LogCapture const capture;
        LoopbackHttpServer server(c.manner, c.body);
        HttpFileDataSource source(server.url());
        if (c.manner == Manner::Stalled)
            source.setTransferTimeout(100);
        QSignalSpy const error(&source, &GLMovieDataSource::error);
        EXPECT_FALSE(openSource(source)) << c.manner;
        QCoreApplication::processEvents();
        ASSERT_EQ(error.size(), 1) << c.manner;
        EXPECT_TRUE(error.first().at(1).toString().startsWith("Failed to open ")) << c.manner;
        EXPECT_TRUE(error.first().at(1).toString().endsWith(c.said)) << c.manner;
        EXPECT_TRUE(capture.contains(c.logged)) << c.manner << c.logged;
    }
    HttpFileDataSource local("file://" + Clips::h264Aac());
    EXPECT_FALSE(openSource(local));
}

TEST(HttpFileDataSource, ADownloadCutOffWhilePlayingIsALoss)
{
    LoopbackHttpServer server(Manner::CutOff, Clips::bytes(Clips::videoOnly()));
    HttpFileDataSource source(server.url());
    ASSERT_TRUE(openSource(source));
    QSignalSpy const error(&source, &GLMovieDataSource::error);
    ReadResult const result = Reader(source).result();
    EXPECT_GT(result.videoFrames, 10);
    EXPECT_NE(result.end, AVERROR_EOF);
    ASSERT_TRUE(waitUntil([&] { return !error.isEmpty(); }));
    EXPECT_EQ(error.last().at(1).toString(), "Stream unavailable");
}

TEST(HttpFileDataSource, WhatHasNeitherALengthNorAnEndOrIsNotThereYetIsLeftToAnother)
{
    for (Manner const manner : {Manner::HeldOpen, Manner::CutChunk, Manner::Unavailable, Manner::Silent}) {
        LoopbackHttpServer server(manner, Clips::bytes(Clips::videoOnly()));
        HttpFileDataSource source(server.url("radio.mp3"));
        if (manner == Manner::Silent)
            source.setTransferTimeout(100);
        QSignalSpy const found(&source, &HttpFileDataSource::streamFound);
        QSignalSpy const error(&source, &GLMovieDataSource::error);
        std::unique_ptr<Reader> reader;
        QObject::connect(&source, &GLMovieDataSource::opened, [&] { reader = std::make_unique<Reader>(source); });
        source.open();
        EXPECT_TRUE(waitUntil([&] { return !found.isEmpty(); }));
        EXPECT_EQ(reader != nullptr, manner == Manner::CutChunk); // It may have been a file until then.
        EXPECT_TRUE(error.isEmpty());
    }
}

TEST(HttpFileDataSource, ClosesAtAnyMoment)
{
    QByteArray const film = Clips::bytes(Clips::h264AacIndexLast());
    for (Manner const manner : {Manner::Slow, Manner::Stalled, Manner::Silent, Manner::Whole}) {
        LoopbackHttpServer server(manner, film);
        for (int i = 0; i < 10; i += 3) {
            HttpFileDataSource source(server.url());
            source.open();
            quint64 const enough = static_cast<quint64>(manner == Manner::Silent ? 0 : film.size() / 20 * i);
            ASSERT_TRUE(waitUntil([&] { return source.bytesRead() >= enough; })) << manner;
            source.close();
            EXPECT_EQ(source.position(), 0);
        }
    }
}

TEST(HttpFileDataSource, ASeekWaitsForTheDownloadAndCanBeInterrupted)
{
    LoopbackHttpServer server(Manner::Stalled, Clips::bytes(Clips::wmv(12)));
    HttpFileDataSource source(server.url());
    ASSERT_TRUE(openSource(source));
    EXPECT_TRUE(source.isSeekable());
    std::atomic<int> result{1};
    std::unique_ptr<QThread> const seeker(
        QThread::create([&] { result = source.seekFrame(source.videoStream(), 11000, 0); }));
    seeker->start();
    EXPECT_TRUE(waitUntil([&] { return source.position() >= static_cast<qint64>(source.bytesRead()); }));
    EXPECT_EQ(result, 1);
    source.setInterrupted(true);
    EXPECT_TRUE(seeker->wait(10000));
    EXPECT_EQ(result, AVERROR_EXIT);
}
