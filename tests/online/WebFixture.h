#pragma once

#include "EventLoop.h"
#include "FakeTickCounter.h"
#include "FixedChance.h"
#include "HttpTestServer.h"
#include "LogCapture.h"
#include "PipelinedFileDownloader.h"
#include "QtTimerFactory.h"
#include "SortedMemoQueue.h"
#include "Uri.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A downloader on a memo queue of this thread, of which the clock stands still until it is moved, and a web server.
class WebFixture : public testing::Test
{
protected:
    Uri uri(QString const& path) const { return Uri(QString("http://127.0.0.1:%1/%2").arg(server.port()).arg(path)); }
    QString file(QString const& name) const { return directory.filePath(name); }

    /// Moves the clock, and runs the memos that are due then.
    void advance(qint64 ms)
    {
        clock.advance(ms);
        queue.onTimeout(nullptr);
        processPendingEvents();
    }

    /// Takes the next request and answers it; returns the request line and the header lines.
    QList<QByteArray> answer(QByteArray const& status, QByteArray const& header = {}, QByteArray const& body = {})
    {
        HttpTestServer::Request const request = server.takeRequest();
        server.send("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
                    header + "\r\n" + body);
        return request.lines;
    }

    static QByteArray read(QString const& path)
    {
        QFile input(path);
        return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray("no file");
    }

    static void write(QString const& path, QByteArray const& bytes)
    {
        QFile output(path);
        ASSERT_TRUE(output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size());
    }

    LogCapture log;
    QTemporaryDir directory;
    FakeTickCounter clock;
    FixedChance chance;
    QtTimerFactory timers;
    SortedMemoQueue queue{&clock, &timers};
    HttpTestServer server;
    PipelinedFileDownloader downloader{&queue, &clock};
};
