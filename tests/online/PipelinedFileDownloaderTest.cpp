#include "HttpDate.h"
#include "SignalRecorder.h"
#include "ThreadedMemoQueue.h"
#include "WebFixture.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>

namespace
{

class PipelinedFileDownloaderTest : public WebFixture
{
protected:
    SignalRecorder errors{&downloader, &PipelinedFileDownloader::error};
    SignalRecorder downloads{&downloader, &PipelinedFileDownloader::downloaded};
    SignalRecorder unmodified{&downloader, &PipelinedFileDownloader::unmodified};
};

} // namespace

TEST_F(PipelinedFileDownloaderTest, FetchesOneAfterTheOtherAndUrgentOnesFirst)
{
    QDateTime const date = HttpDate::parse("Sun, 06 Nov 1994 08:49:37 GMT");
    EXPECT_TRUE(downloader.downloadFile(uri("a"), file("a"), {}));
    EXPECT_TRUE(downloader.downloadFile(uri("b"), file("b"), date));
    EXPECT_TRUE(downloader.downloadFile(uri("c"), file("c"), {}, true));
    EXPECT_FALSE(downloader.downloadFile(Uri("file:///etc/passwd"), file("d"), {}));
    EXPECT_EQ(
        answer("200 OK", "Last-Modified: Sun, 06 Nov 1994 08:49:37 GMT\r\nCache-Control: public, max-age=60\r\n", "1")
            .first(),
        "GET /a HTTP/1.1");
    ASSERT_TRUE(downloads.wait());
    EXPECT_EQ(downloads.first(), (QVariantList{QVariant::fromValue(uri("a")), file("a"), date, 60}));
    EXPECT_EQ(answer("200 OK", "Cache-Control: max-age=99999999999\r\n").first(), "GET /c HTTP/1.1");
    ASSERT_TRUE(downloads.wait(2));
    EXPECT_EQ(downloads.last().at(3).toInt(), std::numeric_limits<int>::max());
    EXPECT_THAT(answer("304 Not Modified"), testing::Contains("If-Modified-Since: Sun, 06 Nov 1994 08:49:37 GMT"));
    ASSERT_TRUE(unmodified.wait());
    EXPECT_EQ(read(file("a")) + read(file("b")) + read(file("c")), "1no file");
    advance(400000);
    EXPECT_TRUE(log.contains("...inactive - reaping."));
}

TEST_F(PipelinedFileDownloaderTest, TellsEachFailureAndGoesOn)
{
    int failures = 0;
    auto const fails = [&](char const* beginning, std::function<void()> const& happen, QString const& destination) {
        EXPECT_TRUE(downloader.downloadFile(uri("x"), destination, {}));
        happen();
        ASSERT_TRUE(errors.wait(++failures)) << beginning;
        EXPECT_TRUE(errors.last().at(1).toString().startsWith(beginning))
            << qPrintable(errors.last().at(1).toString());
        EXPECT_FALSE(QFile::exists(destination)) << beginning;
    };
    fails(
        "HTTP error 404", [&] { answer("404 Not Found", {}, "text"); }, file("a"));
    fails(
        "HTTP error 302", [&] { answer("302 Found", "Location: file:///etc/passwd\r\n"); }, file("a"));
    fails(
        "Network error ", [&] { server.answer("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\ncut"), server.close(); },
        file("a"));
    auto const silence = [&] {
        server.answer("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nslow");
        EXPECT_TRUE(processEventsUntil([&] { return read(file("a")) == "slow"; }));
        advance(PipelinedFileDownloader::SilenceMs - 1);
        EXPECT_EQ(errors.count(), 3);
        advance(1);
    };
    fails("Network error ", silence, file("a"));
    EXPECT_TRUE(log.contains("Download timed out for "));

    EXPECT_TRUE(downloader.downloadFile(uri("x"), file("a"), {}));
    answer("200 OK", {}, "whole");
    EXPECT_TRUE(downloads.wait());
    EXPECT_EQ(read(file("a")), "whole");
}

TEST_F(PipelinedFileDownloaderTest, AFullDiskCostsNothingOfWhatComes)
{
    SignalRecorder held(&downloader, &PipelinedFileDownloader::downloadedToMemory);
    QByteArray const body = QByteArray(6000, 'a') + QByteArray(6000, 'b');
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    rlimit const full{8192, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_TRUE(downloader.downloadFile(uri("x"), file("a"), {}));
    server.answer("HTTP/1.1 200 OK\r\nContent-Length: 12000\r\n\r\n" + body.first(6000));
    EXPECT_TRUE(processEventsUntil([&] { return QFileInfo(file("a")).size() == 6000; }));
    server.send(body.last(6000));
    EXPECT_TRUE(held.wait());
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_EQ(held.last().at(1).toByteArray(), body);
    EXPECT_FALSE(QFile::exists(file("a"))) << "what was begun is gone";

    EXPECT_TRUE(downloader.downloadFile(uri("x"), file("no/such/directory"), {}));
    answer("200 OK", {}, "whole");
    EXPECT_TRUE(held.wait(2));
    EXPECT_EQ(held.last().at(1).toByteArray(), "whole");
    EXPECT_TRUE(errors.isEmpty() && downloads.isEmpty());
}

TEST_F(PipelinedFileDownloaderTest, MayBeDestroyedWhileItsThreadDownloads)
{
    ThreadedMemoQueue thread;
    thread.start();
    thread.waitUntilReady();
    for (int round = 0; round < 20; ++round) {
        PipelinedFileDownloader other(&thread, &clock);
        SignalRecorder ends(&other, &PipelinedFileDownloader::downloaded);
        for (int i = 0; i < 3; ++i)
            other.downloadFile(uri(QString::number(i)), file(QString::number(i)), {});
        do // What an earlier one has asked for may come first.
            answer("200 OK", {}, QByteArray(100000, 'x'));
        while (round % 2 == 0 && ends.isEmpty());
    }
    thread.exit();
    thread.wait();
}
