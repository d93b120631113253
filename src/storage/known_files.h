// What the program last read or wrote of its files, by which it sees that another program changed one.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace pistaro {

class KnownFiles {
public:
    /// The program has just read or written these bytes. Gives whether it knew something else of that file.
    bool Remember(const std::filesystem::path& file, std::string bytes);

    /// Whether something else stands in the file than the program knows of, as there does in one that cannot be read. A
    /// file that it does not know and one that is gone are not changed.
    bool IsChanged(const std::filesystem::path& file) const { return OtherBytes(file).has_value(); }

    /// The same, true once for each change.
    bool IsNewlyChanged(const std::filesystem::path& file);

private:
    struct Known {
        std::string Bytes;
        std::optional<std::string> Seen; ///< what stood there when a change was told last
    };

    std::optional<std::string> OtherBytes(const std::filesystem::path& file) const;

    std::map<std::filesystem::path, Known> files_;
};

} // namespace pistaro
