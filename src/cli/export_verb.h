// The export verb: a circuit as a file for other programs or for paper.
#pragma once

#include "cli/verbs.h"
#include "commands/export_circuit.h"

namespace pistaro {

/// The verb's options as they were typed.
struct ExportArguments {
    std::string Out, Scale, Paper, DotsPerInch, Track = "all";
    bool Tiles = false, Numbers = false, Grid = false, Room = false, Surface = false, Background = false, Force = false;
};

/// Options' checks: empty for what can be taken.
std::string WhyNoExportFile(const std::string& name);
std::string WhyNoScale(const std::string& text);
std::string WhyNoPaper(const std::string& name);
std::string WhyNoResolution(const std::string& text);

/// The track that "1", "2", "3" or "all" names.
int TrackIn(const std::string& text);

/// Fault: the file is there already, and is not to be replaced.
void CheckMayWrite(const std::filesystem::path& file, bool force);

/// The option that a file of that ending has no use for, and why; empty when there is none.
std::string WhyNotTogether(const ExportArguments& arguments);

/// Writes the file and prints its path. Faults: a file that is there already and is not to be replaced, besides those
/// of drawing and writing.
void ExportVerb(const VerbContext& context, const std::filesystem::path& circuit, const ExportArguments& arguments);

} // namespace pistaro
