// The first pages of a build plan as pictures.
#pragma once

#include "paper/paper_size.h"
#include "report/build_plan.h"

#include <QImage>

#include <vector>

namespace pistaro {

struct PlanPreview {
    std::vector<QImage> Pages;
    int Count = 0; ///< of all pages
};

/// The pages of the plan's PDF, the first `most` of them, which is at least 1.
PlanPreview PreviewBuildPlan(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper,
                             double dotsPerInch, std::size_t most);

} // namespace pistaro
