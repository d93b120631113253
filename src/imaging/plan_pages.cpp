#include "imaging/plan_pages.h"

#include "imaging/plan_painter.h"
#include "text/count_text.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace pistaro {

namespace {

constexpr double Margin = 1.5; ///< cm, as all lengths here
constexpr double FooterHeight = 0.9;
constexpr double LineHeight = 0.46; ///< of a step's list
constexpr double ListWidth = 6.2;
constexpr double NumberWidth = 0.9; ///< of the list's columns
constexpr double CodeWidth = 1.7;
constexpr double LeastStep = 11; ///< so high at least
constexpr double LeastStepBelowHead = 9.5;
constexpr double HighestStep = 13;
constexpr double Gap = 0.3;
constexpr double RuleGap = 0.15; ///< below the line above a step
constexpr double TitleHeight = 0.75;

/// How many steps each page of steps shows: as many as there is room for, and about as many on each.
std::vector<int> StepsOfPages(int steps, int most) {
    const int pages = (steps + most - 1) / most;
    std::vector<int> counts;
    counts.reserve(static_cast<std::size_t>(pages));
    for (int page = 0; page < pages; ++page)
        counts.push_back(steps * (page + 1) / pages - steps * page / pages);
    std::ranges::sort(counts, std::greater());
    return counts;
}

class PlanPages {
public:
    PlanPages(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper, PaperPage page)
        : catalogue_(catalogue),
          plan_(plan), content_{Margin, Margin + FooterHeight, paper.Width - Margin, paper.Height - Margin},
          page_(page), pictures_(plan, page_) {}

    /// Calls `turn` before each page but the first; no more are drawn when it says so.
    int Draw(const std::function<bool()>& turn) {
        const Box below = DrawHead();
        const int steps = static_cast<int>(plan_.Steps.size());
        constexpr double rounding = 1e-6; // the head leaves room for whole steps
        const double room = std::max(0.0, below.Height()) / LeastStepBelowHead + rounding;
        const int first = std::min(steps, static_cast<int>(room));
        stepsOfPages_ = StepsOfPages(steps - first, std::clamp(static_cast<int>(content_.Height() / LeastStep), 1, 3));
        const int most = stepsOfPages_.empty() ? 0 : stepsOfPages_.front();
        scales_ = StepScales(plan_, SmallestPicture(StepHeight(first, below), StepHeight(most, content_)));
        DrawSteps(first, below);
        DrawFooter();
        for (const int count : stepsOfPages_) {
            if (!turn()) break;
            ++number_;
            DrawSteps(count, content_);
            DrawFooter();
        }
        return 1 + static_cast<int>(stepsOfPages_.size());
    }

private:
    /// Of so many steps below each other.
    static double StepHeight(int count, const Box& area) {
        return count == 0 ? HighestStep : std::min(HighestStep, area.Height() / count);
    }

    PictureArea SmallestPicture(double oneStep, double otherStep) const {
        return {content_.Width() - ListWidth, std::min(oneStep, otherStep) - Gap - RuleGap - TitleHeight};
    }

    /// The next steps, below each other, in equal parts of an area.
    void DrawSteps(int count, const Box& area) {
        const double height = StepHeight(count, area);
        for (int at = 0; at < count; ++at) {
            const double top = area.Top - at * height;
            DrawStep(step_++, {area.Left, top - height + Gap, area.Right, top});
        }
    }

    /// Draws a line of words at the top of an area, and takes it off that.
    void Line(Box& area, double height, const std::string& text, double points, QFont::Weight weight) {
        page_.Words(area, text, Qt::AlignLeft, points, weight);
        area.Top -= height;
    }

    void Rule(double left, double right, double y, Colour colour) {
        page_.OnPaper(content_, [&](Surface& surface) { DrawLine(surface, left, y, right, y, colour); });
    }

    void DrawFooter() {
        const Box footer{content_.Left, Margin, content_.Right, Margin + 0.4};
        page_.Words(footer, plan_.Drawing.Name + ": build plan", Qt::AlignLeft, 8);
        page_.Words(footer, "page " + std::to_string(number_) + " of " + std::to_string(1 + stepsOfPages_.size()),
                    Qt::AlignRight, 8);
    }

    /// Gives what is left of the page below the head.
    Box DrawHead() {
        Box area = content_;
        Line(area, 1.1, plan_.Drawing.Name + ": build plan", 20, QFont::Bold);
        for (const std::string& fact : plan_.Facts())
            area.Top -= page_.Paragraph(area, fact, 10) + 0.15;
        if (!plan_.Steps.empty()) area.Top -= page_.Paragraph(area, BuildPlan::OnNumbers, 10) + 0.15;
        area.Top -= 0.3;
        Line(area, 0.8, "What you need: " + CountText(plan_.Drawing.Pieces.size(), "piece"), 13, QFont::Bold);
        area.Top -= DrawNeeded(area) + 0.4;
        constexpr double leastPicture = 4;
        if (plan_.Steps.empty() || area.Height() < leastPicture) return {};
        Box picture = area;
        picture.Bottom = area.Top - HeightOfWhole(area);
        pictures_.PaintWhole(picture);
        return {area.Left, area.Bottom, area.Right, picture.Bottom - Gap};
    }

    /// As high as the circuit is in an area's width, or lower where another step has room below it then; all of an area
    /// that has no room for a step.
    double HeightOfWhole(const Box& area) const {
        constexpr double around = 2.2;   // for numbers that stand aside
        constexpr double smallest = 0.7; // of its height
        const Box& extent = plan_.Drawing.Extent;
        const double fitting = (area.Width() - around) * extent.Height() / extent.Width() + around;
        const double below = area.Height() - Gap;
        const double room = std::floor((below - fitting * smallest) / LeastStepBelowHead);
        const double steps = std::min(room, static_cast<double>(plan_.Steps.size()));
        return steps < 1 ? area.Height() : std::min(fitting, below - steps * LeastStepBelowHead);
    }

    /// The table of counts, in two columns unless it is short. Gives how high it is.
    double DrawNeeded(const Box& area) {
        constexpr double rowHeight = 0.6;
        constexpr std::size_t longest = 3;
        const std::size_t rows = plan_.Needed.size();
        const std::size_t inColumn = rows > longest ? (rows + 1) / 2 : rows;
        const double width = (area.Width() - 2 * Gap) / 2;
        for (std::size_t at = 0; at < rows; ++at) {
            const double left = area.Left + (at < inColumn ? 0 : width + 2 * Gap);
            const double top = area.Top - rowHeight * static_cast<double>(at < inColumn ? at : at - inColumn);
            DrawNeeded(plan_.Needed[at], {left, top - rowHeight, left + width, top});
        }
        return rowHeight * static_cast<double>(inColumn);
    }

    void DrawNeeded(const NeededPieces& needed, Box row) {
        row.Top -= 0.08;
        const double code = row.Left + 1.4, name = code + 1.9;
        page_.Words({row.Left, row.Bottom, code - 0.3, row.Top}, std::to_string(needed.Count) + " ×", Qt::AlignRight,
                    11);
        page_.Words({code, row.Bottom, name, row.Top}, needed.Code, Qt::AlignLeft, 11, QFont::Bold);
        page_.Words({name, row.Bottom, row.Right, row.Top}, needed.Name, Qt::AlignLeft, 11);
        Rule(row.Left, row.Right, row.Bottom, Rgb(0xCC, 0xCC, 0xCC));
    }

    void DrawStep(std::size_t number, Box area) {
        const BuildStep& step = plan_.Steps[number];
        Rule(area.Left, area.Right, area.Top, Rgb(0, 0, 0));
        area.Top -= RuleGap;
        Line(area, TitleHeight, "Step " + std::to_string(number + 1) + ": " + plan_.TitleOf(step), 13, QFont::Bold);
        const Box shown =
            pictures_.PaintStep({area.Left + ListWidth, area.Bottom, area.Right, area.Top}, step, scales_[number]);
        Box list{area.Left, area.Bottom, area.Left + ListWidth - Gap, area.Top};
        DrawList(list, step);
        list.Top = area.Top - LineHeight * PiecesOfAStep - 0.1;
        pictures_.PaintOverview(list, step, shown);
    }

    void DrawList(Box list, const BuildStep& step) {
        for (const StepLine& line : plan_.LinesOf(catalogue_, step)) {
            const double code = list.Left + NumberWidth, name = code + CodeWidth;
            page_.Words({list.Left, list.Bottom, code - 0.2, list.Top}, line.Number, Qt::AlignRight, 9.5, QFont::Bold);
            page_.Words({code, list.Bottom, name, list.Top}, line.Code, Qt::AlignLeft, 9.5, QFont::Bold);
            page_.Words({name, list.Bottom, list.Right, list.Top - 0.03}, line.Name, Qt::AlignLeft, 8.5);
            list.Top -= LineHeight;
        }
    }

    const Catalogue& catalogue_;
    const BuildPlan& plan_;
    Box content_; ///< of a page
    PaperPage page_;
    PlanPainter pictures_;
    std::vector<int> stepsOfPages_;
    std::vector<double> scales_; ///< of the steps' pictures
    int number_ = 1;             ///< of the page
    std::size_t step_ = 0;       ///< the next one to draw
};

} // namespace

int DrawPlanPages(const Catalogue& catalogue, const BuildPlan& plan, const PaperSize& paper, const PaperPage& page,
                  const std::function<bool()>& turn) {
    return PlanPages(catalogue, plan, paper, page).Draw(turn);
}

} // namespace pistaro
