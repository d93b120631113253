// The calls that a job's thread posts to its owner, kept until the test makes them.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stdexcept>

namespace pistaro {

class PostedCalls {
public:
    using Call = std::function<void()>;

    void Put(Call call) {
        const std::scoped_lock lock(mutex_);
        calls_.push_back(std::move(call));
        posted_.notify_one();
    }

    /// The next call, which is waited for, ten seconds at most.
    Call Take() {
        std::unique_lock lock(mutex_);
        Wait(lock, 1);
        Call call = std::move(calls_.front());
        calls_.pop_front();
        return call;
    }

    /// Waits until so many calls stand there, ten seconds at most.
    void WaitFor(std::size_t count) {
        std::unique_lock lock(mutex_);
        Wait(lock, count);
    }

    /// Makes the calls that stand there now.
    void MakeAll() {
        std::deque<Call> calls;
        {
            const std::scoped_lock lock(mutex_);
            calls.swap(calls_);
        }
        for (const Call& call : calls)
            call();
    }

private:
    void Wait(std::unique_lock<std::mutex>& lock, std::size_t count) {
        using namespace std::chrono_literals;
        if (!posted_.wait_for(lock, 10s, [&] { return calls_.size() >= count; }))
            throw std::runtime_error("nothing was posted");
    }

    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<Call> calls_;
};

} // namespace pistaro
