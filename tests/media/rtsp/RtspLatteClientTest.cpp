#include "RtspLatteClient.h"

#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "FixedChance.h"
#include "LogCapture.h"
#include "RtspClient.h"
#include "RtspClientFactory.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace
{

using testing::ElementsAre;

class FakeRtspClient : public RtspClient
{
public:
    void connectToServer(Uri const& uri, int timeout) override
    {
        EXPECT_EQ(uri, Uri("rtsp://host/live"));
        timeouts.append(timeout);
    }
    void disconnectFromServer() override {}
    bool isNetworkAvailable() const override { return networkAvailable; }
    bool isFinite() const override { return finite; }

    QList<int> timeouts;
    bool networkAvailable = true;
    bool finite = false;
};

class FakeRtspClientFactory : public RtspClientFactory
{
public:
    RtspClient* createRtspClient(QObject*) override { return client = new FakeRtspClient; }
    void disposeRtspClient(RtspClient* disposed) override
    {
        disposed->deleteLater();
        client = nullptr;
    }

    FakeRtspClient* client = nullptr;
};

class RtspLatteClientTest : public testing::Test
{
protected:
    RtspLatteClientTest()
    {
        QObject::connect(&_latte, &LatteClient::progressChanged,
                         [this](LatteClient*, QString const& text) { _words.append(text); });
        QObject::connect(&_latte, &LatteClient::error,
                         [this](LatteClient*, NetworkErrors::NetworkError code) { _errors.append(code); });
        _latte.setReconnectionPolicy(ReconnectionPolicy(_clock, _chance));
        _latte.startBuffering();
    }

    FakeRtspClient& session() { return *_factory.client; }
    void end(NetworkErrors::NetworkError error) { emit session().done(error); }
    void header(QByteArray const& bytes)
    {
        emit session().connected();
        emit session().headerReceived(bytes);
    }
    void data(int bytes) { emit session().dataReceived(QByteArray(bytes, 'x'), true); }
    QStringList takeWords() { return std::exchange(_words, {}); }
    QByteArray read()
    {
        QByteArray bytes(_latte.bytesAvailable() + 100, '\0');
        bytes.truncate(_latte.read(bytes.data(), bytes.size()));
        return bytes;
    }

    FakeTickCounter _clock;
    FixedChance _chance;
    FakeTimerFactory _timers{_clock};
    FakeRtspClientFactory _factory;
    RtspLatteClient _latte{Uri("rtsp://host/live"), &_factory, &_timers};
    QSignalSpy _readyRead{&_latte, &LatteClient::readyRead};
    QSignalSpy _descriptorChanged{&_latte, &LatteClient::descriptorChanged};
    QStringList _words;
    QList<int> _errors;
};

} // namespace

TEST_F(RtspLatteClientTest, SaysInWordsHowItBegins)
{
    EXPECT_EQ(session().timeouts, QList<int>{10000});
    header("header");
    data(12799);
    data(1);
    data(40000);
    data(75199);
    EXPECT_THAT(takeWords(),
                ElementsAre("Connecting...", "Connected", "Acquiring...10%", "Acquiring...40%", "Acquiring...90%"));
    EXPECT_TRUE(_readyRead.isEmpty());
    EXPECT_TRUE(_descriptorChanged.isEmpty());
    data(1);
    data(5);
    EXPECT_THAT(takeWords(), ElementsAre("Playing..."));
    EXPECT_EQ(_readyRead.size(), 2);
    ASSERT_EQ(_descriptorChanged.size(), 1);
    EXPECT_EQ(_descriptorChanged.first().at(1).toLongLong(), 6);
    EXPECT_EQ(_latte.descriptor(0), "header");
    EXPECT_EQ(read().size(), 128005);
    _latte.stopBuffering();
    EXPECT_THAT(takeWords(), ElementsAre("Stopped"));
    EXPECT_EQ(_factory.client, nullptr);
    EXPECT_TRUE(_timers.timers().isEmpty());
    EXPECT_NE(_latte.state(), LatteClient::Delivering);
}

TEST_F(RtspLatteClientTest, ALossIsMendedForEverBehindAReportedError)
{
    header("header");
    data(128000);
    takeWords();
    QList<int> const codes = {2, 7, 5, 4, 3};
    ReconnectionPolicy expected(_clock, _chance);
    for (int code : codes) {
        end(static_cast<NetworkErrors::NetworkError>(code));
        EXPECT_EQ(_latte.state(), LatteClient::Delivering);
        qsizetype const before = session().timeouts.size();
        _timers.advance(expected.nextDelay() - 1);
        EXPECT_EQ(session().timeouts.size(), before);
        _timers.advance(1);
        EXPECT_EQ(session().timeouts.size(), before + 1);
    }
    EXPECT_EQ(session().timeouts, (QList<int>{10000, 20000, 40000, 80000, 80000, 80000}));
    EXPECT_EQ(_errors, codes);
    EXPECT_THAT(takeWords(), ElementsAre("Reconnecting..."));
    // The same streams go on: what is buffered stays, and half as much makes it play.
    header("header");
    data(63999);
    EXPECT_EQ(takeWords().last(), "Acquiring...90%");
    data(1);
    EXPECT_THAT(takeWords(), ElementsAre("Playing..."));
    EXPECT_EQ(_descriptorChanged.size(), 1);
    EXPECT_EQ(read().size(), 192000);
    _timers.advance(ReconnectionPolicy::lastingPlay);
    end(NetworkErrors::EndOfStream);
    _timers.advance(0);
    EXPECT_EQ(session().timeouts.last(), 20000);
}

TEST_F(RtspLatteClientTest, AServerThatWasNeverReachedIsFinalOnceTheNetworkIsUp)
{
    for (bool const isUp : {false, true}) { // The second time it has only just come up.
        session().networkAvailable = isUp;
        end(NetworkErrors::CouldNotConnect);
        EXPECT_EQ(_latte.state(), LatteClient::Delivering);
        _timers.advance(2000);
    }
    EXPECT_EQ(session().timeouts.size(), 3);
    end(NetworkErrors::CouldNotConnect);
    EXPECT_EQ(_latte.state(), LatteClient::Idle);
    EXPECT_EQ(_factory.client, nullptr);
    EXPECT_EQ(_errors, (QList<int>{4, 4, 4}));
    _latte.startBuffering(); // The viewer tries again.
    EXPECT_EQ(session().timeouts, QList<int>{10000});
}

TEST_F(RtspLatteClientTest, AWrongPasswordAndTheEndOfAFilmAreFinal)
{
    header("header");
    data(200000);
    end(NetworkErrors::AuthenticationRequired);
    EXPECT_EQ(_errors, QList<int>{9});
    EXPECT_EQ(_latte.state(), LatteClient::Idle);
    EXPECT_TRUE(_timers.timers().isEmpty());
    _latte.startBuffering();
    session().finite = true;
    end(NetworkErrors::EndOfStream);
    EXPECT_EQ(_latte.state(), LatteClient::Finished);
    EXPECT_EQ(_errors.size(), 1);
    EXPECT_EQ(read().size(), 200000);
}

TEST_F(RtspLatteClientTest, OtherStreamsAreAnnouncedBeforeTheirDataCanBeRead)
{
    header("header");
    data(128000);
    end(NetworkErrors::RemoteClosed);
    _timers.advance(1000);
    header("other");
    EXPECT_EQ(read(), ""); // The old data went with the old header.
    data(63999);
    EXPECT_EQ(_descriptorChanged.size(), 1);
    data(1);
    EXPECT_EQ(_descriptorChanged.size(), 2);
    EXPECT_EQ(_latte.descriptor(0), "other");
    EXPECT_EQ(_latte.bytesAvailable(), 0);
    EXPECT_EQ(read(), "");
    _timers.advance(RtspLatteClient::changeDelay); // The demultiplexer of the old header has stopped by now.
    EXPECT_EQ(read().size(), 64000);
}

TEST_F(RtspLatteClientTest, AViewerWhoDoesNotKeepUpLeapsForward)
{
    LogCapture const capture;
    header("header");
    _latte.setBufferByteLength(-1);
    EXPECT_EQ(_latte.bufferByteLength(), 5242880);
    _latte.setBufferByteLength(300000);
    for (int i = 0; i < 100; ++i)
        data(10000);
    EXPECT_GT(_latte.bytesAvailable(), 200000);
    EXPECT_LE(_latte.bytesAvailable(), 300000);
    EXPECT_EQ(capture.count("buffer full"), 1);
}
