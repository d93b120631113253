#include "imaging/sheet_margins.h"

#include "imaging/tile_marks.h"
#include "paper/laid_size.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr double PaperRule = 10; ///< cm
constexpr double CaptionPoints = 7.5;
constexpr double CaptionTop = 0.72; ///< cm above a strip's foot: captions stand upon rules
constexpr Colour Black = Rgb(0, 0, 0);

/// The strip above the drawing, and the one below it.
Box HeaderOf(const SheetPlan& plan) {
    const Box area = plan.Area();
    return {area.Left, area.Top, area.Right, area.Top + StripHeight};
}
Box FooterOf(const SheetPlan& plan) {
    const Box area = plan.Area();
    return {area.Left, area.Bottom - StripHeight, area.Right, area.Bottom};
}

void DrawRule(PaperPage& page, const Box& strip, double foot, double longTick, double shortTick) {
    page.OnPaper(strip, [&](Surface& surface) {
        DrawLine(surface, strip.Left, foot, strip.Left + PaperRule, foot);
        for (int cm = 0; cm <= PaperRule; ++cm)
            DrawLine(surface, strip.Left + cm, foot, strip.Left + cm, foot + (cm % 5 == 0 ? longTick : shortTick));
    });
}

void DrawCaption(PaperPage& page, const Box& strip, double left, const std::string& text) {
    page.Words({left, strip.Bottom, strip.Right, strip.Bottom + CaptionTop}, text, Qt::AlignLeft, CaptionPoints);
}

void FillBox(Surface& surface, const Box& box, Colour colour) {
    const ViewRectangle edge = box.Shown();
    surface.Fill({{edge.ViewLeft, edge.ViewTop},
                  {edge.ViewRight, edge.ViewTop},
                  {edge.ViewRight, edge.ViewBottom},
                  {edge.ViewLeft, edge.ViewBottom}},
                 colour);
}

/// A bar of black and white parts, unlike the rule of paper.
void DrawTrackRule(PaperPage& page, const Box& strip, double left, double scale, const Units& units) {
    constexpr double longest = 7, edge = 0.04; // cm
    const TrackRule rule = LongestRule(std::min(longest, strip.Right - left) * scale, units);
    const double part = rule.Length / scale / rule.Parts;
    const double foot = strip.Bottom + 0.08, top = foot + 0.22;
    page.OnPaper(strip, [&](Surface& surface) {
        FillBox(surface, {left, foot, left + rule.Parts * part, top}, Black);
        for (int white = 1; white < rule.Parts; white += 2) {
            FillBox(surface, {left + white * part, foot + edge, left + (white + 1) * part - edge, top - edge},
                    Rgb(255, 255, 255));
        }
    });
    DrawCaption(page, strip, left, rule.Text + " of track");
}

void DrawRules(PaperPage& page, const SheetPlan& plan, const Units& units) {
    constexpr double trackRule = 10.5; // cm from the left
    const Box strip = FooterOf(plan);
    const bool fullSize = plan.Scale == 1;
    DrawRule(page, strip, strip.Bottom + 0.05, 0.32, 0.16);
    DrawCaption(page, strip, strip.Left,
                std::string("10 cm ") + (units.Inches ? "(3.94 in) " : "") +
                    (fullSize ? "of paper and of track" : "of paper") + ": measure it to check the printer");
    if (!fullSize) DrawTrackRule(page, strip, strip.Left + trackRule, plan.Scale, units);
}

/// At the header's right. Gives where it begins.
double DrawFacts(PaperPage& page, const Box& header, const std::vector<std::string>& facts) {
    std::string text;
    for (const std::string& fact : facts)
        text += (text.empty() || fact.empty() ? "" : "   ") + fact;
    return header.Right - page.Words(header, text, Qt::AlignRight);
}

std::string SizeFact(const CircuitDrawing& drawing) {
    const std::string size = LaidSizeText(drawing);
    return size.empty() ? "" : "Track " + size;
}

} // namespace

void DrawPlainMargins(PaperPage& page, const SheetPlan& plan, const std::string& name, const std::string& date) {
    page.Words(HeaderOf(plan), name, Qt::AlignLeft);
    page.Words(HeaderOf(plan), (date.empty() ? "" : date + "   ") + plan.ScaleText(), Qt::AlignRight);
    const Box strip = FooterOf(plan);
    DrawRule(page, strip, strip.Bottom + 0.1, 0.4, 0.2);
    page.Words({strip.Left + PaperRule + 0.15, strip.Bottom, strip.Right, strip.Bottom + 0.5}, "10 cm", Qt::AlignLeft);
}

void DrawGuidingMargins(PaperPage& page, const SheetPlan& plan, const CircuitDrawing& drawing, const Sheet& sheet,
                        const std::string& date) {
    constexpr double gap = 0.4; // cm
    Box header = HeaderOf(plan);
    const double facts = DrawFacts(page, header, {SizeFact(drawing), "scale " + plan.ScaleText(), date});
    if (!sheet.Name.empty()) header.Left += DrawTileTitle(page, header, sheet.Name) + gap;
    header.Right = std::max(header.Left, facts - gap);
    page.Words(header, drawing.Name, Qt::AlignLeft, 9, QFont::Bold);
    DrawRules(page, plan, drawing.Preferences.Units);
}

void DrawOverviewMargins(PaperPage& page, const SheetPlan& plan, const CircuitDrawing& drawing,
                         const std::string& date) {
    constexpr double gap = 0.4; // cm
    Box header = HeaderOf(plan);
    const std::string tiles = std::to_string(plan.Sheets.size()) + " tiles of " + plan.ScaleText();
    const double facts = DrawFacts(page, header, {tiles, SizeFact(drawing), date});
    header.Right = std::max(header.Left, facts - gap);
    page.Words(header, drawing.Name, Qt::AlignLeft, 9, QFont::Bold);
    const std::string whatToDo = "Cut each tile along its dashed lines and lay it edge to edge with the tiles that its "
                                 "arrows name, or lay their "
                                 "cut edges to its lines.";
    page.Paragraph(FooterOf(plan), whatToDo, 8);
}

} // namespace pistaro
