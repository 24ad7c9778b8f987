// Runs all benchmarks interleaved and repeated, and prints each pair with its target.
#include "pairs.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

namespace {

enum class Kind { Ratio, Beyond, Within };

struct Target {
    std::string subject;
    Kind kind;
    double value;
};

std::vector<Target> &targets()
{
    static std::vector<Target> all;
    return all;
}

class PairReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration)
                times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
        }
    }

    void Finalize() override
    {
        printf("%-44s %12s %12s %10s %10s\n", "", "ours ns", "reference ns", "ratio", "target");
        for (const Target &target : targets()) {
            double ours = median(target.subject + "/ours");
            double reference = median(target.subject + "/reference");
            if (ours <= 0)
                continue;
            constexpr const char *goals[] = {"<= %.2f", "<= ref+%.0f", "<= %.0f ns"};
            double highest[] = {reference * target.value, reference + target.value, target.value};
            auto kind = static_cast<size_t>(target.kind);
            bool reached = ours <= highest[kind];
            char goal[32], factor[32] = "", other[32] = "";
            snprintf(goal, sizeof goal, goals[kind], target.value);
            if (reference > 0) {
                snprintf(other, sizeof other, "%.1f", reference);
                snprintf(factor, sizeof factor, "%.2f", ours / reference);
            }
            printf("%-44s %12.1f %12s %10s %10s %s\n", target.subject.c_str(), ours, other, factor, goal,
                   reached ? "reached" : "MISSED");
        }
    }

private:
    double median(const std::string &name)
    {
        std::vector<double> &values = times_[name];
        if (values.empty())
            return 0;
        std::nth_element(values.begin(), values.begin() + static_cast<ptrdiff_t>(values.size() / 2), values.end());
        return values[values.size() / 2];
    }

    std::map<std::string, std::vector<double>> times_;
};

} // namespace

bool pairs::ratio(const char *subject, double highest)
{
    targets().push_back({subject, Kind::Ratio, highest});
    return true;
}

bool pairs::beyond(const char *subject, double nanoseconds)
{
    targets().push_back({subject, Kind::Beyond, nanoseconds});
    return true;
}

bool pairs::within(const char *subject, double nanoseconds)
{
    targets().push_back({subject, Kind::Within, nanoseconds});
    return true;
}

int main(int argc, char **argv)
{
    std::vector<char *> arguments(argv, argv + argc);
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    char repetitions[] = "--benchmark_repetitions=9";
    char shortTime[] = "--benchmark_min_time=0.03";
    arguments.insert(arguments.begin() + 1, {interleave, repetitions, shortTime});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    PairReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
