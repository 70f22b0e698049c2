#include "MmsLatteClientFactory.h"
#include "MmsLatteClientFixture.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

TEST_F(MmsLatteClientTest, AStreamGoesFromTheCheckToPlaying)
{
    LogCapture const capture;
    start("http://127.0.0.1/live?a=b");
    EXPECT_EQ(client->state(), LatteClient::Delivering);
    EXPECT_EQ(checked(), "127.0.0.1/live?a=b");
    EXPECT_TRUE(check().sent().constLast().header.toString().contains("xClientGUID={guid}"));
    answerStream();
    EXPECT_EQ(connection(), "http http://127.0.0.1/live?a=b 10000");
    transport()->begin("header", 800000, 1000);
    EXPECT_TRUE(client->descriptor(0) == "header" && capture.contains("New media descriptor length 6"));
    deliver(499000);
    EXPECT_EQ(readyReads, 0);
    deliver(1000);
    EXPECT_EQ(readyReads, 1);
    EXPECT_THAT(takeEvents(),
                ElementsAre("Connecting...", "Connected", "Acquiring...10%", "Acquiring...20%", "Acquiring...30%",
                            "Acquiring...40%", "Acquiring...50%", "Acquiring...60%", "Acquiring...70%",
                            "Acquiring...80%", "Acquiring...90%", "descriptor 6", "Playing..."));
    QByteArray bytes(500000, '\0');
    EXPECT_EQ(client->read(bytes.data(), 32768), 32000);
    EXPECT_EQ(client->bytesAvailable(), 468000);
    client->stopBuffering();
    EXPECT_THAT(takeEvents(), ElementsAre("Stopped"));
    EXPECT_EQ(client->state(), LatteClient::Idle);
    EXPECT_TRUE(transports.isEmpty());
    EXPECT_EQ(client->read(bytes.data(), 500000), 468000); // What is here is not lost.
    client->startBuffering();
    answerStream();
    play();
    EXPECT_THAT(takeEvents().last(), "Playing...");
}

TEST_F(MmsLatteClientTest, ALossIsMadeGoodAtOnceAndHalfTheDataIsEnough)
{
    start(mms);
    answerStream();
    playOn();
    takeEvents();
    transport()->end(MmsClient::RemoteServerClosed);
    EXPECT_THAT(takeEvents(), ElementsAre("Reconnecting..."));
    timers.advance(0);
    EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
    EXPECT_TRUE(http.clients().isEmpty()); // What it is is known.
    transport()->begin("header", 800000, 1000);
    EXPECT_EQ(client->bytesAvailable(), 500000);
    std::vector<char> bytes(500000);
    EXPECT_EQ(client->read(bytes.data(), 500000), 500000);
    deliver(249000);
    EXPECT_EQ(client->bytesAvailable(), 0);
    deliver(1000);
    EXPECT_EQ(client->bytesAvailable(), 250000);
    QStringList const all = takeEvents();
    EXPECT_EQ(all.last(), "Playing...");
    EXPECT_EQ(plays, 2);
    EXPECT_FALSE(all.contains("descriptor 6")); // The stream is the same.
}

TEST_F(MmsLatteClientTest, BehindASilentPortOfHttpTcpIsTriedAfterASecond)
{
    for (bool const speaksTcp : {true, false}) {
        start(mms);
        timers.advance(999);
        EXPECT_TRUE(transports.isEmpty());
        timers.advance(1);
        EXPECT_EQ(connection(), "tcp mms://127.0.0.1/live 10000");
        EXPECT_EQ(http.clients().size(), 1); // A slow server is still waited for.
        if (speaksTcp) {
            play();
            EXPECT_TRUE(http.clients().isEmpty());
        } else {
            transport()->end(MmsClient::CouldNotConnected);
            answerStream();
            EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
        }
        EXPECT_EQ(takeEvents().filter("error").size(), 0);
        client.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(MmsLatteClientTest, PacketsOfANewHeaderWaitUntilTheOldDemultiplexerHasStopped)
{
    start(mms);
    answerStream();
    play();
    EXPECT_EQ(client->bytesAvailable(), 500000);
    transport()->begin("another", 800000, 1000);
    EXPECT_EQ(client->bytesAvailable(), 0);
    deliver(500000);
    EXPECT_EQ(takeEvents().filter("descriptor").last(), "descriptor 7");
    EXPECT_EQ(client->bytesAvailable(), 0);
    timers.advance(MmsLatteClientPrivate::changeDelay);
    EXPECT_EQ(client->bytesAvailable(), 500000);
}

TEST_F(MmsLatteClientTest, EachFailureLeadsToItsAction)
{
    enum Action { Nothing, Reconnect, NextContent };
    struct Case {
        MmsClient::MmsClientError error;
        Action action;
        int code; ///< Of the error when nothing is to be done.
    };
    Case const cases[] = {
        {MmsClient::EndOfStream, NextContent, 2},
        {MmsClient::CouldNotConnected, NextContent, 4},
        {MmsClient::StreamNotAvailable, NextContent, 5},
        {MmsClient::ReadTimeout, NextContent, 5},
        {MmsClient::RemoteServerClosed, Reconnect, 0},
        {MmsClient::CouldNotResolveServer, Nothing, 3},
        {MmsClient::AuthenticationRequiredError, Nothing, 9},
        {MmsClient::ProxyAuthenticationRequiredError, Nothing, 10},
        {MmsClient::Redirected, Nothing, 8},
        {MmsClient::BandwidthNotAvailable, Nothing, 8},
        {MmsClient::NoContent, Nothing, 8},
        {MmsClient::UnknownError, Nothing, 8},
    };
    for (Case const& c : cases) {
        for (bool const hasAlternative : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.error << hasAlternative);
            start(hasAlternative ? "http://127.0.0.1/list" : mms);
            if (hasAlternative) {
                answerPlaylist({mms, "mms://127.0.0.1/b"});
                EXPECT_EQ(checked(), "127.0.0.1/live");
            }
            answerStream();
            play();
            takeEvents();
            transport()->end(c.error);
            Action const action = c.action == NextContent && !hasAlternative ? Nothing : c.action;
            QStringList expected("Reconnecting...");
            if (action == Nothing)
                expected << QString("error %1").arg(c.code);
            EXPECT_EQ(takeEvents(), expected);
            EXPECT_EQ(client->state(), LatteClient::Delivering);
            timers.advance(999);
            EXPECT_TRUE(http.clients().isEmpty() && connectionCount() == 1);
            timers.advance(1);
            if (action == NextContent)
                EXPECT_EQ(checked(), "127.0.0.1/b");
            else // A lost stream is tried again without limit.
                EXPECT_EQ(connection(), QString("http %1 %2").arg(mms).arg(action == Nothing ? 20000 : 10000));
            client.reset();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    start(mms);
    answerStream();
    play();
    takeEvents();
    transport()->end(MmsClient::NoError);
    timers.advance(60000);
    EXPECT_THAT(takeEvents(), ElementsAre("Reconnecting..."));
    EXPECT_EQ(connectionCount(), 1);
}

TEST_F(MmsLatteClientTest, AServerThatWasNeverReachedIsFinalWhileTheNetworkIsUp)
{
    start(mms);
    failCheck();
    EXPECT_EQ(connection(), "tcp mms://127.0.0.1/live 10000"); // Whatever fails the check is tried over TCP.
    takeEvents();
    transport()->end(MmsClient::CouldNotConnected);
    EXPECT_THAT(takeEvents(), ElementsAre("error 4")); // The network has not been seen before.
    EXPECT_EQ(client->state(), LatteClient::Delivering);
    timers.advance(1000);
    failCheck();
    EXPECT_EQ(connection(), "tcp mms://127.0.0.1/live 20000");
    transport()->end(MmsClient::StreamNotAvailable);
    EXPECT_THAT(takeEvents(), ElementsAre("error 5"));
    EXPECT_EQ(client->state(), LatteClient::Finished);
    timers.advance(100000);
    EXPECT_TRUE(http.clients().isEmpty() && transports.isEmpty() && takeEvents().isEmpty());
    client->stopBuffering();
    EXPECT_EQ(client->state(), LatteClient::Finished);
}

TEST_F(MmsLatteClientTest, WithoutANetworkTheFirstConnectionIsTriedForEver)
{
    LogCapture const capture;
    start(unreachable);
    ReconnectionPolicy expected(clock, chance);
    for (int const timeout : {10000, 20000, 40000, 80000, 80000}) {
        failCheck();
        EXPECT_EQ(connection(), QString("tcp %1 %2").arg(unreachable).arg(timeout));
        takeEvents();
        transport()->end(MmsClient::CouldNotResolveServer);
        EXPECT_THAT(takeEvents(), ElementsAre("error 3"));
        EXPECT_EQ(client->state(), LatteClient::Delivering);
        timers.advance(expected.nextDelay());
    }
    EXPECT_TRUE(capture.contains("could not connected"));
    failCheck();
    transport()->begin("header", 800000, 1000);
    transport()->end(MmsClient::UnknownError);
    timers.advance(expected.nextDelay());
    EXPECT_EQ(connection(), QString("tcp %1 20000").arg(unreachable)); // From the beginning after a success.
}

TEST_F(MmsLatteClientTest, AServerThatClosesAgainAndAgainIsNotHammered)
{
    start(mms);
    answerStream();
    ReconnectionPolicy expected(clock, chance);
    for (int i = 0; i < 20; ++i) {
        play(); // That is much, but does not last.
        MmsClient const* const before = transport();
        transport()->end(MmsClient::RemoteServerClosed);
        int const delay = expected.nextDelay();
        timers.advance(delay - 1);
        EXPECT_EQ(transport(), before) << delay;
        timers.advance(1);
        EXPECT_NE(transport(), before) << delay;
    }
    playOn();
    transport()->end(MmsClient::RemoteServerClosed); // One that did play is gone back to at once.
    timers.advance(0);
    EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
    EXPECT_FALSE(events.filter("error").size());
}

TEST_F(MmsLatteClientTest, AfterTheThirdCloseAnotherAddressHasItsTurn)
{
    start("http://127.0.0.1/list");
    answerPlaylist({mms, "mms://127.0.0.1/b"});
    answerStream();
    for (int i = 0; i < 2; ++i) {
        playOn();
        transport()->end(MmsClient::RemoteServerClosed);
        timers.advance(0);
        EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
    }
    play();
    transport()->end(MmsClient::RemoteServerClosed);
    timers.advance(1000);
    EXPECT_EQ(checked(), "127.0.0.1/b");
}

TEST_F(MmsLatteClientTest, ADeadAddressIsFollowedByTheNextAndTheLastByTheFirst)
{
    LogCapture const capture;
    start("http://127.0.0.1/list");
    answerPlaylist({"mms://127.0.0.1/a", "mms://127.0.0.1/b", "mms://127.0.0.1/c", "mms://127.0.0.1/d"});
    QStringList order;
    for (int i = 0; i < 6; ++i) {
        order << checked().right(1);
        EXPECT_TRUE(check().sent().constLast().header.value("Referrer").endsWith("/list"));
        failCheck();
        EXPECT_TRUE(connection().startsWith("tcp ")) << qPrintable(connection());
        transport()->end(MmsClient::CouldNotConnected);
        timers.advance(i < 4 ? 1000 : 1500); // The second round is slower.
    }
    EXPECT_EQ(order.join(""), "abcdab");
    EXPECT_TRUE(capture.contains("Connecting to next item in playlist"));
    EXPECT_FALSE(events.filter("error").size());
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/c 10000");
}

TEST_F(MmsLatteClientTest, OneEntryWithTwoAddressesHasItsSecondCheckedAtOnce)
{
    start("http://127.0.0.1/list");
    answer("text/plain", "[Reference]\nRef1=http://127.0.0.1/a\nRef2=http://127.0.0.1/b\n");
    EXPECT_EQ(checked(), "127.0.0.1/a");
    failCheck();
    EXPECT_EQ(checked(), "127.0.0.1/b");
    failCheck();
    EXPECT_EQ(connection(), "tcp http://127.0.0.1/b 10000");
    transport()->end(MmsClient::CouldNotConnected);
    timers.advance(1000);
    EXPECT_EQ(checked(), "127.0.0.1/a");
}

TEST_F(MmsLatteClientTest, AnAddressWithATokenIsFetchedAnew)
{
    start("http://127.0.0.1/list");
    answerPlaylist({"mms://127.0.0.1/A?AuTh=Old", "mms://127.0.0.1/b"});
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/A?AuTh=Old 10000"); // In its own case.
    playOn();
    transport()->end(MmsClient::RemoteServerClosed);
    timers.advance(0);
    EXPECT_EQ(checked(), "127.0.0.1/list");
    answerPlaylist({"mms://127.0.0.1/A?AuTh=New"});
    EXPECT_EQ(checked(), "127.0.0.1/A?AuTh=New");
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/A?AuTh=New 10000");
}

TEST_F(MmsLatteClientTest, ARedirectionIsAskedForAnewAfterAFailure)
{
    start("http://127.0.0.1/door");
    HttpResponseHeader redirection(302);
    redirection.setValue("Location", "http://127.0.0.2/server1");
    check().respond(redirection);
    EXPECT_EQ(checked(), "127.0.0.2/server1");
    answerStream();
    EXPECT_EQ(connection(), "http http://127.0.0.2/server1 10000");
    playOn();
    transport()->end(MmsClient::RemoteServerClosed);
    timers.advance(0);
    EXPECT_EQ(connection(), "http http://127.0.0.2/server1 10000");
    transport()->end(MmsClient::CouldNotConnected);
    timers.advance(1000);
    EXPECT_EQ(connection(), "http http://127.0.0.1/door 20000");
}

TEST_F(MmsLatteClientTest, PlaylistsThatLeadNowhereAreAnErrorInWords)
{
    struct Case {
        char const* contentType;
        QByteArray body;
        char const* line;
        int code;
    };
    Case const cases[] = {
        {"text/plain", "<asx></asx>", "Found known playlist but could not parse it", 5},
        {"text/plain", "<asx><entry><ref href='", "Found known playlist but could not parse it", 5},
        {"text/plain", "<asx><entry><ref href='http://h/a.GIF'/></entry></asx>", "could not parse it", 5},
        {"text/plain", "<asx><entry><ref href='http://127.0.0.1/list'/></entry></asx>", "could not parse it", 5},
        {"text/plain", "[Reference]\n", "Found known playlist but could not parse it", 5},
        {"video/mpeg", "....", "Doesn't support Audio/Video file content at the moment", 11},
    };
    for (Case const& c : cases) {
        LogCapture const capture;
        start("http://127.0.0.1/list");
        answer(c.contentType, c.body);
        EXPECT_THAT(takeEvents(), ElementsAre("Connecting...", QString("error %1").arg(c.code))) << c.line;
        EXPECT_EQ(client->state(), LatteClient::Finished);
        EXPECT_TRUE(capture.contains(c.line)) << c.line;
        EXPECT_TRUE(http.clients().isEmpty() && transports.isEmpty());
        client.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(MmsLatteClientTest, AnEntryThatLeadsNowhereIsLeftOutAfterAWhile)
{
    start("http://127.0.0.1/list");
    answerPlaylist({"http://127.0.0.1/film.mpg", "http://127.0.0.1/list2", mms});
    answer("video/mpeg", "....");
    EXPECT_TRUE(http.clients().isEmpty());
    timers.advance(1000);
    EXPECT_EQ(checked(), "127.0.0.1/list2");
    answerPlaylist({"http://127.0.0.1/list", "http://127.0.0.1/list2"});
    EXPECT_TRUE(http.clients().isEmpty());
    timers.advance(1500);
    EXPECT_EQ(checked(), "127.0.0.1/live");
    answerStream();
    EXPECT_EQ(connection(), QString("http %1 10000").arg(mms));
    EXPECT_FALSE(events.filter("error").size());
}

TEST_F(MmsLatteClientTest, AWeakStreamIsLeftForTheNextAddress)
{
    LogCapture const capture;
    start("http://127.0.0.1/list");
    answerPlaylist({mms, "mms://127.0.0.1/b"});
    answerStream();
    play();
    for (int second = 0; second < 12; ++second) {
        EXPECT_TRUE(http.clients().isEmpty());
        deliver(49000);
        timers.advance(1000);
    }
    EXPECT_TRUE(capture.contains("The bitrate is below half normal bitrate for 12 seconds. Trying to switch to the "
                                 "next stream URL..."));
    EXPECT_EQ(checked(), "127.0.0.1/b");
    deliver(1000); // Plays on while the other one is looked at.
    FakeMmsClient* const weak = transport();
    weak->end(MmsClient::CouldNotConnected); // Nor does its end stop that.
    timers.advance(5000);
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/b 10000");
    transport()->begin("header", 800000, 1000);
    deliver(250000);
    for (int second = 0; second < 100; ++second) {
        deliver(50000);
        std::vector<char> bytes(50000);
        client->read(bytes.data(), 50000);
        timers.advance(1000);
    }
    EXPECT_TRUE(http.clients().isEmpty()); // The count has begun anew.
}

TEST_F(MmsLatteClientTest, AFullBufferMakesTheServerWaitUntilThereIsRoom)
{
    LogCapture const capture;
    start(mms);
    answerStream();
    play();
    FakeMmsClient const* const stream = transport();
    while (stream->isReading)
        deliver(1000);
    EXPECT_GT(client->bytesBuffered(), 4'900'000);
    takeEvents();
    deliver(400'000); // From one that does not wait.
    EXPECT_THAT(takeEvents(), ElementsAre("Stopped"));
    EXPECT_EQ(capture.count("MMS buffer full. Stopping..."), 1);
    EXPECT_EQ(client->bytesBuffered(), 5'242'000);
    EXPECT_EQ(client->state(), LatteClient::Delivering);
    std::vector<char> bytes(2'000'000);
    client->read(bytes.data(), 2'000'000);
    QCoreApplication::processEvents();
    EXPECT_FALSE(stream->isReading);
    client->read(bytes.data(), 1'000'000);
    QCoreApplication::processEvents();
    EXPECT_TRUE(stream->isReading);
    EXPECT_THAT(takeEvents(), ElementsAre("Playing..."));
    EXPECT_EQ(plays, 2);

    client->setBufferByteLength(1'000'000); // Fifteen seconds are more.
    EXPECT_EQ(client->bytesBuffered(), 1'500'000);
    EXPECT_EQ(client->bufferByteLength(), 1'000'000);
    EXPECT_EQ(client->state(), LatteClient::Idle);
}

TEST_F(MmsLatteClientTest, AfterALeapOfTimeItGoesOnWithWhatIsLive)
{
    start(mms);
    answerStream();
    play();
    for (int second = 0; second < 3; ++second)
        timers.advance(1000);
    clock.advance(12000); // Nothing ran.
    deliver(1'200'000);
    EXPECT_EQ(client->bytesBuffered(), 1'700'000);
    timers.advance(1000);
    EXPECT_EQ(client->bytesBuffered(), 250'000);
    deliver(1'000'000);
    timers.advance(5000); // As usual.
    EXPECT_EQ(client->bytesBuffered(), 1'250'000);
}

TEST_F(MmsLatteClientTest, StopsInAnyStateAndCanBeStartedAgain)
{
    std::function<void()> const states[] = {
        [] {},                                                               // The check runs.
        [&] { answerStream(); },                                             // Connecting.
        [&] { failCheck(); },                                                // Over TCP.
        [&] { answerStream(), transport()->begin("header", 800000, 1000); }, // Before the data.
        [&] { answerStream(), play(); },
        [&] { answerStream(), play(), transport()->end(MmsClient::RemoteServerClosed); },
        [&] { answerStream(), transport()->end(MmsClient::StreamNotAvailable); }, // A memo waits.
        [&] {
            answerPlaylist({mms, "mms://127.0.0.1/b"}), failCheck(), transport()->end(MmsClient::EndOfStream);
        },
        [&] { answer("video/mpeg"); }, // Finished.
    };
    for (auto const& bringTo : states) {
        for (bool const isDeleted : {false, true}) {
            SCOPED_TRACE(testing::Message() << &bringTo - states << isDeleted);
            start(mms);
            bringTo();
            if (isDeleted)
                client.reset();
            else
                client->stopBuffering();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_TRUE(http.clients().isEmpty() && transports.isEmpty());
            takeEvents();
            timers.advance(100000);
            EXPECT_TRUE(takeEvents().isEmpty());
            if (isDeleted)
                continue;
            client->startBuffering();
            answerStream();
            play();
            EXPECT_EQ(client->state(), LatteClient::Delivering);
        }
    }
}

TEST_F(MmsLatteClientTest, MayBeStoppedFromAnyOfItsSignals)
{
    QStringList reached;
    for (QString const moment : {"Connecting...", "Connected", "Acquiring...10%", "descriptor 6", "Playing...",
                                 "ready", "Reconnecting...", "error 3", "error 8"}) {
        SCOPED_TRACE(qPrintable(moment));
        start(mms);
        client->stopBuffering();
        QString happened;
        auto const at = [&](QString const& event) {
            if (event == moment && happened.isEmpty()) {
                happened = event;
                client->stopBuffering();
            }
        };
        auto* const c = client.get();
        using L = LatteClient;
        QObject::connect(c, &L::readyRead, c, [&] { at("ready"); });
        QObject::connect(c, &L::error, c, [&](auto*, auto code) { at(QString("error %1").arg(code)); });
        QObject::connect(c, &L::descriptorChanged, c, [&] { at("descriptor 6"); });
        QObject::connect(c, &L::progressChanged, c, [&](auto*, QString const& text) { at(text); });
        client->startBuffering();
        auto const isRunning = [&] { return client->state() == L::Delivering && transports.size() == 1; };
        if (client->state() == L::Delivering)
            answerStream();
        if (isRunning())
            transport()->begin("header", 800000, 1000);
        for (int i = 0; i < 500 && isRunning(); ++i)
            deliver(1000);
        if (isRunning())
            transport()->end(moment == "error 8" ? MmsClient::UnknownError : MmsClient::CouldNotResolveServer);
        EXPECT_EQ(happened, moment);
        EXPECT_EQ(client->state(), L::Idle);
        timers.advance(100000);
        EXPECT_TRUE(transports.isEmpty() && http.clients().isEmpty());
    }
}

TEST_F(MmsLatteClientTest, TheFactoryTakesBackItsOwnOnly)
{
    MmsLatteClientFactory factory("{guid}", &timers, &sockets, &http, &dates, nullptr);
    QPointer<LatteClient> const own = factory.createLatteClient(Uri(mms));
    EXPECT_EQ(own->uri(), Uri(mms));
    EXPECT_EQ(own->state(), LatteClient::Idle);
    LogCapture const capture;
    factory.disposeLatteClient(nullptr);
    EXPECT_FALSE(capture.contains("[WARNING]"));
    factory.disposeLatteClient(own);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(own);
}
