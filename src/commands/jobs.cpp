// What a job's thread posts finds out by a weak pointer whether anybody still waits for it: all of that is looked at on
// the owner's thread alone.
#include "commands/jobs.h"

#include <exception>

namespace pistaro {

namespace {

/// The job's end; where it faults, one that throws the fault.
JobEnd EndOf(const Job& job, const JobWatch& watch) {
    try {
        return job.Work(watch);
    } catch (...) {
        return [fault = std::current_exception()] { std::rethrow_exception(fault); };
    }
}

} // namespace

void Jobs::Start(const Job& job, std::function<void(JobEnd)> finish, std::function<void(int, int)> progress) {
    Cancel();
    if (!post_) {
        finish(EndOf(job, {std::move(progress), {}}));
        return;
    }
    running_ = std::make_shared<Running>();
    running_->Job = job;
    running_->Finish = std::move(finish);
    running_->Progress = std::move(progress);
    const std::weak_ptr<Running> waiting = running_;
    const auto tell = [post = post_, waiting](int done, int total) {
        post([waiting, done, total] {
            if (const auto running = waiting.lock(); running && running->Progress) running->Progress(done, total);
        });
    };
    running_->Thread = std::jthread([this, job, post = post_, waiting, tell](const std::stop_token& stop) {
        JobEnd end = EndOf(job, {tell, stop});
        post([this, waiting, end = std::move(end)] {
            if (!waiting.expired()) Finish(end);
        });
    });
}

void Jobs::Finish(const JobEnd& end) {
    const std::shared_ptr<Running> ended = std::move(running_); // the next job may be started by this one's end
    ended->Finish(end);
}

void Jobs::Cancel() {
    if (!running_) return;
    const std::shared_ptr<Running> cancelled = std::move(running_);
    cancelled->Thread.request_stop();
    if (cancelled->Thread.joinable()) cancelled->Thread.join();
}

} // namespace pistaro
