#include "WebCache.h"

#include "HttpDate.h"
#include "SignalRecorder.h"
#include "ThreadedMemoQueue.h"
#include "WebCacheInfo.h"
#include "WebFixture.h"

#include <gmock/gmock.h>

namespace
{

QString refuseBad(QByteArray const& content)
{
    return content.startsWith("bad") ? QStringLiteral("it is bad") : QString();
}

class WebCacheTest : public WebFixture
{
protected:
    WebCacheTest() { restart(); }

    void restart()
    {
        for (std::unique_ptr<SignalRecorder>* const recorder : {&availables, &updates, &unavailables, &refusals})
            recorder->reset();
        cache = std::make_unique<WebCache>(&downloader, &chance, &queue, &clock, file("cache"));
        availables = std::make_unique<SignalRecorder>(cache.get(), &WebCache::available);
        updates = std::make_unique<SignalRecorder>(cache.get(), &WebCache::updated);
        unavailables = std::make_unique<SignalRecorder>(cache.get(), &WebCache::unavailable);
        refusals = std::make_unique<SignalRecorder>(cache.get(), &WebCache::refused);
    }

    /// Watches a page, and has the server give it the content.
    void fetch(Uri const& address, QByteArray const& content, QByteArray const& header = {})
    {
        int const before = updates->count();
        cache->watch(address);
        answer("200 OK", header, content);
        ASSERT_TRUE(updates->wait(before + 1));
    }

    void writeInfo(QByteArray const& bytes) { write(WebCacheDirectory(file("cache")).infoFilePath(page), bytes); }
    int downloadCount() const { return log.count("Downloading http"); }

    Uri const page = uri("page");
    std::unique_ptr<WebCache> cache;
    std::unique_ptr<SignalRecorder> availables, updates, unavailables, refusals;
};

} // namespace

TEST_F(WebCacheTest, FetchesAnewAsTheServerAllowsWithinLimits)
{
    fetch(page, "one", "Last-Modified: Sun, 06 Nov 1994 08:49:37 GMT\r\nCache-Control: max-age=60\r\n");
    EXPECT_EQ(updates->last().at(1), true);
    EXPECT_EQ(availables->count(), 1);
    EXPECT_EQ(cache->content(page), "one");
    EXPECT_EQ(cache->contentLength(page), 3);
    EXPECT_EQ(HttpDate::toString(cache->lastUpdated(page)), "Sun, 06 Nov 1994 08:49:37 GMT");

    advance(WebCache::MinRefreshMs - 1);
    EXPECT_EQ(downloadCount(), 1);
    advance(1);
    EXPECT_THAT(answer("200 OK", "Cache-Control: max-age=604800\r\n", "one"),
                testing::Contains("If-Modified-Since: Sun, 06 Nov 1994 08:49:37 GMT"));
    ASSERT_TRUE(updates->wait(2));
    EXPECT_EQ(updates->last().at(1), false);

    advance(WebCache::MaxRefreshMs - 1);
    EXPECT_EQ(downloadCount(), 2);
    advance(1);
    answer("304 Not Modified", "Cache-Control: max-age=3600\r\n");
    ASSERT_TRUE(processEventsUntil([&] { return log.contains("In 3600000ms, will refresh"); }));
    EXPECT_EQ(updates->count(), 2);
}

TEST_F(WebCacheTest, ACopyOutlastsTheProgramAndABrokenInfo)
{
    fetch(page, "one", "Cache-Control: max-age=3600\r\n");
    QByteArray const good = read(WebCacheDirectory(file("cache")).infoFilePath(page));
    struct Case {
        QByteArray info;
        bool isAvailable;
        QString log;
    };
    auto const with = [](qint64 expiresAt, QString const& address) {
        return WebCacheInfo{{}, expiresAt, address}.toXml();
    };
    qint64 const nextYear = QDateTime::currentSecsSinceEpoch() + 366 * 86400;
    Case const cases[] = {
        {good, true, "will refresh"},
        {good.first(good.size() / 2), true, "  In 0ms, will refresh"},
        {"", true, "  In 0ms, will refresh"},
        {with(nextYear, page.toString()), true, "  In 86400000ms, will refresh"},
        {with(nextYear, "http://elsewhere/"), false, "  Scheduling immediate download."},
    };
    for (Case const& c : cases) {
        writeInfo(c.info);
        int const downloads = downloadCount();
        int const lines = log.count(c.log);
        restart();
        EXPECT_EQ(cache->isAvailable(page), c.isAvailable) << qPrintable(c.log);
        EXPECT_EQ(cache->content(page), c.isAvailable ? "one" : "") << qPrintable(c.log);
        EXPECT_EQ(downloadCount(), downloads);
        cache->watch(page);
        EXPECT_TRUE(processEventsUntil([&] { return log.count(c.log) > lines; })) << qPrintable(c.log);
        EXPECT_EQ(availables->count(), c.isAvailable ? 1 : 0) << qPrintable(c.log);
    }
}

TEST_F(WebCacheTest, NoFailureCostsTheCopy)
{
    fetch(page, "good");
    cache->watch(page, {&refuseBad});
    cache->watch(page); // Somebody else, who has nothing against it.
    cache->update(page);
    EXPECT_FALSE(answer("200 OK", {}, "bad page").join().contains("If-Modified-Since"));
    ASSERT_TRUE(refusals->wait());
    EXPECT_EQ(refusals->last().at(1), "it is bad");
    cache->update(page); // Again, and so not at once.
    processPendingEvents();
    EXPECT_EQ(downloadCount(), 2);
    advance(1000);
    answer("500 Error");
    EXPECT_TRUE(processEventsUntil([&] { return log.contains("Error 'HTTP error 500' watching"); }));
    EXPECT_EQ(cache->content(page), "good");
    EXPECT_TRUE(unavailables->isEmpty());
    EXPECT_EQ(QDir(file("cache")).entryList(QDir::Files).size(), 2);
}

TEST_F(WebCacheTest, WhatTheDiskDoesNotTakeIsHeldUntilItDoes)
{
    write(file("cache"), "in the way of the directory");
    fetch(page, "one", "Last-Modified: Sun, 06 Nov 1994 08:49:37 GMT\r\n");
    EXPECT_EQ(availables->count() * 10 + unavailables->count(), 10);
    EXPECT_EQ(cache->content(page), "one");
    EXPECT_EQ(cache->contentLength(page), 3);
    EXPECT_EQ(HttpDate::toString(cache->lastUpdated(page)), "Sun, 06 Nov 1994 08:49:37 GMT");
    cache->watch(page, {&refuseBad});
    cache->update(page);
    answer("200 OK", {}, "bad page");
    ASSERT_TRUE(refusals->wait());
    EXPECT_EQ(cache->content(page), "one");
    fetch(uri("long"), QByteArray(WebCacheDirectory::maximumBytesHeld - 3, 'x'));
    cache->watch(uri("more"));
    answer("200 OK", {}, "more than may be held");
    ASSERT_TRUE(unavailables->wait());

    ASSERT_TRUE(QFile::remove(file("cache")));
    advance(WebCache::MinRefreshMs);
    EXPECT_FALSE(answer("200 OK", {}, "one").join().contains("If-Modified-Since"));
    ASSERT_TRUE(updates->wait(3));
    EXPECT_EQ(read(WebCacheDirectory(file("cache")).dataFilePath(page)), "one");
    EXPECT_EQ(cache->content(page), "one");
}

TEST_F(WebCacheTest, WhatIsNotHereIsTriedAgainSoonAndThenLessOften)
{
    cache->watch(page);
    for (int ms : {4375, 8750, 17500}) {
        int const failures = unavailables->count();
        server.answer("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\ncut");
        server.close();
        ASSERT_TRUE(unavailables->wait(failures + 1));
        int const downloads = downloadCount();
        advance(ms - 1);
        EXPECT_EQ(downloadCount(), downloads);
        advance(1);
    }
    answer("200 OK", {}, "at last");
    EXPECT_TRUE(updates->wait());
    cache->watch(Uri("mms://host/stream"));
    EXPECT_TRUE(processEventsUntil([&] { return log.contains("'Could not start download.'"); }));
}

TEST_F(WebCacheTest, FetchesNothingWhileStoppedOrIgnored)
{
    fetch(page, "one");
    fetch(uri("other"), "two");
    cache->ignore(QSet<Uri>{page});
    cache->stop();
    advance(WebCache::MaxRefreshMs);
    EXPECT_EQ(downloadCount(), 2);
    cache->start();
    advance(WebCache::StartupPeriodMs);
    EXPECT_EQ(answer("304 Not Modified").first(), "GET /other HTTP/1.1");
    EXPECT_EQ(downloadCount(), 3);
    EXPECT_TRUE(!cache->isWatched(page) && cache->isAvailable(page));
}

TEST_F(WebCacheTest, WhatIsIgnoredOnItsWayCostsNothing)
{
    fetch(page, "good");
    cache->watch(page, {&refuseBad});
    cache->update(page);
    server.takeRequest();
    cache->watch(uri("other"));
    ASSERT_TRUE(processEventsUntil([&] { return downloadCount() == 3; }));
    processPendingEvents();
    cache->ignore({page, uri("other")});
    server.send("HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\nbad page");
    ASSERT_TRUE(processEventsUntil([&] { return log.count("*** Finishing with") == 2; }));
    processPendingEvents();
    EXPECT_EQ(cache->content(page), "good") << "nobody has checked the other one";
    EXPECT_EQ(QDir(file("cache")).entryList(QDir::Files).size(), 2);
    EXPECT_EQ(log.count("Creating new request"), 2) << "the other one still waited";
    fetch(uri("other"), "two");
}

TEST_F(WebCacheTest, AnUpdateDuringADownloadFollowsIt)
{
    cache->watch(page);
    server.takeRequest();
    cache->update(page);
    processPendingEvents();
    server.send("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\none");
    answer("200 OK", {}, "two");
    ASSERT_TRUE(updates->wait(2));
    EXPECT_EQ(cache->content(page), "two");
}

TEST_F(WebCacheTest, AnUpdateThatFailsIsMadeUpForSoonWhateverTheServerThinks)
{
    fetch(page, "one", "Last-Modified: Sun, 01 Nov 2026 00:00:00 GMT\r\n");
    cache->update(page);
    answer("500 Oh");
    ASSERT_TRUE(processEventsUntil([&] { return log.contains("HTTP error 500"); }));
    advance(WebCache::FirstRetryMs);
    EXPECT_FALSE(answer("200 OK", {}, "two").join('\n').contains("If-Modified-Since"));
    ASSERT_TRUE(updates->wait(2));
    EXPECT_EQ(cache->content(page), "two");
}

TEST_F(WebCacheTest, WhatWasNotUsedForLongestGoes)
{
    auto const isOld = [&](Uri const& uri, int days) {
        WebCacheDirectory const files(file("cache"));
        for (QString const& path : {files.dataFilePath(uri), files.infoFilePath(uri)}) {
            QFile used(path);
            EXPECT_TRUE(used.open(QIODevice::ReadWrite));
            used.setFileTime(QDateTime::currentDateTime().addDays(-days), QFileDevice::FileModificationTime);
        }
    };
    for (int i = 0; i < 4; ++i) {
        fetch(uri(QString::number(i)), QByteArray(30000, 'x'));
        isOld(uri(QString::number(i)), 10 + i % 2 * 10 + i);
    }
    cache->setLimit(100000);
    fetch(page, QByteArray(1000, 'x'));
    QStringList left;
    for (QString const name : {"0", "1", "2", "3", "page"})
        if (cache->isAvailable(uri(name)))
            left.append(name);
    EXPECT_EQ(left, QStringList({"0", "2", "page"}));
}

TEST_F(WebCacheTest, MayBeDestroyedWhileItsThreadWorks)
{
    ThreadedMemoQueue thread;
    thread.start();
    thread.waitUntilReady();
    auto fetcher = std::make_unique<PipelinedFileDownloader>(&thread, &clock);
    for (int round = 0; round < 20; ++round) {
        WebCache other(fetcher.get(), &chance, &thread, &clock, file(QString::number(round)));
        SignalRecorder const fetched(&other, &WebCache::updated);
        for (int i = 0; i < 3; ++i)
            other.watch(uri(QString("%1/%2").arg(round).arg(i)));
        other.start();
        do // What an earlier one has asked for may come first.
            answer("200 OK", {}, "one");
        while (round % 2 == 0 && fetched.isEmpty());
        other.ignore({uri(QString("%1/1").arg(round)), uri(QString("%1/2").arg(round))}); // Some wait for their turn.
    }
    fetcher.reset();
    thread.exit();
    thread.wait();
}
