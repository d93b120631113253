#include "imaging/build_plan_preview.h"

#include "imaging/plan_pages.h"

#include <QPainter>

namespace pistaro {

PlanPreview PreviewBuildPlan(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper,
                             double dotsPerInch, std::size_t most) {
    const QSizeF dots = QSizeF(paper.Width, paper.Height) * (dotsPerInch / CmPerInch);
    PlanPreview preview;
    preview.Pages.reserve(most); // a painter must find its page where it was
    QPainter painter;
    const auto begin = [&] {
        if (painter.isActive()) painter.end();
        if (preview.Pages.size() == most) return false;
        preview.Pages.emplace_back(dots.toSize(), QImage::Format_RGB32).fill(Qt::white);
        painter.begin(&preview.Pages.back());
        painter.setRenderHint(QPainter::Antialiasing);
        return true;
    };
    begin();
    preview.Count = DrawPlanPages(catalogue, plan, paper, PaperPage(painter, paper.Height, dotsPerInch), begin);
    return preview;
}

} // namespace pistaro
