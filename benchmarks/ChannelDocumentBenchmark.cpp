// A directory of 5,000 channels: how many channels a second. The baseline of reading the document is a bare walk
// through its XML; that of taking over a list is copying what a row of it refers to.

#include "ChannelDescriptionList.h"
#include "ChannelDescriptionProvider.h"
#include "ChannelDirectory.h"
#include "ChannelDocumentReader.h"

#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

namespace
{

constexpr int channelCount = 5000;

QByteArray document(char const* summary)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<channels>\n";
    for (int i = 0; i < channelCount; ++i) {
        QByteArray const number = QByteArray::number(i);
        xml += "  <channel>\n    <name>Channel " + number + "</name>\n    <unique-short-name>channel_" + number +
               "</unique-short-name>\n    <website-url>http://www.example.org/" + number +
               "</website-url>\n    <link-text>The channel's own pages</link-text>\n    "
               "<logo-url>http://logos.example.org/" +
               number + ".png</logo-url>\n    <has-alerts>true</has-alerts>\n    <has-chat>true</has-chat>\n    " +
               "<show-banners>true</show-banners>\n    <chatroom-name>room_" + number +
               "</chatroom-name>\n    <alerts-topic>.alerts.channel_" + number +
               "</alerts-topic>\n    <latte-uri>mms://media.example.org/live/" + number +
               "</latte-uri>\n    <channel-type>TV</channel-type>\n    <description>" + summary + number +
               "</description>\n    <autobuzz-enabled>true</autobuzz-enabled>\n    "
               "<repeated-autobuzz>false</repeated-autobuzz>\n    <autobuzz-interval>120000</autobuzz-interval>\n"
               "  </channel>\n";
    }
    return xml + "</channels>\n";
}

ChannelDirectory directory(char const* summary)
{
    return {ChannelDocumentReader::read(document(summary)).entries, QImage(32, 32, QImage::Format_RGB32), {}};
}

QSet<QString> allIds(ChannelDirectory const& from)
{
    QSet<QString> ids;
    for (ChannelDescription const& channel : from.channels())
        ids.insert(channel.id());
    return ids;
}

class ListProvider : public ChannelDescriptionProvider
{
public:
    long long numChannels() const override { return list.size(); }
    ChannelDescription descriptionAt(long long index) const override { return list.value(index); }
    void start() override {}
    void stop() override {}
    void refresh() override {}

    QList<ChannelDescription> list;
};

void measure(benchmark::State& state, auto const& work)
{
    for ([[maybe_unused]] auto const& iteration : state)
        work();
    state.SetItemsProcessed(state.iterations() * channelCount);
}

void walk(benchmark::State& state)
{
    QByteArray const xml = document("What there is to see on channel ");
    measure(state, [&] {
        QXmlStreamReader reader(xml);
        while (!reader.atEnd())
            benchmark::DoNotOptimize(reader.readNext());
    });
}

void read(benchmark::State& state)
{
    QByteArray const xml = document("What there is to see on channel ");
    measure(state, [&] { benchmark::DoNotOptimize(ChannelDocumentReader::read(xml)); });
}

/// What the GUI thread does with an update: compares each description with the one it has.
void compare(benchmark::State& state, char const* summary)
{
    ChannelDirectory const old = directory("What there is to see on channel ");
    ChannelDirectory const other = summary ? directory(summary) : old;
    measure(state, [&] {
        int changed = 0;
        for (int i = 0; i < channelCount; ++i) {
            ChannelDescription const description = other.channels().at(i);
            changed += description != old.channels().at(i);
        }
        benchmark::DoNotOptimize(changed);
    });
}

/// Those that are allowed of a new document, and a model of them.
void allow(benchmark::State& state)
{
    ChannelDirectory const all = directory("What there is to see on channel ");
    QSet<QString> const ids = allIds(all);
    measure(state, [&] { benchmark::DoNotOptimize(all.only(ids)); });
}

void reset(benchmark::State& state)
{
    ListProvider provider;
    provider.list = directory("What there is to see on channel ").channels();
    ChannelDescriptionList list(provider);
    measure(state, [&] { provider.updated(); });
}

BENCHMARK(walk)->Name("Document/Walk")->Unit(benchmark::kMillisecond);
BENCHMARK(read)->Name("Document/Read")->Unit(benchmark::kMillisecond);
BENCHMARK(reset)->Name("Update/ModelReset")->Unit(benchmark::kMillisecond);
BENCHMARK(allow)->Name("Update/Allowed")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(compare, unchanged, nullptr)->Name("Update/NothingChanged")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(compare, readAgain, "What there is to see on channel ")
    ->Name("Update/ReadAgain")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(compare, changed, "Something else on channel ")
    ->Name("Update/AllChanged")
    ->Unit(benchmark::kMillisecond);

} // namespace
