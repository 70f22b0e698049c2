#include "RestfulChannelDescriptionProvider.h"

#include "QtDateTimeBuilder.h"
#include "SignalRecorder.h"
#include "SoapAllowedChannels.h"
#include "ThreadedMemoQueue.h"
#include "WebCache.h"
#include "WebFixture.h"

#include <QBuffer>
#include <QPointer>

#include <gmock/gmock.h>

namespace
{

/// A service that the test plays.
class FakeAllowedChannels : public SoapAllowedChannels
{
public:
    FakeAllowedChannels() : SoapAllowedChannels({}) {}
    void getAllowedChannels(QString const& nodeId) override { asked.append(nodeId); }
    void allow(QStringList const& ids) { emit allowedChannelsReceived("0.9", "CH", "1.2.3.4", "a", ids); }

    QStringList asked;
};

QByteArray channel(QByteArray const& id, QByteArray const& logo = {})
{
    return "<channel><name>" + id + "</name><unique-short-name>" + id + "</unique-short-name><logo-url>" + logo +
           "</logo-url><channel-type>TV</channel-type></channel>";
}

QByteArray document(QByteArrayList const& channels)
{
    return "<channels>" + channels.join() + "</channels>";
}

QImage image(QColor const& colour)
{
    QImage result(2, 2, QImage::Format_RGB32);
    result.fill(colour);
    return result;
}

QByteArray png(QColor const& colour)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image(colour).save(&buffer, "PNG");
    return bytes;
}

class RestfulProviderTest : public WebFixture
{
protected:
    RestfulProviderTest() { restart(); }

    void restart()
    {
        for (auto* const recorder : {&updates, &logos, &loads, &failures, &faults})
            recorder->reset();
        provider.reset();
        cache = std::make_unique<WebCache>(&downloader, &chance, &queue, &clock, file("cache"));
        provider = makeProvider(*cache);
        updates = std::make_unique<SignalRecorder>(provider.get(), &ChannelDescriptionProvider::channelsUpdated);
        logos = std::make_unique<SignalRecorder>(provider.get(), &ChannelDescriptionProvider::channelLogoUpdated);
        using Provider = RestfulChannelDescriptionProvider;
        loads = std::make_unique<SignalRecorder>(provider.get(), &Provider::allowedChannelsLoaded);
        failures = std::make_unique<SignalRecorder>(provider.get(), &Provider::allowedChannelsError);
        faults = std::make_unique<SignalRecorder>(provider.get(), &Provider::channelParsingError);
    }

    std::unique_ptr<RestfulChannelDescriptionProvider> makeProvider(WebCache& webCache)
    {
        return std::make_unique<RestfulChannelDescriptionProvider>(
            &webCache, OmbravisionUser("7", "a@b", "node"), &dates, channels, Uri("http://127.0.0.1"),
            image(Qt::black), image(Qt::white), nullptr, [this](Uri const&) {
                auto made = std::make_unique<FakeAllowedChannels>();
                service = made.get();
                return made;
            });
    }

    /// The service gives this document and allows these channels; the list is there afterwards.
    void load(QByteArray const& xml, QStringList const& ids)
    {
        answer("200 OK", "Cache-Control: max-age=3600\r\n", xml);
        allow(ids);
    }

    void allow(QStringList const& ids)
    {
        qsizetype const asked = allowed++;
        ASSERT_TRUE(processEventsUntil([&] { return service->asked.size() > asked; }));
        service->allow(ids);
    }

    QStringList ids() const
    {
        QStringList result;
        for (long long i = 0; i < provider->numChannels(); ++i)
            result.append(provider->descriptionAt(i).id());
        return result;
    }

    QColor logoAt(int index) const { return provider->descriptionAt(index).logo().pixelColor(0, 0); }

    Uri const channels = uri("channels.xml");
    QtDateTimeBuilder dates;
    FakeAllowedChannels* service = nullptr;
    qsizetype allowed = 0;
    std::unique_ptr<WebCache> cache;
    std::unique_ptr<RestfulChannelDescriptionProvider> provider;
    std::unique_ptr<SignalRecorder> updates, logos, loads, failures, faults;
};

} // namespace

TEST_F(RestfulProviderTest, PublishesWhatIsAllowedAndTheLogosAsTheyCome)
{
    QByteArray const logo = uri("logo.png").toString().toLatin1();
    QByteArray const xml = document({channel("a", logo), channel("b"), channel("c", logo), channel("a")});
    provider->start();
    answer("200 OK", "Cache-Control: max-age=3600\r\n", xml);
    answer("200 OK", {}, png(Qt::red));
    ASSERT_TRUE(processEventsUntil([&] { return log.contains("Logo for "); }));
    EXPECT_EQ(provider->numChannels(), 0);
    allow({"a", "c", "unknown", "b"});
    EXPECT_EQ(service->asked, QStringList{"node"});
    EXPECT_EQ(loads->last(), (QVariantList{"1.2.3.4", "CH", "0.9", "a"}));
    EXPECT_EQ(provider->confidenceFactor() + provider->countryId() + provider->ipAddress(), "0.9CH1.2.3.4");
    EXPECT_EQ(ids(), QStringList({"a", "b", "c"}));
    EXPECT_TRUE(provider->descriptionAt(3).isNull() && provider->isAllowedLoaded());
    EXPECT_EQ(logoAt(0), QColor(Qt::red));
    EXPECT_EQ(logoAt(1), QColor(Qt::white));
    EXPECT_EQ(updates->count() * 10 + logos->count(), 10);

    cache->update(uri("logo.png"));
    answer("200 OK", {}, png(Qt::green));
    ASSERT_TRUE(logos->wait(2));
    EXPECT_EQ(logos->first().at(0).value<ChannelDescription>().id(), "a");
    EXPECT_EQ(logos->last().at(0).value<ChannelDescription>().id(), "c");
    EXPECT_EQ(logoAt(2), QColor(Qt::green));

    // The same document again: the same channels, of which others may be allowed.
    cache->update(channels);
    load(xml, {"c"});
    EXPECT_EQ(ids(), QStringList{"c"});
    EXPECT_EQ(logoAt(0), QColor(Qt::green));
    // Another one: what is known of the logos stays.
    cache->update(channels);
    load(document({channel("c", logo), channel("d", uri("no.png").toString().toLatin1())}), {"d", "c"});
    EXPECT_EQ(logoAt(0), QColor(Qt::green));
    EXPECT_EQ(logoAt(1), QColor(Qt::black));
    answer("200 OK", {}, "<html>Sign in</html>");
    ASSERT_TRUE(processEventsUntil([&] { return log.contains("is not what it should be"); }));
    EXPECT_EQ(logoAt(1), QColor(Qt::black));
}

TEST_F(RestfulProviderTest, ARestartBeginsWithTheCacheAndWithoutTheNetwork)
{
    QByteArray const logo = uri("logo.png").toString().toLatin1();
    provider->start();
    load(document({channel("a", logo)}), {"a"});
    answer("200 OK", "Cache-Control: max-age=3600\r\n", png(Qt::red));
    ASSERT_TRUE(logos->wait());
    restart();
    allowed = 0;
    provider->start();
    allow({"a"});
    EXPECT_EQ(ids(), QStringList{"a"});
    EXPECT_EQ(logoAt(0), QColor(Qt::red));
    EXPECT_EQ(log.count("Downloading http"), 2);
}

TEST_F(RestfulProviderTest, AFaultLeavesTheListAndIsTold)
{
    provider->start();
    answer("200 OK", {}, "<html>Sign in</html>");
    ASSERT_TRUE(faults->wait());
    EXPECT_EQ(faults->first().first(), "Error parsing channels\nRetrying...");
    EXPECT_TRUE(log.contains("Error parsing channels.xml\nIt is a web page."));
    answer("200 OK", {}, document({channel("a")}));
    ASSERT_TRUE(processEventsUntil([&] { return !service->asked.isEmpty(); }));
    emit service->allowedChannelsError("no service");
    EXPECT_EQ(failures->last().first(), "no service");
    provider->refresh();
    allowed = 1;
    allow({"a"});

    cache->update(channels);
    answer("200 OK", {}, document({channel("b")}).chopped(3));
    ASSERT_TRUE(faults->wait(2));
    advance(1000);
    answer("200 OK", {}, document({channel("b")}));
    ASSERT_TRUE(processEventsUntil([&] { return service->asked.size() == 3; }));
    SignalRecorder const kept(provider.get(), &RestfulChannelDescriptionProvider::refreshFailed);
    emit service->allowedChannelsError("no service");
    ASSERT_EQ(kept.count(), 1);
    EXPECT_EQ(kept.first().first(), "no service");
    EXPECT_EQ(ids(), QStringList{"a"});
    EXPECT_EQ(failures->count() * 10 + updates->count(), 11);
}

TEST_F(RestfulProviderTest, AServiceThatIsGoneIsTold)
{
    provider->start();
    answer("503 Gone");
    ASSERT_TRUE(failures->wait());
    EXPECT_EQ(failures->first().first(), "Resource not available");
}

TEST_F(RestfulProviderTest, ADocumentThatIsMissingIsFetchedLessAndLessOftenAndOneThatIsHereReadOnce)
{
    provider->start();
    for (int ms : {4375, 8750, 17500}) {
        int const told = failures->count();
        answer("404 Not Found");
        ASSERT_TRUE(failures->wait(told + 1));
        int const requests = log.count("Downloading http");
        advance(ms - 1);
        provider->refresh(); // As often as the feed asks: it makes no difference.
        processPendingEvents();
        EXPECT_EQ(log.count("Downloading http"), requests);
        advance(1);
    }
    load(document({channel("a")}), {"a"});
    int readings = log.count("Parsing ");
    for (int trigger = 0; trigger < 3; ++trigger)
        provider->refresh();
    allow({"a"});
    EXPECT_EQ(log.count("Parsing "), ++readings);
    EXPECT_EQ(log.count("Inserted channel description"), 1);

    provider->refresh(); // It would be read once more.
    QPointer<ChannelDescriptionProvider> const retired = provider.release();
    retired->retire();
    EXPECT_TRUE(retired);
    ASSERT_TRUE(processEventsUntil([&] { return !retired; }));
    EXPECT_EQ(log.count("Parsing "), readings);
}

TEST_F(RestfulProviderTest, StoppedItWaitsWithWhatComes)
{
    provider->start();
    answer("200 OK", {}, document({channel("a")}));
    ASSERT_TRUE(processEventsUntil([&] { return !service->asked.isEmpty(); }));
    provider->stop();
    service->allow({"a"}); // Too late: it was cancelled.
    EXPECT_TRUE(updates->isEmpty() && loads->isEmpty());
    provider->start();
    allowed = 1;
    allow({"a", "b"});
    EXPECT_EQ(updates->count(), 1);

    cache->watch(channels); // Somebody else, so that the stopped provider hears of it.
    provider->stop();
    cache->watch(channels);
    cache->update(channels);
    answer("200 OK", {}, document({channel("a"), channel("b")}));
    ASSERT_TRUE(processEventsUntil([&] { return log.contains("Should reset, but not running."); }));
    EXPECT_EQ(updates->count(), 1);
    provider->start();
    EXPECT_EQ(updates->count(), 2);
    EXPECT_EQ(ids(), QStringList({"a", "b"}));
}

TEST_F(RestfulProviderTest, MayGoWhileADialogOfItsOwnSlotIsOpen)
{
    QByteArray const logo = uri("logo.png").toString().toLatin1();
    provider->start();
    load(document({channel("a", logo), channel("b", logo)}), {"a", "b"});
    QPointer<ChannelDescriptionProvider> const retired = provider.get();
    int told = 0;
    QObject::connect(provider.get(), &ChannelDescriptionProvider::channelLogoUpdated, cache.get(), [&] {
        ++told;
        provider.release()->retire();
        EXPECT_TRUE(processEventsUntil([&] { return !retired; }));
    });
    answer("200 OK", {}, png(Qt::red));
    ASSERT_TRUE(processEventsUntil([&] { return !retired; }));
    EXPECT_EQ(told, 1);
}

TEST_F(RestfulProviderTest, MayBeDestroyedWhileTheCacheWorks)
{
    ThreadedMemoQueue thread;
    thread.start();
    thread.waitUntilReady();
    auto fetcher = std::make_unique<PipelinedFileDownloader>(&thread, &clock);
    auto shared = std::make_unique<WebCache>(fetcher.get(), &chance, &thread, &clock, file("shared"));
    QByteArrayList many;
    for (int i = 0; i < 300; ++i)
        many.append(channel(QByteArray::number(i), uri("logo.png").toString().toLatin1()));
    for (int round = 0; round < 10; ++round) {
        auto other = makeProvider(*shared);
        other->start();
        if (round == 0) {
            answer("200 OK", {}, document(many));
            answer("200 OK", {}, png(Qt::red));
        }
        if (round % 2 == 0) {
            EXPECT_TRUE(processEventsUntil([&] { return !service->asked.isEmpty(); }));
            service->allow({"7"});
            EXPECT_EQ(other->numChannels(), 1);
        }
        if (round % 3 == 0)
            continue;
        QPointer<ChannelDescriptionProvider> const retired = other.release();
        retired->stop();
        retired->retire();
        EXPECT_TRUE(processEventsUntil([&] { return !retired; }));
    }
    shared.reset();
    fetcher.reset();
    thread.exit();
    thread.wait();
}
