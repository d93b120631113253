// Every step's pieces are drawn once, out of sight, and used by its picture and by those of later steps.
#include "report/build_plan.h"

#include "paper/path_data.h"
#include "report/html_text.h"
#include "text/decimal_text.h"

namespace pistaro {

namespace {

constexpr const char* Head = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>)";

constexpr const char* Style = R"(</title>
<style>
body { font-family: sans-serif; max-width: 60em; margin: 1em auto; }
table { border-collapse: collapse; } td, th { padding: 0.1em 0.8em; text-align: left; }
.step { break-inside: avoid; border-top: 1px solid #999; margin-top: 1em; }
.step div { display: flex; gap: 1em; align-items: flex-start; }
.step ul { flex: 0 0 16em; list-style: none; padding: 0; margin: 0; font-size: 90%; white-space: pre-wrap; }
svg { flex: 1; max-height: 24em; fill: none; stroke-linecap: round; }
.before { stroke: #999; } .new { stroke: #000; } text { fill: #000; stroke: none; }
@media print { body { margin: 0; font-size: 80%; } svg { max-height: 18em; } }
</style></head><body>
)";

class PlanPageWriter {
public:
    PlanPageWriter(const Catalogue& catalogue, const BuildPlan& plan) : catalogue_(catalogue), plan_(plan) {}

    std::string Write() {
        const std::string name = HtmlText(plan_.Drawing.Name);
        page_ = Head + name + ": build plan" + Style + "<h1>" + name + "</h1>\n";
        AddNeeded();
        AddShapes();
        for (std::size_t step = 0; step < plan_.Steps.size(); ++step)
            AddStep(step);
        return page_ + "</body></html>\n";
    }

private:
    void AddNeeded() {
        page_ += "<h2>What you need: " + std::to_string(plan_.Drawing.Pieces.size()) + " pieces</h2>\n<table>\n";
        for (const NeededPieces& needed : plan_.Needed) {
            page_ += "<tr><td>" + std::to_string(needed.Count) + " ×</td><td>" + HtmlText(needed.Code) + "</td><td>" +
                     HtmlText(needed.Name) + "</td></tr>\n";
        }
        page_ += "</table>\n";
    }

    static std::string ShapeName(std::size_t step) { return "pieces" + std::to_string(step + 1); }

    void AddShapes() {
        page_ += "<svg width=\"0\" height=\"0\" style=\"position:absolute\"><defs>\n";
        for (std::size_t step = 0; step < plan_.Steps.size(); ++step) {
            page_ += "<path id=\"" + ShapeName(step) + "\" d=\"";
            for (int at = plan_.Steps[step].First; at <= plan_.Steps[step].Last; ++at)
                page_ += PathOf(Piece(at).Placement);
            page_ += "\"/>\n";
        }
        page_ += "</defs></svg>\n";
    }

    void AddStep(std::size_t number) {
        const BuildStep& step = plan_.Steps[number];
        page_ += "<div class=\"step\"><h3>Step " + std::to_string(number + 1) + ": " + plan_.TitleOf(step) +
                 "</h3>\n<div><ul>\n";
        for (const std::string& line : plan_.LinesOf(catalogue_, step))
            page_ += "<li>" + HtmlText(line) + "</li>\n";
        page_ += "</ul>\n";
        AddPicture(number);
        page_ += "</div></div>\n";
    }

    void AddPicture(std::size_t number) {
        const Box& extent = plan_.Drawing.Extent;
        const double across = std::max(extent.Width(), extent.Height());
        const Box shown = extent.Wider(across / 50);
        page_ += "<svg viewBox=\"" + Decimal(shown.Left) + ' ' + Decimal(-shown.Top) + ' ' + Decimal(shown.Width()) +
                 ' ' + Decimal(shown.Height()) + "\">\n<g class=\"before\" stroke-width=\"" + Decimal(across / 500) +
                 "\">";
        for (std::size_t before = 0; before < number; ++before)
            Use(before);
        page_ += "</g>\n<g class=\"new\" stroke-width=\"" + Decimal(across / 280) + "\">";
        Use(number);
        page_ += "</g>\n<g font-size=\"" + Decimal(across / 45) + "\">";
        for (int at = plan_.Steps[number].First; at <= plan_.Steps[number].Last; ++at) {
            const WorldPoint label = Piece(at).Placement.Label;
            page_ += "<text x=\"" + Decimal(label.X) + "\" y=\"" + Decimal(across / 45 - label.Y) + "\">" +
                     std::to_string(Piece(at).Index) + "</text>";
        }
        page_ += "</g></svg>\n";
    }

    void Use(std::size_t step) { page_ += "<use href=\"#" + ShapeName(step) + "\"/>"; }

    static std::string Decimal(double value) {
        std::string text;
        AppendDecimal(text, value, 3);
        return text;
    }

    const DrawnPiece& Piece(int at) const { return plan_.Drawing.Pieces[static_cast<std::size_t>(at)]; }

    const Catalogue& catalogue_;
    const BuildPlan& plan_;
    std::string page_;
};

} // namespace

std::string BuildPlanPage(const Catalogue& catalogue, const BuildPlan& plan) {
    return PlanPageWriter(catalogue, plan).Write();
}

} // namespace pistaro
