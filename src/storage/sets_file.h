// The file of boxed sets: TOML, a table a set.
#pragma once

#include "catalogue/catalogue.h"
#include "model/boxed_set.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pistaro {

inline constexpr const char* SetsName = "sets.toml";
inline constexpr int MostInASet = 10000; ///< pieces of a product

/// The sets in a file's text, whose name faults tell beside the line: a set has a name, a price and pieces, which are
/// counts by product code.
///
///     [[set]]
///     name = "Starter set"
///     price = 79.95
///     pieces = { C160 = 4, C151 = 8 }
BoxedSets ParseSets(const Catalogue& catalogue, std::string_view text, const std::string& name);

/// The same of a file. Faults: it cannot be read.
BoxedSets ReadSets(const Catalogue& catalogue, const std::filesystem::path& file);

/// Those of the file beside the settings; nothing where there is none, or no settings file to be beside. Faults: it
/// cannot be read.
std::optional<BoxedSets> SetsBeside(const Catalogue& catalogue, const std::filesystem::path& settings);

/// The sets' text, with a comment at its head that tells how it is written.
std::string SetsText(const Catalogue& catalogue, const BoxedSets& sets);

/// What somebody who has no file of sets begins with: made up, to be overwritten by what the shop sells.
BoxedSets ExampleSets(const Catalogue& catalogue);

} // namespace pistaro
