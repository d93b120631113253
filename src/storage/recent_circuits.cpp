#include "storage/recent_circuits.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "storage/folder_line.h"
#include "storage/line_reader.h"
#include "text/crlf_lines.h"

#include <algorithm>

namespace pistaro {

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
    Read();
    if (!list_.empty() && list_.front() == circuit) return;
    std::erase(list_, circuit);
    list_.insert(list_.begin(), circuit);
    if (list_.size() > Most) list_.resize(Most);
    Write();
}

void RecentCircuits::Clear() {
    list_.clear();
    Write();
}

void RecentCircuits::Write() const {
    if (keptIn_.empty()) return;
    CrLfLines lines;
    for (const std::filesystem::path& circuit : list_)
        lines << FolderLine(TextFromPath(circuit));
    try {
        std::filesystem::create_directories(keptIn_.parent_path());
        ReplaceFile(keptIn_, lines.Take());
    } catch (const std::exception&) {
        return; // the list of this window is right all the same
    }
}

} // namespace pistaro
