#include "paper/paper_size.h"

#include <algorithm>

namespace pistaro {

namespace {

char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

std::optional<PaperSize> FindPaper(std::string_view name) {
    for (const PaperSize& paper : PaperSizes) {
        if (std::ranges::equal(name, std::string_view(paper.Name), {}, Small, Small)) return paper;
    }
    return std::nullopt;
}

std::string PaperNames() {
    std::string names;
    for (const PaperSize& paper : PaperSizes)
        names += (names.empty() ? "" : ", ") + std::string(paper.Name);
    return names;
}

} // namespace pistaro
