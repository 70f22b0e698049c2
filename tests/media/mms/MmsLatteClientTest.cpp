#include "MmsLatteClientFixture.h"

#include <QTest>

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

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
    EXPECT_EQ(read(32768), 32000);
    client->stopBuffering();
    EXPECT_THAT(takeEvents(), ElementsAre("Stopped"));
    EXPECT_EQ(client->state(), LatteClient::Idle);
    EXPECT_TRUE(transports.isEmpty());
    EXPECT_EQ(read(500000), 468000); // What is here is not lost.
}

TEST_F(MmsLatteClientTest, ALossIsMadeGoodAtOnceAndHalfTheDataIsEnough)
{
    startPlaying();
    timers.advance(ReconnectionPolicy::lastingPlay);
    end(MmsClient::RemoteServerClosed, 0);
    EXPECT_THAT(takeEvents(), ElementsAre("Reconnecting..."));
    EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
    transport()->begin("header", 800000, 1000);
    EXPECT_EQ(read(500000), 500000);
    deliver(249000);
    EXPECT_EQ(client->bytesAvailable(), 0);
    deliver(1000);
    EXPECT_EQ(client->bytesAvailable(), 250000);
    EXPECT_EQ(events.last(), "Playing...");
    EXPECT_EQ(plays, 2);
    EXPECT_FALSE(events.contains("descriptor 6")); // The stream is the same.
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
            end(MmsClient::CouldNotConnected, 0);
            answerStream();
            EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
        }
    }
}

TEST_F(MmsLatteClientTest, PacketsOfANewHeaderWaitUntilTheOldDemultiplexerHasStopped)
{
    startPlaying();
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
    for (auto const& [error, code, hasNext] : {std::tuple(MmsClient::EndOfStream, "error 2", true),
                                               {MmsClient::CouldNotConnected, "error 4", true},
                                               {MmsClient::StreamNotAvailable, "error 5", true},
                                               {MmsClient::ReadTimeout, "error 5", true},
                                               {MmsClient::CouldNotResolveServer, "error 3", false},
                                               {MmsClient::AuthenticationRequiredError, "error 9", false},
                                               {MmsClient::ProxyAuthenticationRequiredError, "error 10", false},
                                               {MmsClient::BandwidthNotAvailable, "error 8", false}}) {
        for (bool const hasAlternative : {false, true}) {
            SCOPED_TRACE(testing::Message() << error << hasAlternative);
            startPlaying(hasAlternative);
            transport()->end(error);
            bool const goesOn = hasNext && hasAlternative;
            EXPECT_EQ(takeEvents(), QStringList("Reconnecting...") + (goesOn ? QStringList() : QStringList(code)));
            timers.advance(999);
            EXPECT_TRUE(http.clients().isEmpty() && connectionCount() == 1);
            timers.advance(1);
            if (goesOn)
                EXPECT_EQ(checked(), "127.0.0.1/b");
            else // A lost stream is tried again without limit.
                EXPECT_EQ(connection(), "http mms://127.0.0.1/live 20000");
        }
    }
}

TEST_F(MmsLatteClientTest, WithoutANetworkTheFirstConnectionIsTriedForEver)
{
    start("mms://255.255.255.255/live"); // No datagram goes there.
    ReconnectionPolicy expected(clock, chance);
    for (int const timeout : {10000, 20000, 40000, 80000, 80000}) {
        failCheck();
        EXPECT_EQ(connection(), QString("tcp mms://255.255.255.255/live %1").arg(timeout));
        takeEvents();
        transport()->end(MmsClient::CouldNotResolveServer);
        EXPECT_THAT(takeEvents(), ElementsAre("error 3"));
        timers.advance(expected.nextDelay());
    }
    EXPECT_EQ(client->state(), LatteClient::Delivering);
}

TEST_F(MmsLatteClientTest, AServerThatClosesAgainAndAgainIsNotHammered)
{
    start(mms);
    answerStream();
    ReconnectionPolicy expected(clock, chance);
    for (int i = 0; i < 20; ++i) {
        play(); // That is much, but does not last.
        MmsClient const* const before = transport();
        int const delay = expected.nextDelay();
        end(MmsClient::RemoteServerClosed, delay - 1);
        EXPECT_EQ(transport(), before) << delay;
        timers.advance(1);
        EXPECT_NE(transport(), before) << delay;
    }
    EXPECT_FALSE(events.filter("error").size());
}

TEST_F(MmsLatteClientTest, AfterTheThirdCloseAnotherAddressHasItsTurn)
{
    startPlaying(true);
    for (int i = 0; i < 2; ++i) {
        timers.advance(ReconnectionPolicy::lastingPlay);
        end(MmsClient::RemoteServerClosed, 0);
        EXPECT_EQ(connection(), "http mms://127.0.0.1/live 10000");
        play();
    }
    end(MmsClient::RemoteServerClosed, 1000);
    EXPECT_EQ(checked(), "127.0.0.1/b");
}

TEST_F(MmsLatteClientTest, ADeadAddressIsFollowedByTheNextAndTheLastByTheFirst)
{
    start("http://127.0.0.1/list");
    answer("text/plain", "<asx><entry><ref href='mms://127.0.0.1/a'/><ref href='mms://127.0.0.1/b'/></entry>"
                         "<entry><ref href='http://127.0.0.1/list2'/></entry>"
                         "<entry><ref href='http://127.0.0.1/film.mpg'/></entry></asx>");
    QStringList order;
    while (order.size() < 8) {
        for (int i = 0; i < 10 && http.clients().isEmpty(); ++i)
            timers.advance(1000);
        EXPECT_TRUE(check().sent().constLast().header.value("Referrer").endsWith("/list"));
        QString const address = order.emplaceBack(checked().section('/', -1));
        if (address == "list2")
            answerPlaylist({"http://127.0.0.1/list"});
        else if (address == "film.mpg")
            answer("video/mpeg", "....");
        else
            failCheck();
        if (address == "b") // The first of the entry is followed at once.
            transport()->end(MmsClient::CouldNotConnected);
    }
    EXPECT_EQ(order.join(' '), "a b list2 film.mpg a b a b"); // What leads nowhere is left out.
    EXPECT_FALSE(events.filter("error").size());
}

TEST_F(MmsLatteClientTest, AnAddressWithATokenIsFetchedAnew)
{
    start("http://127.0.0.1/list");
    answerPlaylist({"mms://127.0.0.1/A?AuTh=Old", "mms://127.0.0.1/b"});
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/A?AuTh=Old 10000"); // In its own case.
    playOn();
    end(MmsClient::RemoteServerClosed, 0);
    EXPECT_EQ(checked(), "127.0.0.1/list");
    answerPlaylist({"mms://127.0.0.1/A?AuTh=New"});
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/A?AuTh=New 10000");
}

TEST_F(MmsLatteClientTest, ARedirectionIsAskedForAnewAfterAFailure)
{
    start("http://127.0.0.1/door");
    HttpResponseHeader redirection(302);
    redirection.setValue("Location", "http://127.0.0.2/server1");
    check().respond(redirection);
    answerStream();
    EXPECT_EQ(connection(), "http http://127.0.0.2/server1 10000");
    play();
    end(MmsClient::CouldNotConnected, 1000);
    EXPECT_EQ(connection(), "http http://127.0.0.1/door 20000");
}

TEST_F(MmsLatteClientTest, WhatLeadsNowhereIsAnErrorInWords)
{
    for (auto const& [contentType, body, line, code] :
         {std::tuple("text/plain", "<asx></asx>", "Found known playlist but could not parse it", "error 5"),
          {"text/plain", "<asx><entry><ref href='http://127.0.0.1/list'/></entry></asx>", "not parse it", "error 5"},
          {"video/mpeg", "....", "Doesn't support Audio/Video file content at the moment", "error 11"}}) {
        LogCapture const capture;
        start("http://127.0.0.1/list");
        answer(contentType, body);
        EXPECT_THAT(takeEvents(), ElementsAre("Connecting...", code)) << line;
        EXPECT_EQ(client->state(), LatteClient::Finished);
        EXPECT_TRUE(capture.contains(line)) << line;
    }
}

TEST_F(MmsLatteClientTest, WhatTheServerOfAnAddressAnsweredIsTheErrorWhenTcpBringsNothing)
{
    LogCapture const capture;
    start("http://127.0.0.1/live");
    check().respond(HttpResponseHeader(401));
    transport()->end(MmsClient::RemoteServerClosed);
    timers.advance(10000);
    EXPECT_EQ(takeEvents().last(), "error 9");
    EXPECT_TRUE(capture.contains("http://127.0.0.1/live answers 401"));
    for (int const status : {200, 408, 425}) { // What broke off, or is busy, may be there later.
        start("http://127.0.0.1/live");
        for (int i = 0; i < 4 && transports.isEmpty(); ++i) {
            FakeHttpClient& checking = check();
            checking.respond(HttpResponseHeader(status));
            if (status == 200)
                checking.finish(HttpClient::UnexpectedClose);
        }
        transport()->end(MmsClient::RemoteServerClosed);
        timers.advance(10000);
        EXPECT_TRUE(events.filter("error 6").isEmpty() && events.filter("error 13").isEmpty()) << status;
        takeEvents();
    }
}

TEST_F(MmsLatteClientTest, AWeakStreamIsLeftForTheNextAddress)
{
    LogCapture const capture;
    startPlaying(true);
    for (int second = 0; second < 12; ++second) {
        EXPECT_TRUE(http.clients().isEmpty());
        deliver(49000);
        timers.advance(1000);
    }
    EXPECT_TRUE(capture.contains("The bitrate is below half normal bitrate for 12 seconds. Trying to switch to the "
                                 "next stream URL..."));
    EXPECT_EQ(checked(), "127.0.0.1/b");
    deliver(1000);                           // Plays on while the other one is looked at.
    end(MmsClient::CouldNotConnected, 5000); // Nor does its end stop that.
    answerStream();
    EXPECT_EQ(connection(), "http mms://127.0.0.1/b 10000");
}

TEST_F(MmsLatteClientTest, AHeaderOfTheOldAddressTellsNothingOfTheOneThatIsLookedAt)
{
    startPlaying(true);
    timers.advance(12000);
    EXPECT_EQ(checked(), "127.0.0.1/b");
    transport()->begin("another", 800000, 1000);
    failCheck();
    EXPECT_EQ(connection(), "tcp mms://127.0.0.1/b 10000");
    for (int i = 0; i < 10 && http.clients().isEmpty(); ++i)
        end(MmsClient::CouldNotConnected, 10000);
    EXPECT_EQ(checked(), "127.0.0.1/b"); // Asked again.
}

TEST_F(MmsLatteClientTest, AFullBufferMakesTheServerWaitUntilThereIsRoom)
{
    LogCapture const capture;
    startPlaying();
    FakeMmsClient const* const stream = transport();
    while (stream->isReading)
        deliver(1000);
    EXPECT_GT(client->bytesBuffered(), 4'900'000);
    deliver(400'000); // From one that does not wait.
    EXPECT_EQ(capture.count("MMS buffer full. Stopping..."), 1);
    EXPECT_EQ(client->bytesBuffered(), 5'242'000);
    EXPECT_EQ(client->state(), LatteClient::Delivering);
    read(2'000'000);
    QCoreApplication::processEvents();
    EXPECT_FALSE(stream->isReading);
    read(1'000'000);
    QCoreApplication::processEvents();
    EXPECT_TRUE(stream->isReading);
    EXPECT_THAT(takeEvents(), ElementsAre("Stopped", "Playing..."));
    client->setBufferByteLength(1'000'000); // Fifteen seconds are more.
    EXPECT_EQ(client->bytesBuffered(), 1'500'000);
}

TEST_F(MmsLatteClientTest, AStreamThatRunsDryOnAStandingConnectionSaysSoUntilItFlows)
{
    startPlaying();
    timers.advance(5000);
    EXPECT_THAT(takeEvents(), IsEmpty()); // There is still something to play.
    read(1'000'000);
    timers.advance(1000);
    EXPECT_THAT(takeEvents(), IsEmpty());
    timers.advance(4000);
    EXPECT_THAT(takeEvents(), ElementsAre("Acquiring...0%"));
    deliver(1000);
    deliver(1000);
    EXPECT_THAT(takeEvents(), ElementsAre("Playing..."));
    EXPECT_EQ(plays, 2);
}

TEST_F(MmsLatteClientTest, AStreamThatHasRunDryPlaysOnlyOnceItsSuccessorHasEnough)
{
    for (bool const hasAlternative : {false, true}) {
        SCOPED_TRACE(hasAlternative);
        startPlaying(hasAlternative);
        plays = 0;
        read(1'000'000);
        timers.advance(12000);
        if (hasAlternative)
            answerStream(); // It takes over, and the stream is not lost.
        else
            end(MmsClient::ReadTimeout, 10000);
        EXPECT_THAT(takeEvents(), Contains("Acquiring...0%"));
        transport()->begin("header", 800000, 1000);
        deliver(1000);
        EXPECT_EQ(plays, hasAlternative ? 1 : 0);
        deliver(249'000);
        EXPECT_EQ(plays, 1);
        EXPECT_EQ(takeEvents().constLast(), "Playing...");
    }
}

TEST_F(MmsLatteClientTest, AfterALeapOfTimeItGoesOnWithWhatIsLive)
{
    startPlaying();
    timers.advance(1000);
    clock.advance(12000); // Nothing ran.
    deliver(1'200'000);
    timers.advance(1000);
    EXPECT_EQ(client->bytesBuffered(), 250'000);
}

TEST_F(MmsLatteClientTest, StopsInAnyStateAndFromAnyOfItsSignalsAndCanBeStartedAgain)
{
    std::function<void()> const states[] = {
        [] {},                                                               // The check runs.
        [&] { failCheck(); },                                                // Over TCP.
        [&] { answerStream(), transport()->begin("header", 800000, 1000); }, // Before the data.
        [&] { answerStream(), play(), transport()->end(MmsClient::RemoteServerClosed); },
        [&] { answerStream(), transport()->end(MmsClient::StreamNotAvailable); }, // A memo waits.
        [&] { answer("video/mpeg"); },                                            // Finished.
    };
    for (auto const& bringTo : states) {
        SCOPED_TRACE(&bringTo - states);
        start(mms); // The one before ends as it is.
        bringTo();
        client->stopBuffering();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(http.clients().isEmpty() && transports.isEmpty());
        takeEvents();
        timers.advance(100000);
        EXPECT_TRUE(takeEvents().isEmpty());
        client->startBuffering();
        answerStream();
        play();
        EXPECT_EQ(takeEvents().last(), "Playing...");
    }
    for (QString const signal : {"Connected", "Acquiring...90%", "Playing...", "Reconnecting..."}) {
        SCOPED_TRACE(qPrintable(signal));
        start(mms);
        QObject::connect(client.get(), &LatteClient::progressChanged, client.get(), [&](auto*, QString const& text) {
            if (text == signal)
                client->stopBuffering();
        });
        answerStream();
        if (!transports.isEmpty())
            transport()->begin("header", 800000, 1000);
        deliver(500000);
        if (!transports.isEmpty())
            transport()->end(MmsClient::RemoteServerClosed);
        EXPECT_EQ(client->state(), LatteClient::Idle);
    }
}

TEST_F(MmsLatteClientTest, TheEndOfTheFirstConnectionWaitsForTheNetworkTest)
{
    start("mms://localhost/live");
    failCheck();
    transport()->end(MmsClient::CouldNotConnected);
    auto const isAnswered = [&] { // Then another look-up can be begun.
        timers.advance(1000);
        if (http.clients().isEmpty())
            return false;
        failCheck();
        takeEvents();
        transport()->end(MmsClient::CouldNotConnected);
        return takeEvents().isEmpty();
    };
    ASSERT_TRUE(QTest::qWaitFor(isAnswered, 10000));
    EXPECT_EQ(client->state(), LatteClient::Delivering);
    ASSERT_TRUE(QTest::qWaitFor([&] { return client->state() == LatteClient::Finished; }, 10000));
    EXPECT_EQ(takeEvents(), QStringList("error 4"));
    timers.advance(100000);
    EXPECT_TRUE(http.clients().isEmpty() && transports.isEmpty());
}
