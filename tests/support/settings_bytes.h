// Settings files as texts: every section with values short enough to check by eye.
#pragma once

#include <string>
#include <vector>

namespace pistaro {

/// The lines joined with CR LF, the last one ended too.
std::string CrLf(const std::vector<std::string>& lines);

/// A section of owned counts or prices: 28 product lines of value 0, in the order in which an installation brings them.
std::string ProductLines(const std::string& header);

/// The 29 product lines that the loose-track dialog writes, by their values; the others are 0.
std::string SavedProductLines(const std::string& header, const std::vector<std::string>& changed);

/// A settings file with every section: view 0, 0, 320, 160; centimetres, EUR; dots every 10; no room; nothing owned;
/// colours 1 to 6.
std::string WholeSettings();

/// `text` with the one place that reads `from` replaced.
std::string Replaced(std::string text, const std::string& from, const std::string& to);

} // namespace pistaro
