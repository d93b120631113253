#include "imaging/build_plan_pdf.h"

#include "imaging/paper_page.h"
#include "imaging/pdf_document.h"
#include "render/redraw.h"
#include "text/number_text.h"

namespace pistaro {

namespace {

constexpr double Margin = 1.5;     ///< cm
constexpr double LineHeight = 0.5; ///< of a list
constexpr double TitleHeight = 0.9;
constexpr double ListWidth = 6;
constexpr double TitlePoints = 13;
constexpr Colour Before = Rgb(160, 160, 160);
constexpr Colour Black = Rgb(0, 0, 0);
constexpr PenWidth NewPen{0.7, PenWidth::Unit::Millimetres};

void DrawStepPicture(const CircuitDrawing& drawing, const BuildStep& step, Surface& surface) {
    const auto piece = [&](int at) -> const DrawnPiece& { return drawing.Pieces[static_cast<std::size_t>(at)]; };
    for (int at = 0; at < step.First; ++at)
        DrawPiece(piece(at).Placement, Before, Before, surface);
    surface.SetPen(NewPen);
    for (int at = step.First; at <= step.Last; ++at)
        DrawPiece(piece(at).Placement, Black, Black, surface);
    for (int at = step.First; at <= step.Last; ++at) {
        surface.DrawPoint(piece(at).Placement.Label, Black);
        surface.DrawText(NumberText(piece(at).Index), Black);
    }
}

/// The plan on the halves of upright pages: what one needs first, then step after step.
class PlanPages {
public:
    PlanPages(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper)
        : catalogue_(catalogue), plan_(plan), paper_(paper), document_(plan.Drawing.Name, paper.Width, paper.Height) {}

    std::string Bytes() {
        DrawNeeded();
        for (std::size_t step = 0; step < plan_.Steps.size(); ++step)
            DrawStep(step);
        return document_.Bytes();
    }

private:
    PaperPage Page() { return {document_.Painter(), paper_.Height, PdfDocument::DotsPerInch}; }

    /// The next half of a page that is free; on a new page where both are taken.
    Box NextHalf() {
        const bool lower = halves_ % 2 == 1;
        if (!lower && halves_ > 0) document_.NewPage();
        ++halves_;
        const double middle = paper_.Height / 2;
        return {Margin, lower ? Margin : middle, paper_.Width - Margin, lower ? middle : paper_.Height - Margin};
    }

    /// One below the other from the top of an area; those for which there is no room are not.
    void DrawLines(const Box& area, const std::vector<std::string>& lines) {
        double top = area.Top;
        for (const std::string& line : lines) {
            if (top - LineHeight < area.Bottom) return;
            Page().Words({area.Left, top - LineHeight, area.Right, top}, line, Qt::AlignLeft);
            top -= LineHeight;
        }
    }

    void DrawNeeded() {
        Box half = NextHalf();
        Page().Words(half,
                     plan_.Drawing.Name + ": build plan, " + std::to_string(plan_.Drawing.Pieces.size()) + " pieces",
                     Qt::AlignLeft, TitlePoints);
        half.Top -= TitleHeight;
        std::vector<std::string> lines;
        for (const NeededPieces& needed : plan_.Needed)
            lines.push_back(std::to_string(needed.Count) + " × " + needed.Code + "  " + needed.Name);
        const auto room = static_cast<std::size_t>(half.Height() / LineHeight);
        const auto first = lines.begin();
        const auto parting = first + static_cast<std::ptrdiff_t>(std::min(room, lines.size()));
        DrawLines({half.Left, half.Bottom, half.MiddleX(), half.Top}, {first, parting});
        DrawLines({half.MiddleX(), half.Bottom, half.Right, half.Top}, {parting, lines.end()});
    }

    void DrawStep(std::size_t number) {
        const BuildStep& step = plan_.Steps[number];
        Box half = NextHalf();
        Page().Words(half, "Step " + std::to_string(number + 1) + ": " + plan_.TitleOf(step), Qt::AlignLeft,
                     TitlePoints);
        half.Top -= TitleHeight;
        DrawLines({half.Left, half.Bottom, half.Left + ListWidth, half.Top}, plan_.LinesOf(catalogue_, step));
        const Box area{half.Left + ListWidth, half.Bottom + 0.5, half.Right, half.Top};
        const Box& extent = plan_.Drawing.Extent;
        const double scale =
            1.04 * std::max(extent.Width() / area.Width(), extent.Height() / area.Height()); // room for thick lines
        const Box part = BoxAround(extent.MiddleX(), extent.MiddleY(), area.Width() * scale, area.Height() * scale);
        Page().InArea(area, part, part, scale,
                      [&](Surface& surface) { DrawStepPicture(plan_.Drawing, step, surface); });
    }

    const Catalogue& catalogue_;
    const BuildPlan& plan_;
    PaperSize paper_;
    PdfDocument document_;
    int halves_ = 0; ///< of pages, taken so far
};

} // namespace

std::string BuildPlanPdf(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper) {
    return PlanPages(catalogue, plan, paper).Bytes();
}

} // namespace pistaro
