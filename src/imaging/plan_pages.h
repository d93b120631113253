// The pages of a build plan, for whatever holds them.
#pragma once

#include "imaging/paper_page.h"
#include "paper/paper_size.h"
#include "report/build_plan.h"

#include <functional>

namespace pistaro {

/// Draws on a page that lies ready, and calls `turn` for each further one until that says that it gives none. Gives how
/// many pages the plan takes.
int DrawPlanPages(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper, const PaperPage& page,
                  const std::function<bool()>& turn);

} // namespace pistaro
