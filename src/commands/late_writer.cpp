#include "commands/late_writer.h"

#include <utility>

namespace pistaro {

void LateWriter::Later(Write write) {
    const std::scoped_lock lock(mutex_);
    if (!waiting_) due_ = std::chrono::steady_clock::now() + delay_;
    waiting_ = std::move(write);
    if (!thread_.joinable()) thread_ = std::jthread([this](const std::stop_token& stop) { Run(stop); });
    changed_.notify_all();
}

LateWriter::Write LateWriter::Take(std::unique_lock<std::mutex>& lock) {
    changed_.wait(lock, [this] { return !writes_; });
    return std::exchange(waiting_, nullptr);
}

void LateWriter::Now() {
    std::unique_lock lock(mutex_);
    if (const Write write = Take(lock)) write();
}

void LateWriter::Forget() {
    std::unique_lock lock(mutex_);
    Take(lock);
}

void LateWriter::Run(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (changed_.wait(lock, stop, [this] { return waiting_ != nullptr; })) {
        const bool taken = changed_.wait_until(lock, stop, due_, [this] { return waiting_ == nullptr; });
        if (taken || stop.stop_requested()) continue;
        const Write write = std::exchange(waiting_, nullptr);
        writes_ = true;
        lock.unlock();
        write();
        lock.lock();
        writes_ = false;
        changed_.notify_all();
    }
}

} // namespace pistaro
