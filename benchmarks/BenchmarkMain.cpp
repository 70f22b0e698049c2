#include "Logger.h"
#include "LoggerManager.h"

#ifdef OMBRAVISION_BENCHMARK_WIDGETS
#include <QApplication>
#include <QTemporaryDir>
#else
#include <QCoreApplication>
#endif

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace
{

/// The usual table, and then the ratios of the rates within each group.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(std::vector<Run> const& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (Run const& run : runs) {
            // Of several repetitions, their median counts.
            bool const counts = run.repetitions <= 1 || run.aggregate_name == "median";
            if (auto const rate = run.counters.find("items_per_second"); counts && rate != run.counters.end())
                _rates.emplace_back(nameOf(run), rate->second.value);
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::map<std::string, double> baselines;
        for (auto const& [name, rate] : _rates) {
            auto const [baseline, isFirst] = baselines.emplace(name.substr(0, name.find('/')), rate);
            std::printf("%-50s %14.0f per second, %6.2f times the baseline\n", name.c_str(), rate,
                        rate / baseline->second);
        }
    }

private:
    static std::string nameOf(Run const& run)
    {
        std::string const& arguments = run.run_name.args;
        return run.run_name.function_name + (arguments.empty() ? "" : "/" + arguments);
    }

    std::vector<std::pair<std::string, double>> _rates;
};

} // namespace

int main(int argc, char** argv)
{
    // A benchmark is not the program: it leaves the user's log file alone.
    LoggerManager::logger()->setMethod(Logger::StandardError);
    LoggerManager::logger()->setLevel(Logger::Warning);
#ifdef OMBRAVISION_BENCHMARK_WIDGETS
    // With a home of its own, since the parts of the program keep settings and caches there; and without a display.
    QTemporaryDir const home;
    for (char const* const place : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        qputenv(place, home.path().toUtf8());
    qputenv("ALSOFT_DRIVERS", "null");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
#else
    QCoreApplication application(argc, argv);
#endif
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
