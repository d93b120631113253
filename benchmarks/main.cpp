// Runs the benchmarks, then prints for each pair "NAME/bare" and "NAME/pistaro" what ours costs against the bare one.
#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

/// Keeps the medians besides printing them: processor time, which other programs on the machine disturb less.
class KeepingReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios() const {
        const std::string bare = "/bare";
        for (const auto& [name, time] : medians_) {
            if (!name.ends_with(bare)) continue;
            const std::string pair = name.substr(0, name.size() - bare.size());
            const auto ours = medians_.find(pair + "/pistaro");
            if (ours == medians_.end()) continue;
            std::printf("%s: bare %.3f, ours %.3f, ratio %.3f\n", pair.c_str(), time, ours->second,
                        ours->second / time);
        }
    }

private:
    std::map<std::string, double> medians_;
};

} // namespace

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    benchmark::Initialize(&count, values);
    if (benchmark::ReportUnrecognizedArguments(count, values)) return 2;
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    return 0;
}
