// What the directory and a switch cost the GUI thread, with 5,000 channels.
//
// The baseline of an update is the taking over of an equal list, which changes nothing; "longest_ms" is the longest
// that one step worked on the thread, which has 16 ms for a picture. That of a click is a timer of as long as the
// fade. That of nine channels at once is nine that play one after the other: seconds of all threads' CPU, the same
// film each.

#include "AppData.h"
#include "Channel.h"
#include "ChannelDescriptionProvider.h"
#include "ChannelManager.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>

namespace
{

constexpr int channelCount = 5000;
constexpr int channelsAtOnce = 9;
constexpr int playTime = 3000; // ms
constexpr double msPerNanosecond = 1e-6;

class ListProvider : public ChannelDescriptionProvider
{
public:
    explicit ListProvider(QList<ChannelDescription> const& list) : _list(list) {}

    long long numChannels() const override { return _list.size(); }
    ChannelDescription descriptionAt(long long index) const override { return _list.at(index); }
    void start() override {}
    void stop() override {}
    void refresh() override { updated(); }

private:
    QList<ChannelDescription> const& _list;
};

QList<ChannelDescription> directory(QString const& edition)
{
    QImage logo(64, 64, QImage::Format_ARGB32_Premultiplied);
    logo.fill(Qt::blue);
    QList<ChannelDescription> list;
    for (int i = 0; i < channelCount; ++i) {
        ChannelDescription description;
        description.setId(QString::number(i));
        description.setRootId(description.id());
        description.setTitle(QStringLiteral("Channel %1 %2").arg(i).arg(edition));
        description.setSummary("What there is to see " + edition);
        description.setLogo(logo);
        description.setChannelType(ChannelDescription::PublicChannel);
        description.appendStreamDescription(StreamDescription(Uri("nothing://host/" + description.id() + edition)));
        list.append(description);
    }
    return list;
}

/// What this thread has worked: other programs on the machine do not count.
double threadMs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * msPerNanosecond;
}

/// A manager whose directory is a list.
class Fixture
{
public:
    Fixture()
    {
        _appData.initialize(nullptr);
        ChannelManager::Parts parts;
        parts.createProvider = [this] { return std::make_unique<ListProvider>(list); };
        manager = std::make_unique<ChannelManager>(_appData, parts);
        manager->startChecking();
    }
    ~Fixture()
    {
        manager.reset();
        _appData.uninitialize();
    }

    /// Takes the list over. Returns how long the longest step took, in ms.
    double update()
    {
        double longest = 0.0;
        auto const measure = [&longest](auto const& step) {
            double const before = threadMs();
            step();
            longest = std::max(longest, threadMs() - before);
        };
        measure([this] { manager->refresh(); });
        while (manager->isUpdating())
            measure([] { QCoreApplication::processEvents(); });
        return longest;
    }

    QList<ChannelDescription> list;
    std::unique_ptr<ChannelManager> manager;

private:
    AppData _appData;
};

/// Goes to and fro between lists, of which the first is there already.
void update(benchmark::State& state, QList<QList<ChannelDescription>> const& lists)
{
    Fixture fixture;
    fixture.list = lists.constFirst();
    fixture.update();
    double longest = 0.0;
    qsizetype next = 0;
    for ([[maybe_unused]] auto const& iteration : state) {
        fixture.list = lists.at(++next % lists.size());
        longest = std::max(longest, fixture.update());
    }
    state.SetItemsProcessed(state.iterations() * channelCount);
    state.counters["longest_ms"] = longest;
}

void updateUnchanged(benchmark::State& state)
{
    update(state, {directory("a")});
}

void updateAll(benchmark::State& state)
{
    update(state, {directory("a"), directory("b")});
}

void fillAndEmpty(benchmark::State& state)
{
    update(state, {{}, directory("a")});
}

/// Until a condition holds.
void processEventsUntil(auto const& condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void fadeAlone(benchmark::State& state)
{
    for ([[maybe_unused]] auto const& iteration : state) {
        bool isOver = false;
        QTimer::singleShot(ChannelManager::fadeTime, Qt::PreciseTimer, qApp, [&] { isOver = true; });
        processEventsUntil([&] { return isOver; });
    }
    state.SetItemsProcessed(state.iterations());
}

/// From the click on a channel to its opening, in a directory of 5,000.
void clickToOpen(benchmark::State& state)
{
    Fixture fixture;
    fixture.list = directory("a");
    for (ChannelDescription& description : fixture.list)
        description.clearStreamDescriptions(); // No network.
    fixture.update();
    ChannelManager& manager = *fixture.manager;
    manager.openChannel("0", false, true);
    int next = 0;
    for ([[maybe_unused]] auto const& iteration : state) {
        QString const id = QString::number(++next);
        manager.performChannelClickAction(id, manager.channelClickAction(id, false));
        processEventsUntil([&] { return manager.isChannelOpenByRootId(id); });
    }
    state.SetItemsProcessed(state.iterations());
}

double cpuSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Nine names of one film.
QStringList films(QTemporaryDir const& directory)
{
    QString const film = directory.filePath("film.mkv");
    QProcess::execute("ffmpeg",
                      {"-nostdin", "-loglevel", "error", "-f", "lavfi", "-i", "testsrc2=size=640x360:rate=25", "-f",
                       "lavfi", "-i", "sine", "-t", "10", "-c:v", "mpeg4", "-c:a", "ac3", film});
    QStringList names;
    for (int i = 0; i < channelsAtOnce; ++i) {
        names.append(directory.filePath(QStringLiteral("film-%1.mkv").arg(i)));
        QFile::link(film, names.constLast());
    }
    return names;
}

/// Plays the films beside each other for some seconds, from the moment when all have begun.
double play(ChannelManager& manager, QStringList const& names)
{
    for (QString const& name : names)
        manager.openFile(name, false);
    processEventsUntil([&] {
        auto const open = manager.openChannels();
        return open.size() == names.size() && std::ranges::all_of(open, &Channel::isPlaying);
    });
    double const before = cpuSeconds();
    bool isOver = false;
    QTimer::singleShot(playTime, qApp, [&] { isOver = true; });
    processEventsUntil([&] { return isOver; });
    double const used = cpuSeconds() - before;
    manager.closeAllChannels();
    return used;
}

void playNine(benchmark::State& state, bool atOnce)
{
    QTemporaryDir const directory;
    QStringList const names = films(directory);
    Fixture fixture;
    for ([[maybe_unused]] auto const& iteration : state) {
        double seconds = 0.0;
        if (atOnce)
            seconds = play(*fixture.manager, names);
        else
            for (QString const& name : names)
                seconds += play(*fixture.manager, {name});
        state.SetIterationTime(seconds);
    }
    state.SetItemsProcessed(state.iterations() * channelsAtOnce);
}

BENCHMARK_CAPTURE(playNine, single, false)->Name("Play/NineSingleOnes")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(playNine, atOnce, true)->Name("Play/NineAtOnce")->UseManualTime()->Iterations(3);
BENCHMARK(updateUnchanged)->Name("Update/NothingChanged")->Unit(benchmark::kMillisecond);
BENCHMARK(updateAll)->Name("Update/AllChanged")->Unit(benchmark::kMillisecond);
BENCHMARK(fillAndEmpty)->Name("Update/FilledAndEmptied")->Unit(benchmark::kMillisecond);
BENCHMARK(fadeAlone)->Name("Click/Fade")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(clickToOpen)->Name("Click/ToOpen")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
