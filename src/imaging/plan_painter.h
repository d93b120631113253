// The pictures of a build plan, painted on a page.
#pragma once

#include "imaging/paper_page.h"
#include "report/plan_picture.h"

#include <QPen>

namespace pistaro {

class PlanPainter {
public:
    PlanPainter(const BuildPlan& plan, PaperPage page) : plan_(plan), page_(page) {}

    /// A step's picture at that scale, where it fits. Gives the part of the world that it shows.
    Box PaintStep(const Box& area, const BuildStep& step, double scale);
    /// All that there is to lay.
    void PaintWhole(const Box& area);
    /// All tracks small, with the pieces of a step and the part of its picture marked.
    void PaintOverview(const Box& area, const BuildStep& step, const Box& shown);

private:
    /// Calls `paint` with a surface that shows the picture, and frames it.
    void PaintPicture(const Box& area, const PlanPicture& picture, const std::function<void(PainterSurface&)>& paint);
    void PaintBeds(PainterSurface& surface, const PlanPicture& picture, const BuildStep& pieces, bool areNew);
    void PaintMarks(PainterSurface& surface, const PlanPicture& picture);
    void PaintBar(PainterSurface& surface, const PlanPicture& picture);
    QPen PenOf(Colour colour, double widthOnPaper) const;

    const BuildPlan& plan_;
    PaperPage page_;
};

} // namespace pistaro
