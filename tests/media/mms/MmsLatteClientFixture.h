#pragma once

#include "FakeHttpClientFactory.h"
#include "FakeMmsClient.h"
#include "FakeTcpSocketFactory.h"
#include "FakeTimerFactory.h"
#include "FixedChance.h"
#include "LogCapture.h"
#include "MmsLatteClient.h"
#include "MmsLatteClientPrivate.h"
#include "QtDateTimeBuilder.h"

#include <QCoreApplication>

#include <memory>

/// A client whose clock, checks and transports are the test's.
class MmsLatteClientTest : public testing::Test
{
protected:
    static constexpr char const* mms = "mms://127.0.0.1/live";

    ~MmsLatteClientTest() override
    {
        client.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(timers.timers().isEmpty());
        EXPECT_TRUE(http.clients().isEmpty());
        EXPECT_TRUE(transports.isEmpty());
    }

    void start(QString const& address)
    {
        client.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        client = std::make_unique<MmsLatteClient>("{guid}", Uri(address), &timers, &sockets, &http, &dates, nullptr);
        auto* const inner = client->findChild<MmsLatteClientPrivate*>();
        inner->setClock(clock);
        inner->setReconnectionPolicy(ReconnectionPolicy(clock, chance));
        inner->setMmsClientFactories(std::make_unique<FakeMmsClientFactory>(MmsClient::MmsHttp, transports),
                                     std::make_unique<FakeMmsClientFactory>(MmsClient::MmsTcp, transports));
        auto* const c = client.get();
        using L = LatteClient;
        QObject::connect(c, &L::readyRead, c, [this] { ++readyReads; });
        QObject::connect(c, &L::playing, c, [this] { ++plays; });
        QObject::connect(c, &L::error, c, [this](auto*, auto code) { events << QString("error %1").arg(code); });
        QObject::connect(c, &L::descriptorChanged, c,
                         [this](auto*, qint64 offset) { events << QString("descriptor %1").arg(offset); });
        QObject::connect(c, &L::progressChanged, c, [this](auto*, QString const& text) { events << text; });
        client->startBuffering();
    }

    /// The check that is under way.
    FakeHttpClient& check()
    {
        EXPECT_EQ(http.clients().size(), 1);
        return *http.clients().constLast();
    }
    QString checked() { return check().host() + check().sent().constLast().header.path(); }
    void answer(QString const& contentType, QByteArray const& body = {})
    {
        HttpResponseHeader header(200);
        header.setContentType(contentType);
        FakeHttpClient& checking = check();
        checking.respond(header);
        if (!http.clients().contains(&checking))
            return; // The header was enough.
        checking.receive(body);
        checking.finish();
    }
    void answerStream() { answer("application/x-mms-framed"); }
    void answerPlaylist(QStringList const& addresses)
    {
        QString body = "<asx version=\"3.0\">";
        for (QString const& address : addresses)
            body += "<entry><ref href=\"" + address + "\"/></entry>";
        answer("video/x-ms-asf", (body + "</asx>").toUtf8());
    }
    void failCheck() { check().respond(HttpResponseHeader(404)); }

    /// The transport that exists, null when there is none or more than one.
    FakeMmsClient* transport()
    {
        EXPECT_EQ(transports.size(), 1);
        return transports.size() == 1 ? static_cast<FakeMmsClient*>(transports.constFirst().data()) : nullptr;
    }
    /// Where it has connected to last, with what silence it allows.
    QString connection()
    {
        FakeMmsClient* const t = transport();
        if (!t || t->connections.isEmpty())
            return {};
        return QString("%1 %2 %3")
            .arg(t->protocol() == MmsClient::MmsHttp ? "http" : "tcp", t->connections.constLast().url)
            .arg(t->connections.constLast().timeout);
    }
    qsizetype connectionCount() { return transport() ? transport()->connections.size() : 0; }
    void play() // At 800 kbit/s, in packets of 1000 bytes.
    {
        transport()->begin("header", 800000, 1000);
        deliver(500000);
    }
    /// Plays a stream that is the only one, or the first of two.
    void startPlaying(bool hasAlternative = false)
    {
        start(hasAlternative ? "http://127.0.0.1/list" : mms);
        if (hasAlternative)
            answerPlaylist({mms, "mms://127.0.0.1/b"});
        answerStream();
        play();
        takeEvents();
    }
    /// Plays for so long that a loss is made good at once.
    void playOn()
    {
        play();
        timers.advance(ReconnectionPolicy::lastingPlay);
    }
    void end(MmsClient::MmsClientError error, int milliseconds)
    {
        transport()->end(error);
        timers.advance(milliseconds);
    }
    qint64 read(qint64 size) { return client->read(QByteArray(size, '\0').data(), size); }
    void deliver(int bytes)
    {
        for (int i = 0; i < bytes && !transports.isEmpty(); i += 1000)
            transport()->deliver(QByteArray(1000, 'x'));
    }
    QStringList takeEvents() { return std::exchange(events, {}); }

    FakeTickCounter clock;
    FixedChance chance; // Waits are as long as they say.
    FakeTimerFactory timers{clock};
    FakeHttpClientFactory http;
    FakeTcpSocketFactory sockets;
    QtDateTimeBuilder dates;
    FakeMmsClientFactory::Clients transports;
    std::unique_ptr<MmsLatteClient> client;
    QStringList events;
    int readyReads = 0;
    int plays = 0;
};
