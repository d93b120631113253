// The build plan as a file.
#pragma once

#include "commands/session.h"
#include "paper/paper_size.h"
#include "report/build_plan.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pistaro {

enum class PlanFormat { Html, Pdf };

/// By the file's ending: .html or .pdf, in capital or small letters.
std::optional<PlanFormat> PlanFormatOf(const std::filesystem::path& file);

/// The plan as such a file, a PDF on that paper. Graphics must be there for a PDF.
std::string BuildPlanBytes(const Catalogue& catalogue, const BuildPlan& plan, PlanFormat format,
                           const PaperSize& paper);

/// Asks for a file, and before one is replaced; writes the plan of all tracks, on the paper that was used last, opens
/// it in the viewer, and tells where it is.
void BuildPlanCommand(Session& session);

} // namespace pistaro
