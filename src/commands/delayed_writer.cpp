#include "commands/delayed_writer.h"

#include <algorithm>
#include <utility>

namespace pistaro {

DelayedWriter::~DelayedWriter() {
    thread_.request_stop();
    changed_.notify_all();
}

/// Looks by itself, too, now and then: not every system passes on each notice that comes while a wait begins or ends.
template <typename Condition>
void DelayedWriter::WaitUntil(std::unique_lock<std::mutex>& lock, Condition condition) {
    constexpr std::chrono::milliseconds nap{500};
    while (!condition()) {
        const auto now = std::chrono::steady_clock::now();
        changed_.wait_until(lock, waiting_ && due_ > now ? std::min(due_, now + nap) : now + nap);
    }
}

void DelayedWriter::Later(Write write) {
    const std::scoped_lock lock(mutex_);
    if (!waiting_) due_ = std::chrono::steady_clock::now() + delay_;
    waiting_ = std::move(write);
    if (!thread_.joinable()) thread_ = std::jthread([this](const std::stop_token& stop) { Run(stop); });
    changed_.notify_all();
}

DelayedWriter::Write DelayedWriter::Take(std::unique_lock<std::mutex>& lock) {
    WaitUntil(lock, [this] { return !writes_; });
    return std::exchange(waiting_, nullptr);
}

void DelayedWriter::TryAgainLater(Write write) {
    if (waiting_) return; // what came since stands for it
    waiting_ = std::move(write);
    due_ = std::chrono::steady_clock::now() + delay_;
}

void DelayedWriter::Now() {
    std::unique_lock lock(mutex_);
    if (const Write write = Take(lock); write && !write()) TryAgainLater(write);
}

void DelayedWriter::Forget() {
    std::unique_lock lock(mutex_);
    Take(lock);
}

void DelayedWriter::Run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    const auto isDue = [this] { return waiting_ != nullptr && std::chrono::steady_clock::now() >= due_; };
    while (true) {
        WaitUntil(lock, [&] { return stop.stop_requested() || isDue(); });
        if (stop.stop_requested()) return; // what could not be written waits still
        const Write write = std::exchange(waiting_, nullptr);
        writes_ = true;
        lock.unlock();
        const bool done = write();
        lock.lock();
        writes_ = false;
        if (!done) TryAgainLater(write);
        changed_.notify_all();
    }
}

} // namespace pistaro
