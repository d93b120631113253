// What long work takes to tell how far it is, and to be stopped.
#pragma once

#include <exception>
#include <functional>
#include <stop_token>

namespace pistaro {

/// Work that was stopped before its end. It has changed nothing.
class Stopped : public std::exception {
public:
    const char* what() const noexcept override { return "stopped"; }
};

inline void ThrowIfStopped(const std::stop_token& stop) {
    if (stop.stop_requested()) throw Stopped();
}

/// What a job reports to and asks: a job is a function on copies of its inputs that ends with a value.
struct JobWatch {
    std::function<void(int done, int total)> Progress; ///< may be empty
    std::stop_token Stop;

    /// Tells how far the work is. Throws Stopped when it shall go no further.
    void Step(int done, int total) const {
        ThrowIfStopped(Stop);
        if (Progress) Progress(done, total);
    }
};

} // namespace pistaro
