#include "platform/temporary_files.h"

#include "platform/files.h"

#include <chrono>

namespace pistaro {

namespace {

bool IsTemporary(const std::filesystem::directory_entry& entry) {
    const std::string name = TextFromPath(entry.path().filename());
    std::error_code gone;
    return name.starts_with(TemporaryBeginning) && name.ends_with(TemporaryEnding) &&
           entry.symlink_status(gone).type() == std::filesystem::file_type::regular;
}

} // namespace

void SweepTemporaries(const std::filesystem::path& folder) {
    const auto dayBefore = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    std::error_code failed; // what cannot be swept now, is at a later start
    auto entry = std::filesystem::directory_iterator(folder, failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
        if (!IsTemporary(*entry)) continue;
        std::error_code gone;
        if (entry->last_write_time(gone) < dayBefore && !gone) std::filesystem::remove(entry->path(), gone);
    }
}

} // namespace pistaro
