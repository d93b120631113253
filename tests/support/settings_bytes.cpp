// Settings files put together from their lines.
#include "support/settings_bytes.h"

#include <algorithm>
#include <stdexcept>

namespace pistaro {

namespace {

const std::vector<std::string> Products{"C151",   "C152",   "C153",   "C154",   "C156",   "C157",   "C158",
                                        "C159",   "C160",   "C187",   "N10102", "N10103", "N10104", "N10105",
                                        "N10106", "N10107", "N10108", "N10110", "C164",   "C248",   "C8005",
                                        "C8006",  "C8007",  "C8009",  "C277",   "C367",   "C8010",  "N10111"};

} // namespace

std::string CrLf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

std::string ProductLines(const std::string& header) {
    std::vector<std::string> lines{header};
    for (const std::string& product : Products)
        lines.push_back(product + "=0");
    return CrLf(lines);
}

std::string SavedProductLines(const std::string& header, const std::vector<std::string>& changed) {
    std::vector<std::string> lines{header};
    for (const std::string& product : Products) {
        const auto isOf = [&](const std::string& line) { return line.starts_with(product + "="); };
        const auto found = std::ranges::find_if(changed, isOf);
        const std::string line = found == changed.end() ? product + "=0" : *found;
        lines.insert(lines.end(), product == "C8010" ? 2 : 1, line);
    }
    return CrLf(lines);
}

std::string WholeSettings() {
    return CrLf({"[Working Directory]", "/tracks/"}) +
           CrLf({"[Settings]", "MidX=0", "MidY=0", "Zoom=320", "MWid=160"}) + CrLf({"[Units]", "Type=0", "Curr=EUR"}) +
           CrLf({"[Grid]", "Type=2", "Step=10"}) + CrLf({"[Room]", " 0 ", "0"}) + ProductLines("[My Loose Track]") +
           ProductLines("[Best Prices]") +
           CrLf({"[Colors]", "Background=1", "Inactive=2", "Rail=3", "NonOwned=4", "Owned=5", "Active=6"});
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at == std::string::npos) throw std::logic_error("the text holds no " + from);
    return text.replace(at, from.size(), to);
}

} // namespace pistaro
