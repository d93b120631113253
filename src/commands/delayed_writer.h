// Writes beside whoever changes what is written: often enough that little is lost, and never more often.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace pistaro {

class DelayedWriter {
public:
    using Write = std::function<bool()>; ///< whether it is done; must not throw

    /// Each write is done at most `delay` after the first that it stands for; one that fails is tried again as often.
    explicit DelayedWriter(std::chrono::milliseconds delay) : delay_(delay) {}

    /// Does not do what still waits.
    ~DelayedWriter();
    DelayedWriter(const DelayedWriter&) = delete;
    DelayedWriter& operator=(const DelayedWriter&) = delete;

    /// Has `write` done on another thread. It takes the place of one that waits, but not a later time: under changes
    /// without end there are writes all the same.
    void Later(Write write);

    /// Does here what waits, and returns when nothing is being written any more.
    void Now();

    /// The same, but drops what waits.
    void Forget();

private:
    void Run(const std::stop_token& stop);
    void TryAgainLater(Write write);
    template <typename Condition>
    void WaitUntil(std::unique_lock<std::mutex>& lock, Condition condition);
    /// What waits, when no other write is being done.
    Write Take(std::unique_lock<std::mutex>& lock);

    const std::chrono::milliseconds delay_;
    std::mutex mutex_;
    std::condition_variable changed_;
    Write waiting_;
    std::chrono::steady_clock::time_point due_;
    bool writes_ = false;
    std::jthread thread_; ///< the last member: it uses the others
};

} // namespace pistaro
