#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

/// Which time counts: that of the processor, which other programs cannot prolong, or, for what
/// waits or works in several threads, that of the clock on the wall.
enum class Timing { Processor, Wall };

/// A piece of work beside its floor: the least that any program doing the same must do.
struct RatioCase {
    std::string name;
    std::function<void()> work;
    std::string floorName = {};
    std::function<void()> floor = nullptr;   ///< None: only the time of the work is shown.
    double limit = 0;                        ///< Most that work / floor may be; 0: shown without a limit.
    std::function<void()> prepare = nullptr; ///< Run, untimed, before every timed run of either side.
    Timing timing = Timing::Processor;
};

/// Measures pieces of work beside their floors and prints a table of the ratios. Both sides run in
/// turn, many times, so that whatever else the machine does falls on both alike; the ratio is the
/// median of the ratios of neighbouring runs, the times are medians.
class RatioTable {
public:
    void add(RatioCase newCase) { cases.push_back(std::move(newCase)); }

    /// The body of a benchmark's main(): hands every case to Google Benchmark, whose options
    /// (--benchmark_filter also chooses the rows) it takes from the command line, then prints the
    /// table. The exit status: 0, 1 where a ratio is over its limit, 2 for an unknown option.
    int run(int argc, char **argv);

    /// The median time of a row's work in milliseconds; 0 where the row was not run.
    double milliseconds(const std::string &name) const;

private:
    std::vector<RatioCase> cases;
    std::map<std::string, double> times; ///< In seconds.
};
