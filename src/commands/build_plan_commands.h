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

/// ".html".
const char* EndingOf(PlanFormat format);

/// Asks for a file of that format, of the other one where its user types so, and before one is replaced. Writes the
/// plan, opens it in the viewer, and tells where it is. Gives the format that was written; nothing where the user gave
/// no file or said no.
std::optional<PlanFormat> WriteBuildPlan(Session& session, const BuildPlan& plan, PlanFormat format,
                                         const PaperSize& paper);

} // namespace pistaro
