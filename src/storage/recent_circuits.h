// The circuits that were loaded and saved last, kept from start to start in a file of their own.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

namespace pistaro {

class RecentCircuits {
public:
    static constexpr std::size_t Most = 10;

    /// In that file, one circuit a line; with an empty path nothing is kept.
    explicit RecentCircuits(std::filesystem::path keptIn = {}) : keptIn_(std::move(keptIn)) {}

    /// Reads the file, which another window may have written meanwhile. Where it is not there, or is no list, this
    /// window's own stays.
    void Read();

    /// Newest first, as the file was read last.
    const std::vector<std::filesystem::path>& List() const { return list_; }

    /// Puts a circuit in front. A list that cannot be written is no reason to bother whoever loads or saves.
    void Add(const std::filesystem::path& circuit);

    void Clear();

private:
    void Write() const;

    std::filesystem::path keptIn_;
    std::vector<std::filesystem::path> list_;
};

} // namespace pistaro
