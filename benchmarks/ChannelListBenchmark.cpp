// What a letter typed into the filter of the channel list costs, with 5,000 channels.
//
// The baseline is what Qt has for it: a QSortFilterProxyModel that looks for the text in each title, whatever its
// case. Ours looks for folded words in title and languages. Both are under a view; "longest_ms" is the longest that
// one letter worked on the GUI thread, which has 16 ms.

#include "ChannelListWidgetModel.h"
#include "ChannelListWidgetProxyModel.h"

#include <QSortFilterProxyModel>
#include <QTreeView>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <random>

namespace
{

constexpr int channelCount = 5000;

QList<ChannelDescription> channels(QString const& edition = {})
{
    QStringList const words = {"News", "Sport", "Music", "Caf\u00E9", "Television", "World", "Radio", "Kino"};
    QList<ChannelDescription> list;
    for (int i = 0; i < channelCount; ++i) {
        ChannelDescription description;
        description.setId(QString::number(i));
        description.setRootId(description.id());
        description.setTitle(words.at(i % words.size()) + ' ' + words.at(i / 7 % words.size()) + ' ' +
                             QString::number(i) + edition);
        StreamDescription stream(Uri("nothing://host/" + description.id()));
        stream.appendTrackDescription(
            {i % 3 == 0 ? LanguageId::German() : LanguageId::English(), TrackDescription::VideoTrack});
        description.appendStreamDescription(stream);
        description.setChannelType(ChannelDescription::PublicChannel);
        list.append(description);
    }
    return list;
}

/// What this thread has worked: other programs on the machine do not count.
double threadMs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

void type(benchmark::State& state, QAbstractItemModel& model, auto const& filter)
{
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    view.setModel(&model);
    view.resize(300, 800);
    view.show();
    QStringList const typed = {"c", "ca", "caf", "cafe", "cafe n", "cafe", "caf", "ca", "c", ""};
    double longest = 0.0;
    qsizetype next = 0;
    for ([[maybe_unused]] auto const& iteration : state) {
        double const before = threadMs();
        filter(typed.at(next++ % typed.size()));
        longest = std::max(longest, threadMs() - before);
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["longest_ms"] = longest;
}

void filterOfQt(benchmark::State& state)
{
    ChannelListWidgetModel model;
    model.setChannels(channels());
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy.setFilterKeyColumn(ChannelListWidgetModel::NameColumn);
    type(state, proxy, [&](QString const& text) { proxy.setFilterFixedString(text); });
}

void filterOfOurs(benchmark::State& state)
{
    ChannelListWidgetModel model;
    model.setChannels(channels());
    ChannelListWidgetProxyModel proxy;
    proxy.setChannelModel(&model);
    type(state, proxy, [&](QString const& text) { proxy.setFilterText(text); });
}

void takeChannels(benchmark::State& state, QList<QList<ChannelDescription>> const& lists)
{
    ChannelListWidgetModel model;
    ChannelListWidgetProxyModel proxy;
    proxy.setChannelModel(&model);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&proxy);
    view.show();
    double longest = 0.0;
    qsizetype next = 0;
    for ([[maybe_unused]] auto const& iteration : state) {
        double const before = threadMs();
        model.setChannels(lists.at(next++ % lists.size()));
        longest = std::max(longest, threadMs() - before);
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["longest_ms"] = longest;
}

void updateUnchanged(benchmark::State& state)
{
    takeChannels(state, {channels()});
}

void updateAll(benchmark::State& state)
{
    takeChannels(state, {channels(), channels(" b")});
}

void fillAndEmpty(benchmark::State& state)
{
    takeChannels(state, {channels(), {}});
}

/// The logo of one row, out of the largest and least regular that there is.
QImage rowOfFull(ChannelLogo const& logo, QSize const& row)
{
    return logo.image().scaled(row, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QImage rowOfSmall(ChannelLogo const& logo, QSize const& row)
{
    return logo.image(row);
}

void unpackLogo(benchmark::State& state, QImage (*rowOf)(ChannelLogo const&, QSize const&))
{
    constexpr int side = 512;
    QImage noise(side, side, QImage::Format_RGB32);
    std::minstd_rand random;
    std::generate_n(reinterpret_cast<quint32*>(noise.bits()), side * side, random);
    ChannelLogo const logo(noise);
    for ([[maybe_unused]] auto const& iteration : state)
        benchmark::DoNotOptimize(rowOf(logo, {40, 40}));
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK_CAPTURE(unpackLogo, full, &rowOfFull)->Name("Logo/OfFull")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(unpackLogo, small, &rowOfSmall)->Name("Logo/OfSmall")->Unit(benchmark::kMillisecond);
BENCHMARK(filterOfQt)->Name("Filter/QSortFilterProxyModel")->Unit(benchmark::kMillisecond);
BENCHMARK(filterOfOurs)->Name("Filter/ChannelListWidgetProxyModel")->Unit(benchmark::kMillisecond);
BENCHMARK(updateUnchanged)->Name("Update/Unchanged")->Unit(benchmark::kMillisecond);
BENCHMARK(updateAll)->Name("Update/All")->Unit(benchmark::kMillisecond);
BENCHMARK(fillAndEmpty)->Name("Update/FillAndEmpty")->Unit(benchmark::kMillisecond);

} // namespace
