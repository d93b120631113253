// Jobs that a verb waits for.
#pragma once

#include "model/job.h"
#include "platform/processes.h"

#include <ostream>

namespace pistaro {

/// The line in which a terminal shows how far a job is; it ends however the job does.
class ProgressLine {
public:
    ProgressLine(std::ostream& errors, const char* what) : errors_(errors), what_(what) {}
    ~ProgressLine() {
        if (shown_) errors_ << '\n' << std::flush;
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(int done, int total) {
        shown_ = true;
        errors_ << '\r' << what_ << ": " << done << " of " << total << std::flush;
    }

private:
    std::ostream& errors_;
    const char* what_;
    bool shown_ = false;
};

/// What a job gives that is waited for: shown on a terminal, and stopped by Ctrl+C.
template <typename Work>
auto InForeground(const Interruptions& interruptions, std::ostream& errors, const char* what, Work work) {
    JobWatch watch{.Progress = {}, .Stop = interruptions.Stop()};
    ProgressLine line(errors, what);
    if (StandardErrorIsTerminal()) watch.Progress = [&](int done, int total) { line.Show(done, total); };
    return work(watch);
}

} // namespace pistaro
