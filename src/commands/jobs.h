// Long work beside the window: on a thread of its own, one piece at a time.
#pragma once

#include "model/job.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace pistaro {

/// What is left to do with a job's result, where its user lives: it may throw what ended the job.
using JobEnd = std::function<void()>;

/// Works on copies, and gives what is to be done with its result.
using JobWork = std::function<JobEnd(const JobWatch&)>;

/// A piece of long work, with the words for it.
struct Job {
    std::string Name;       ///< before how far it is: "Drawing the guide"
    std::string IsUnderWay; ///< why no other one can begin: "The guide is being drawn."

    JobWork Work;
};

class Jobs {
public:
    /// Has a function called later, on the thread that owns the jobs.
    using Post = std::function<void(std::function<void()>)>;

    Jobs() = default;
    ~Jobs() { Cancel(); }
    Jobs(const Jobs&) = delete;
    Jobs& operator=(const Jobs&) = delete;

    /// From now on jobs run beside their owner; without this, and with an empty one, Start returns when they have
    /// ended.
    void RunBeside(Post post) { post_ = std::move(post); }
    bool RunsBeside() const { return post_ != nullptr; }

    /// Runs `job`, hands its end to `finish` on the owner's thread, and tells `progress` there how far it is. One that
    /// runs already is cancelled first.
    void Start(const Job& job, std::function<void(JobEnd)> finish, std::function<void(int, int)> progress);

    bool IsRunning() const { return running_ != nullptr; }

    /// The job that runs beside its owner, or null.
    const Job* Current() const { return running_ ? &running_->Job : nullptr; }

    /// Stops the job that runs, if one does, and waits until it has stopped. Its end is not run.
    void Cancel();

private:
    struct Running {
        pistaro::Job Job;
        std::jthread Thread;
        std::function<void(JobEnd)> Finish;
        std::function<void(int, int)> Progress;
    };

    void Finish(const JobEnd& end);

    Post post_;
    std::shared_ptr<Running> running_;
};

} // namespace pistaro
