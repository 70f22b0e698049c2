#pragma once

#include "EventLoop.h"
#include "HttpTestServer.h"
#include "QtHttpClient.h"

#include <QPointer>

#include <gtest/gtest.h>
#include <memory>

/// A client set up for a server that the test plays, and a record of what the client tells.
class QtHttpClientTest : public testing::Test
{
protected:
    QtHttpClientTest() { follow(*client); }

    /// Points a client at the server and records what it tells.
    void follow(QtHttpClient& followed)
    {
        followed.setHost("127.0.0.1", server.port());
        QObject::connect(&followed, &HttpClient::responseHeaderReceived, &followed,
                         [this](HttpClient*, HttpResponseHeader const& header) { headers.append(header); });
        QObject::connect(&followed, &HttpClient::readyRead, &followed,
                         [this](HttpClient* reader, HttpResponseHeader const& header) {
                             EXPECT_TRUE(headers.contains(header));
                             if (isReading)
                                 body += reader->readAll();
                         });
        QObject::connect(&followed, &HttpClient::done, &followed, [this](HttpClient* done, bool failed) {
            EXPECT_EQ(failed, done->error() != HttpClient::NoError);
            errors.append(done->error());
        });
    }

    bool untilDone(int count = 1)
    {
        return processEventsUntil([&] { return errors.size() >= count; });
    }

    HttpClient::Error error() const { return errors.isEmpty() ? HttpClient::NoError : errors.constLast(); }

    HttpTestServer server;
    std::unique_ptr<QtHttpClient> client = std::make_unique<QtHttpClient>();
    QList<HttpResponseHeader> headers;
    QByteArray body;
    QList<HttpClient::Error> errors; ///< One for each done().
    bool isReading = true;
};

/// What a server sends for a whole, short response.
inline QByteArray const shortResponse = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok";
