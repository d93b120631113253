#include "imaging/timeless_pdf.h"

#include <cstdio>

namespace pistaro {

namespace {

/// The number of `digits` digits at a place of the text, moved by `by` when it lies after `after`.
void MoveOffset(std::string& pdf, std::size_t at, std::size_t digits, std::size_t after, std::size_t by) {
    const std::size_t offset = std::stoull(pdf.substr(at, digits));
    if (offset <= after) return;
    std::string moved = std::to_string(offset - by);
    moved.insert(0, digits - std::min(digits, moved.size()), '0');
    pdf.replace(at, digits, moved);
}

} // namespace

std::string WithoutDate(std::string pdf) {
    const std::size_t date = pdf.find("/CreationDate");
    const std::size_t end = pdf.find('\n', date);
    const std::size_t table = pdf.rfind("\nxref\n");
    if (date == std::string::npos || end == std::string::npos || table == std::string::npos) return pdf;
    const std::size_t length = end + 1 - date;
    // "xref", "0 COUNT", then lines of twenty bytes: ten digits of the offset, five of the generation, "n" or "f".
    constexpr std::size_t entry = 20;
    std::size_t at = pdf.find('\n', table + 6) + 1;
    for (; pdf[at] >= '0' && pdf[at] <= '9'; at += entry)
        MoveOffset(pdf, at, 10, date, length);
    const std::size_t start = pdf.find('\n', pdf.find("startxref", at)) + 1;
    const std::size_t offset = std::stoull(pdf.substr(start));
    pdf.replace(start, std::to_string(offset).size(), std::to_string(offset - length));
    pdf.erase(date, length);
    return pdf;
}

} // namespace pistaro
