// The plan verb: the build plan as a page for a browser or as a PDF.
#pragma once

#include "cli/verbs.h"

namespace pistaro {

/// The verb's options as they were typed.
struct PlanArguments {
    std::string Out, Paper, Track = "all";
    bool Force = false;
};

/// An option's check: empty for a file's ending that can be written.
std::string WhyNoPlanFile(const std::string& name);

/// The option that a file of that ending has no use for, and why; empty when there is none.
std::string WhyNotTogether(const PlanArguments& arguments);

/// Writes the plan, a PDF on A4 unless another paper is named, and prints its path; tells which elements it leaves out.
/// Faults: a file that is there already and is not to be replaced, besides those of drawing and writing.
void PlanVerb(const VerbContext& context, const std::filesystem::path& circuit, const PlanArguments& arguments);

} // namespace pistaro
