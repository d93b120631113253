#include "storage/recent_circuits.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/locks.h"
#include "storage/folder_line.h"
#include "storage/line_reader.h"
#include "text/crlf_lines.h"

#include <algorithm>
#include <memory>

namespace pistaro {

namespace {

/// Keeps other windows from the list. The lock is that of its folder, since the list itself may not be there yet. Null
/// where nothing is kept or nothing can be locked: no reason to do without the list.
std::unique_ptr<RewriteLock> Locked(const std::filesystem::path& list) {
    if (list.empty()) return nullptr;
    try {
        std::filesystem::create_directories(list.parent_path());
        return std::make_unique<RewriteLock>(list.parent_path());
    } catch (const std::exception&) {
        return nullptr;
    }
}

} // namespace

void RecentCircuits::Read() {
    if (keptIn_.empty()) return;
    try {
        const std::string bytes = ReadFile(keptIn_, MostFileBytes);
        std::vector<std::filesystem::path> read;
        for (LineReader lines(bytes, TextFromPath(keptIn_)); read.size() < Most && !lines.AtEnd();) {
            std::filesystem::path circuit = PathFromText(FolderInLine(lines.Next("a circuit")));
            if (circuit.is_absolute()) read.push_back(std::move(circuit));
        }
        list_ = std::move(read);
    } catch (const std::exception&) {
        return; // what this window knows is all there is
    }
}

void RecentCircuits::Add(const std::filesystem::path& circuit) {
    const std::unique_ptr<RewriteLock> lock = Locked(keptIn_);
    Read();
    if (!list_.empty() && list_.front() == circuit) return;
    std::erase(list_, circuit);
    list_.insert(list_.begin(), circuit);
    if (list_.size() > Most) list_.resize(Most);
    Write();
}

void RecentCircuits::Clear() {
    const std::unique_ptr<RewriteLock> lock = Locked(keptIn_);
    list_.clear();
    Write();
}

void RecentCircuits::Write() const {
    if (keptIn_.empty()) return;
    CrLfLines lines;
    for (const std::filesystem::path& circuit : list_)
        lines << FolderLine(TextFromPath(circuit));
    try {
        ReplaceFile(keptIn_, lines.Take());
    } catch (const std::exception&) {
        return; // the list of this window is right all the same
    }
}

} // namespace pistaro
