#include "bench/RatioTable.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <ctime>
#include <regex>

namespace {

constexpr int rounds = 41;
/// A timed run takes at least this long, so that the clock's grain does not matter.
constexpr double shortestRun = 0.001;

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double seconds(Timing timing) {
    std::timespec now{};
    clock_gettime(timing == Timing::Wall ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &now);
    constexpr double nanosecond = 1e-9;
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * nanosecond;
}

/// Seconds that one call takes, averaged over `calls` calls in a row.
double timed(const RatioCase &measured, const std::function<void()> &side, int calls) {
    if (measured.prepare) {
        measured.prepare();
    }
    const double start = seconds(measured.timing);
    for (int i = 0; i < calls; ++i) {
        side();
    }
    return (seconds(measured.timing) - start) / calls;
}

int callsPerRun(const RatioCase &measured, const std::function<void()> &side) {
    timed(measured, side, 1);
    const double once = timed(measured, side, 1);
    return static_cast<int>(std::clamp(shortestRun / std::max(once, 1e-9), 1.0, 1e6));
}

struct Row {
    double work = 0;
    double floor = 0;
    double ratio = 0;
};

Row measure(const RatioCase &measured) {
    const int workCalls = callsPerRun(measured, measured.work);
    const int floorCalls = measured.floor ? callsPerRun(measured, measured.floor) : 0;
    std::vector<double> work;
    std::vector<double> floor;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        // Each side comes first in every other round.
        const bool workFirst = round % 2 == 0 || !measured.floor;
        if (workFirst) {
            work.push_back(timed(measured, measured.work, workCalls));
        }
        if (measured.floor) {
            floor.push_back(timed(measured, measured.floor, floorCalls));
        }
        if (!workFirst) {
            work.push_back(timed(measured, measured.work, workCalls));
        }
        if (measured.floor) {
            ratios.push_back(work.back() / floor.back());
        }
    }
    return measured.floor ? Row{medianOf(work), medianOf(floor), medianOf(ratios)}
                          : Row{medianOf(work), 0, 0};
}

/// Prints the row; false where the ratio is over its limit.
bool print(const RatioCase &measured, const Row &row) {
    constexpr double milliseconds = 1e3;
    std::printf("%-38s %10.3f", measured.name.c_str(), row.work * milliseconds);
    if (!measured.floor) {
        std::printf("\n");
        return true;
    }
    std::printf(" %10.3f %7.2f", row.floor * milliseconds, row.ratio);
    const bool within = measured.limit <= 0 || row.ratio <= measured.limit;
    if (measured.limit > 0) {
        std::printf(" %7.2f %-5s", measured.limit, within ? "" : "OVER");
    } else {
        std::printf(" %7s %-5s", "-", "");
    }
    std::printf(" %s\n", measured.floorName.c_str());
    return within;
}

void registerSide(const std::string &name, const RatioCase &measured, const std::function<void()> &side) {
    auto *registered =
        benchmark::RegisterBenchmark(name.c_str(), [&measured, &side](benchmark::State &state) {
            for (auto _ : state) {
                if (measured.prepare) {
                    state.PauseTiming();
                    measured.prepare();
                    state.ResumeTiming();
                }
                side();
            }
        });
    registered->Unit(benchmark::kMillisecond);
    if (measured.timing == Timing::Wall) {
        registered->UseRealTime();
    }
}

} // namespace

int RatioTable::run(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    for (const RatioCase &measured : cases) {
        registerSide(measured.name, measured, measured.work);
        if (measured.floor) {
            registerSide(measured.name + "/floor", measured, measured.floor);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    const std::regex filter(benchmark::GetBenchmarkFilter());
    bool withinLimits = true;
    std::printf("\n%-38s %10s %10s %7s %7s %-5s %s\n", "", "ms", "floor ms", "ratio", "limit", "", "floor");
    for (const RatioCase &measured : cases) {
        if (std::regex_search(measured.name, filter)) {
            const Row row = measure(measured);
            times[measured.name] = row.work;
            withinLimits = print(measured, row) && withinLimits;
            std::fflush(stdout);
        }
    }
    return withinLimits ? 0 : 1;
}

double RatioTable::milliseconds(const std::string &name) const {
    const auto found = times.find(name);
    return found == times.end() ? 0 : found->second * 1e3;
}
