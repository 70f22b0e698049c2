#include "HttpFileDownloader.h"

#include "FakeHttpClientFactory.h"
#include "SignalRecorder.h"
#include "WebFixture.h"

namespace
{

class HttpFileDownloaderTest : public WebFixture
{
protected:
    FakeHttpClient& client() { return *clients.clients().last(); }

    FakeHttpClientFactory clients;
    HttpFileDownloader download{&clients, Uri("https://host/dir/file?x=1"), file("file")};
    SignalRecorder completes{&download, &HttpFileDownloader::complete};
    SignalRecorder progresses{&download, &HttpFileDownloader::progressChanged};
    SignalRecorder cancels{&download, &HttpFileDownloader::cancelled};
    SignalRecorder errors{&download, &HttpFileDownloader::error};
};

} // namespace

TEST_F(HttpFileDownloaderTest, TheFileTakesItsPlaceWhenItIsWhole)
{
    write(file("file"), "old");
    download.start();
    EXPECT_EQ(client().host() + client().sent().last().header.path(), "host/dir/file?x=1");
    HttpResponseHeader moved(302);
    moved.addValue("Location", "other");
    client().respond(moved);
    client().finish();
    EXPECT_EQ(client().sent().last().header.path(), "/dir/other");
    HttpResponseHeader ok(200);
    ok.setContentLength(6);
    client().respond(ok);
    client().receive("new");
    EXPECT_EQ(download.bytesDone() * 10 + download.bytesTotal(), 36);
    EXPECT_EQ(read(file("file")), "old");
    client().receive("est");
    client().finish();
    ASSERT_TRUE(completes.wait());
    EXPECT_EQ(read(file("file")), "newest");
    EXPECT_EQ(progresses.count(), 2);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(HttpFileDownloaderTest, WhatFailsLeavesTheOldFile)
{
    write(file("file"), "old");
    HttpResponseHeader elsewhere(302);
    elsewhere.addValue("Location", "file:///etc/passwd");
    HttpResponseHeader unsafe(302);
    unsafe.addValue("Location", "http://host/");
    for (HttpResponseHeader const& header : {elsewhere, unsafe, HttpResponseHeader(404, "Not Found")}) {
        int const before = errors.count();
        download.start();
        client().respond(header);
        client().receive("text");
        client().finish();
        EXPECT_EQ(errors.count(), before + 1) << header.statusCode();
    }
    EXPECT_EQ(download.errorString(), "The server answered 404 Not Found.");
    download.start();
    client().respond(HttpResponseHeader(200));
    client().receive("ne");
    client().finish(HttpClient::UnexpectedClose);
    EXPECT_EQ(errors.count(), 4);
    download.start();
    client().respond(HttpResponseHeader(200));
    client().receive("ne");
    download.cancel();
    EXPECT_EQ(cancels.count() * 10 + completes.count(), 10);
    EXPECT_EQ(read(file("file")), "old");
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(clients.clients().isEmpty());
}
