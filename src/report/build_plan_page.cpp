// Every step's pieces are drawn once, out of sight, and used by its picture and by those of later steps.
#include "report/build_plan.h"

#include "catalogue/track_geometry.h"
#include "layout/outline.h"
#include "layout/room_lines.h"
#include "paper/path_data.h"
#include "render/redraw.h"
#include "report/html_text.h"
#include "report/plan_picture.h"
#include "text/count_text.h"
#include "text/decimal_text.h"

namespace pistaro {

namespace {

constexpr const char* Head = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><meta name="viewport" content="width=device-width"><title>)";

constexpr const char* StyleBegin = R"(</title>
<style>
body { font-family: sans-serif; max-width: 64em; margin: 1em auto; padding: 0 1em; color: #000; background: #fff; }
table { border-collapse: collapse; } td { padding: 0.15em 0.8em; text-align: left; border-bottom: 1px solid #ddd; }
td:first-child { text-align: right; } td:nth-child(2) { font-weight: bold; }
.step { break-inside: avoid; border-top: 2px solid #000; margin-top: 1.5em; }
.step h3 { margin: 0.4em 0; }
.step div { display: flex; gap: 1em; align-items: flex-start; }
.step div div { flex: 0 0 18em; order: -1; flex-direction: column; gap: 0.5em; }
.step td { padding: 0.1em 0.8em 0.1em 0; font-size: 90%; vertical-align: top; }
h1 { margin: 0 0 0.4em; } h2 { margin: 1em 0 0.5em; } p { margin: 0.3em 0; }
.kind { margin-top: 1.5em; color: #666; letter-spacing: 0.05em; text-transform: uppercase; font-size: 85%; }
.head { display: flex; flex-wrap: wrap; gap: 1em 2em; align-items: flex-start; } .head svg { flex: 1 1 26em; margin: 0; }
svg { flex: 1; width: 100%; box-sizing: border-box; }
.whole { max-height: 30em; margin-top: 1em; }
.lanes, .way, .room, .shown { fill: none; } .lanes { stroke-opacity: 0.4; } .way { stroke-linejoin: round; }
.foot { stroke: #000; fill: none; } .badge { fill: #fff; stroke: #000; }
text { fill: #000; font-weight: bold; text-anchor: middle; } text.length { text-anchor: start; }
@media screen and (max-width: 44em) { .step div { flex-direction: column; } .step div div { order: 0; } svg { flex: none; } }
@page { size: auto; margin: 1.5cm; @bottom-right { content: "page " counter(page) " of " counter(pages); } }
@media print {
  body { margin: 0; padding: 0; max-width: none; font-size: 75%; }
  .step { margin-top: 0.5em; } .step svg { max-height: 6.4cm; } .step div div svg { max-height: 2.2cm; margin-top: 0; }
}
)";

constexpr PictureArea StepArea{12, 7.5}; ///< cm of paper, as all else in pictures
constexpr PictureArea OverviewArea{5.6, 3.2};
constexpr PictureArea WholeArea{18, 9};
constexpr double FontHeight = 0.34;

std::string Number(double value) {
    std::string text;
    AppendDecimal(text, value, 3);
    return text;
}

std::string Attribute(const char* name, double value) { return std::string(" ") + name + "=\"" + Number(value) + '"'; }

/// " viewBox=..."
std::string ViewBox(PictureArea area) {
    return " viewBox=\"0 0 " + Number(area.Width) + ' ' + Number(area.Height) + "\">\n";
}

std::string PolygonPath(const std::vector<WorldPoint>& polygon) {
    std::string path;
    for (const WorldPoint point : polygon)
        path += (path.empty() ? 'M' : 'L') + Number(point.X) + ' ' + Number(-double{point.Y});
    return path + 'Z';
}

std::string HexText(Colour colour) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text = "#";
    for (const int part : {Red(colour), Green(colour), Blue(colour)})
        text.append(1, digits[part / 16]).append(1, digits[part % 16]);
    return text;
}

std::string BedRule(const char* name, const BedLook& look) {
    return std::string(".") + name + " { fill: " + HexText(look.Fill) + "; stroke: " + HexText(look.Edge) + "; }\n";
}

std::string Style() {
    return StyleBegin + BedRule("before", LaidBefore) + BedRule("new", LaidNow) + "svg { border: 1px solid " +
           HexText(FrameColour) + "; } .way { stroke: " + HexText(WayColour) +
           "; } .shown { stroke: " + HexText(ShownColour) + "; } .room { stroke: " + HexText(RoomColour) +
           "; }\n</style></head><body>\n";
}

std::string PolylineOf(const BuildPlan& plan, const BuildStep& pieces) {
    std::string points;
    for (const WorldPoint point : MiddleLine(plan, pieces))
        points += (points.empty() ? "" : " ") + Number(point.X) + ',' + Number(-double{point.Y});
    return "<polyline points=\"" + points + "\"/>";
}

class PlanPageWriter {
public:
    PlanPageWriter(const Catalogue& catalogue, const BuildPlan& plan) : catalogue_(catalogue), plan_(plan) {}

    std::string Write() {
        const std::string name = HtmlText(plan_.Drawing.Name);
        page_ = Head + name + ": build plan" + Style() + "<p class=\"kind\">Build plan</p>\n<h1>" + name + "</h1>\n";
        for (const std::string& fact : plan_.Facts())
            page_ += "<p>" + HtmlText(fact) + "</p>\n";
        if (!plan_.Steps.empty()) page_ += std::string("<p>") + BuildPlan::OnNumbers + "</p>\n";
        scales_ = StepScales(plan_, StepArea);
        AddShapes();
        AddNeeded();
        AddWhole();
        page_ += "</div>\n";
        for (std::size_t step = 0; step < plan_.Steps.size(); ++step)
            AddStep(step);
        return page_ + "</body></html>\n";
    }

private:
    void AddNeeded() {
        page_ += "<h2>What you need: " + CountText(plan_.Drawing.Pieces.size(), "piece") +
                 "</h2>\n<div class=\"head\"><table>\n";
        for (const NeededPieces& needed : plan_.Needed)
            AddRow(std::to_string(needed.Count) + " ×", needed.Code, needed.Name);
        page_ += "</table>\n";
    }

    void AddRow(const std::string& number, const std::string& code, const std::string& name) {
        page_ += "<tr><td>" + number + "</td><td>" + HtmlText(code) + "</td><td>" + HtmlText(name) + "</td></tr>\n";
    }

    void AddShapes() {
        page_ += "<svg width=\"0\" height=\"0\" style=\"position:absolute;border:0\"><defs>\n";
        for (std::size_t step = 0; step < plan_.Steps.size(); ++step)
            AddShape(step);
        page_ += "<g id=\"way\">";
        for (const BuildStep& track : WholeTracks(plan_))
            page_ += PolylineOf(plan_, track);
        page_ += "</g></defs></svg>\n";
    }

    void AddShape(std::size_t step) {
        const std::string number = std::to_string(step + 1);
        std::string beds, lanes;
        for (int at = plan_.Steps[step].First; at <= plan_.Steps[step].Last; ++at) {
            constexpr double tolerance = 0.05; // cm
            beds += PolygonPath(OutlinePolygon(plan_.Piece(at).Placement, tolerance));
            lanes += PathOf(plan_.Piece(at).Placement, Strokes::AllButOutline);
        }
        page_.append("<g id=\"pieces").append(number).append("\"><path id=\"bed").append(number).append("\" d=\"");
        page_.append(beds).append("\"/><path class=\"lanes\" d=\"").append(lanes).append("\"/></g>\n");
    }

    void AddWhole() {
        if (plan_.Steps.empty()) return;
        const PlanPicture picture = WholePicture(plan_, WholeArea);
        page_ += "<svg class=\"whole\"" + ViewBox(WholeArea);
        OpenWorld(picture);
        AddPieces("before", LaidBefore.EdgeWidth * picture.Scale, 0, plan_.Steps.size());
        AddRoom(picture);
        CloseWorld(picture, WholeArea);
    }

    void AddStep(std::size_t number) {
        const BuildStep& step = plan_.Steps[number];
        page_ += "<div class=\"step\"><h3>Step " + std::to_string(number + 1) + ": " + plan_.TitleOf(step) +
                 "</h3>\n<div>\n";
        const PlanPicture picture = PictureOf(plan_, step, StepArea, scales_[number]);
        AddPicture(number, picture);
        page_ += "<div><table>\n";
        for (const StepLine& line : plan_.LinesOf(catalogue_, step))
            AddRow(line.Number, line.Code, line.Name);
        page_ += "</table>\n";
        AddOverview(number, picture.Part);
        page_ += "</div></div></div>\n";
    }

    void AddPicture(std::size_t number, const PlanPicture& picture) {
        page_ += "<svg" + ViewBox(StepArea);
        OpenWorld(picture);
        AddPieces("before", LaidBefore.EdgeWidth * picture.Scale, 0, number);
        AddRoom(picture);
        AddPieces("new", LaidNow.EdgeWidth * picture.Scale, number, number + 1);
        CloseWorld(picture, StepArea);
    }

    void AddOverview(std::size_t number, const Box& whole) {
        const PlanPicture picture = Overview(plan_, plan_.Steps[number], OverviewArea);
        const Box shown = PartIn(picture, whole);
        const double bed = std::max<double>(TrackGeometry::ScalextricWidth, ThinnestWay * picture.Scale);
        page_ += "<svg class=\"whole\"" + ViewBox(OverviewArea);
        OpenWorld(picture);
        page_ += "<g class=\"way\"" + Attribute("stroke-width", bed) + "><use href=\"#way\"/></g>\n<g class=\"new\"" +
                 Attribute("stroke-width", 0.05 * picture.Scale) + "><use href=\"#bed" + std::to_string(number + 1) +
                 "\"/></g>\n<rect class=\"shown\"" + Attribute("x", shown.Left) + Attribute("y", -shown.Top) +
                 Attribute("width", shown.Width()) + Attribute("height", shown.Height()) +
                 Attribute("stroke-width", ShownWidth * picture.Scale) + "/>\n";
        CloseWorld(picture, OverviewArea);
    }

    /// What comes now is in cm of the world, y downwards.
    void OpenWorld(const PlanPicture& picture) {
        std::string scale;
        AppendDecimal(scale, 1 / picture.Scale, 9);
        page_ += "<g transform=\"scale(" + scale + ") translate(" + Number(-picture.Part.Left) + ' ' +
                 Number(picture.Part.Top) + ")\">\n";
    }

    /// Adds marks and numbers, and ends the picture.
    void CloseWorld(const PlanPicture& picture, PictureArea area) {
        for (const FilledArea& mark : picture.Marks)
            page_ += "<path fill=\"" + HexText(mark.Fill) + "\" d=\"" + PolygonPath(mark.Polygon) + "\"/>\n";
        page_ += "</g>\n";
        for (const NumberBadge& badge : picture.Badges)
            AddBadge(picture, badge);
        if (picture.Bar.Length > 0) AddBar(picture.Bar, area.Height);
        page_ += "</svg>\n";
    }

    void AddBar(const ScaleBar& bar, double height) {
        const std::string tick = Number(BarTick);
        const double y = height - bar.Up;
        const Box ground = bar.Ground();
        page_ += "<rect fill=\"#fff\"" + Attribute("x", ground.Left) + Attribute("y", height - ground.Top) +
                 Attribute("width", ground.Width()) + Attribute("height", ground.Height()) + "/>";
        page_ += "<path class=\"foot\" stroke-width=\".03\" d=\"M" + Number(bar.Left) + ' ' + Number(y - BarTick) +
                 'v' + tick + 'h' + Number(bar.Length) + "v-" + tick + "\"/><text class=\"length\"" +
                 Attribute("font-size", FontHeight) + Attribute("x", bar.Left + bar.Length + BarTextGap) +
                 Attribute("y", y) + '>' + bar.Text + "</text>\n";
    }

    void AddPieces(const char* look, double strokeWidth, std::size_t from, std::size_t to) {
        page_ += std::string("<g class=\"") + look + '"' + Attribute("stroke-width", strokeWidth) + '>';
        for (std::size_t step = from; step < to; ++step)
            page_ += "<use href=\"#pieces" + std::to_string(step + 1) + "\"/>";
        page_ += "</g>\n";
    }

    void AddRoom(const PlanPicture& picture) {
        std::string path;
        ForEachRoomLine(plan_.Drawing.Room, [&](const LineSegment& line) { AppendPath(path, line); });
        if (path.empty()) return;
        page_ += "<path class=\"room\"" + Attribute("stroke-width", 0.04 * picture.Scale) + " d=\"" + path + "\"/>\n";
    }

    void AddBadge(const PlanPicture& picture, const NumberBadge& badge) {
        const auto x = [&](WorldPoint place) { return (place.X - picture.Part.Left) / picture.Scale; };
        const auto y = [&](WorldPoint place) { return (picture.Part.Top - place.Y) / picture.Scale; };
        if (badge.StandsAside()) {
            page_ += "<line class=\"foot\" stroke-width=\".03\"" + Attribute("x1", x(badge.Place)) +
                     Attribute("y1", y(badge.Place)) + Attribute("x2", x(badge.Foot)) + Attribute("y2", y(badge.Foot)) +
                     "/>";
        }
        const double font = FontHeight * badge.Height / BadgeHeight;
        page_ += "<rect class=\"badge\" stroke-width=\".03\"" + Attribute("x", x(badge.Place) - badge.Width / 2) +
                 Attribute("y", y(badge.Place) - badge.Height / 2) + Attribute("width", badge.Width) +
                 Attribute("height", badge.Height) + Attribute("rx", badge.Height / 2) + "/><text" +
                 Attribute("font-size", font) + Attribute("x", x(badge.Place)) +
                 Attribute("y", y(badge.Place) + font * 0.36) + '>' + badge.Text + "</text>\n";
    }

    const Catalogue& catalogue_;
    const BuildPlan& plan_;
    std::vector<double> scales_; ///< of the steps' pictures
    std::string page_;
};

} // namespace

std::string BuildPlanPage(const Catalogue& catalogue, const BuildPlan& plan) {
    return PlanPageWriter(catalogue, plan).Write();
}

} // namespace pistaro
