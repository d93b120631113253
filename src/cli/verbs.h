// The verbs' jobs. Each prints its result; what it refuses is a fault.
#pragma once

#include "model/project.h"

#include <filesystem>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

namespace pistaro {

using OptionalPath = std::optional<std::filesystem::path>;

/// A verb's surroundings.
struct VerbContext {
    OptionalPath Settings; ///< named by --settings: in place of the usual file, and may be written
    std::istream& Input;
    std::ostream& Output;
    std::ostream& Errors;
};

struct PictureOptions {
    std::filesystem::path Out;
    int Pixels = 700;
    bool Numbers = false;
    OptionalPath Background;
};

/// What the detail of the statistics shows.
struct DetailOptions {
    int Track = AllTracks; ///< 0..2, or AllTracks
    bool IncludeOwned = false;
};

void LayoutVerb(const VerbContext& context, const std::filesystem::path& circuit);
void StatsVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
               bool json);
/// Into `folder`, or the circuit's own.
void ShopVerb(const VerbContext& context, const std::filesystem::path& circuit, const DetailOptions& options,
              const OptionalPath& folder);
/// Into `folder`, or the circuit's own.
void GuideVerb(const VerbContext& context, const std::filesystem::path& circuit, const OptionalPath& folder);
void PictureVerb(const VerbContext& context, const std::filesystem::path& circuit, const PictureOptions& options);
/// `script` is a file, or "-" for the standard input.
void ScriptVerb(const VerbContext& context, const std::string& script, const OptionalPath& circuit);
void CatalogueVerb(const VerbContext& context, bool json);
void SettingsVerb(const VerbContext& context, bool json);

} // namespace pistaro
