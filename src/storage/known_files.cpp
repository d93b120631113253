// The time of a file tells nothing: some programs keep it, others touch files that they leave alone. Circuits are
// small, so that the bytes themselves are looked at.
#include "storage/known_files.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "storage/line_reader.h"

namespace pistaro {

bool KnownFiles::Remember(const std::filesystem::path& file, std::string bytes) {
    const auto known = files_.find(file);
    const bool other = known != files_.end() && known->second.Bytes != bytes;
    files_[file] = {std::move(bytes), std::nullopt};
    return other;
}

bool KnownFiles::IsNewlyChanged(const std::filesystem::path& file) {
    std::optional<std::string> bytes = OtherBytes(file);
    if (!bytes || files_[file].Seen == bytes) return false;
    files_[file].Seen = std::move(bytes);
    return true;
}

/// Of a file that cannot be read, why: that tells one such change from the next.
std::optional<std::string> KnownFiles::OtherBytes(const std::filesystem::path& file) const {
    const auto known = files_.find(file);
    std::error_code gone;
    if (known == files_.end() || !std::filesystem::is_regular_file(file, gone)) return std::nullopt;
    try {
        std::string bytes = ReadFile(file, MostFileBytes);
        if (bytes != known->second.Bytes) return bytes;
    } catch (const Fault& fault) {
        return fault.what(); // it could be read when it became known
    }
    return std::nullopt;
}

} // namespace pistaro
