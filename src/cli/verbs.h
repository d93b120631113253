// The verbs' jobs. Each prints its result; what it refuses is a fault.
#pragma once

#include "imaging/circuit_picture.h"
#include "model/project.h"

#include <exception>
#include <filesystem>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

namespace pistaro {

/// Ends a verb whose result is printed, and bad: the exit status is 1, and nothing more is told.
class BadResult : public std::exception {
public:
    const char* what() const noexcept override { return "the result is bad"; }
};

using OptionalPath = std::optional<std::filesystem::path>;

/// A verb's surroundings.
struct VerbContext {
    const pistaro::Catalogue& Catalogue;
    OptionalPath SettingsFile; ///< named by --settings: in place of the usual file, and may be written
    std::istream& Input;
    std::ostream& Output;
    std::ostream& Errors;
};

/// Has all that was printed reach where it goes. Fault "Disk full" when it cannot.
void FlushOutput(const VerbContext& context);

struct PictureOptions {
    std::filesystem::path Out;
    int Pixels = DefaultPicturePixels;
    bool Numbers = false;
    OptionalPath Background;
    bool Surface = false; ///< tracks as they look
};

/// What the detail of the statistics shows.
struct DetailOptions {
    int Track = AllTracks; ///< 0..2, or AllTracks
    bool IncludeOwned = false;
};

/// Prints where every piece lies, as one JSON line.
void LayoutVerb(const VerbContext& context, const std::filesystem::path& circuit);
/// Prints the statistics as one JSON line or as tables.
void StatsVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
               bool json);
/// Prints what the checks find in the circuit, as one JSON line or as a table. Throws BadResult where an error is.
void CheckVerb(const VerbContext& context, const std::filesystem::path& circuit, bool json);
/// Prints the rules by which is checked. A circuit that is named is read, so that a slip in its name is told.
void RulesVerb(const VerbContext& context, const OptionalPath& circuit, bool json);
/// Prints the fewest changes that balance the lanes of a track, or of each that has pieces.
void BalanceVerb(const VerbContext& context, const std::filesystem::path& circuit, int track, bool json);
/// Prints the cheapest way to buy what is missing. `sets` is the file of boxed sets, or none for the one beside the
/// settings, if there is one.
void BuyVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& sets, bool json);
/// Writes the shopping list into `folder`, or the circuit's own, and prints its path; with `csv` the same list for
/// spreadsheets beside it.
void ShopVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
              const OptionalPath& folder, bool csv);
/// Writes the design guide into `folder`, or the circuit's own, and prints the path of every file of it.
void GuideVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& folder);
/// Draws the circuit into the picture file and prints its path.
void PictureVerb(const VerbContext& context, const std::filesystem::path& circuit, const PictureOptions& options);
/// Runs a script on the circuit, or on an empty one. `script` is a file, or "-" for the standard input.
void ScriptVerb(const VerbContext& context, const std::string& script, const OptionalPath& circuit);
/// Prints the catalogue as one JSON line or as a table.
void CatalogueVerb(const VerbContext& context, bool json);
/// Prints the settings, as they were read, as one JSON line or as a table.
void SettingsVerb(const VerbContext& context, bool json);

} // namespace pistaro
