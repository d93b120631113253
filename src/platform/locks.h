// How programs that run at once keep out of each other's files.
#pragma once

#include <cstdint>
#include <filesystem>

namespace pistaro {

/// While it lives no other program that takes the same lock rewrites the file. Leaves nothing behind, however the
/// program ends. On a disk that knows no locks, and for a file that is not there, it does nothing.
class RewriteLock {
public:
    /// Waits while another holds the lock. Fault where that lasts for seconds.
    explicit RewriteLock(const std::filesystem::path& file);
    ~RewriteLock();
    RewriteLock(const RewriteLock&) = delete;
    RewriteLock& operator=(const RewriteLock&) = delete;

private:
    std::intptr_t handle_;
};

/// A file by which others see that this program lives. It goes with this object; that of a program that was killed may
/// stay, and says then that it lives no more.
class LifeSign {
public:
    /// Fault where the file cannot be made.
    explicit LifeSign(std::filesystem::path file);
    ~LifeSign();
    LifeSign(const LifeSign&) = delete;
    LifeSign& operator=(const LifeSign&) = delete;

    /// Whether the program that made such a file lives.
    static bool IsAlive(const std::filesystem::path& file);

private:
    std::filesystem::path file_;
    std::intptr_t handle_;
};

} // namespace pistaro
