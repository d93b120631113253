// The build plan as a PDF.
#pragma once

#include "paper/paper_size.h"
#include "report/build_plan.h"

#include <string>

namespace pistaro {

/// A page with what one needs and the whole circuit, then up to three steps a page: on the left the pieces and where
/// they lie, on the right the picture as on the plan's page for a browser. The same bytes each time.
std::string BuildPlanPdf(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper);

} // namespace pistaro
