// Strokes as lines of text, coordinates to three decimals.
#include "support/recording_surface.h"

#include <array>
#include <cstdio>

namespace pistaro {

namespace {

std::string Decimal(double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.3f", value);
    std::string shortened = text.data();
    shortened.erase(shortened.find_last_not_of('0') + 1);
    if (shortened.ends_with('.')) shortened.pop_back();
    return shortened == "-0" ? "0" : shortened;
}

std::string At(WorldPoint point) { return Decimal(point.X) + "," + Decimal(point.Y); }

} // namespace

ColourScheme DistinctColours() {
    return {.Background = 1, .Inactive = 2, .Rail = 3, .NonOwned = 4, .Owned = 5, .Active = 6};
}

RecordingSurface::RecordingSurface(const ColourScheme& colours, double pixels)
    : names_{{GridColour, "grid"}, {RoomColour, "room"}, {Rgb(0, 0, 0), "text"}, {Rgb(255, 255, 255), "text"}},
      pixels_(pixels) {
    for (const ColourSlot& slot : ColourSlots)
        names_[colours.*slot.Slot] = slot.Name;
}

std::vector<std::string> RecordingSurface::LinesOf(const std::string& word) const {
    std::vector<std::string> found;
    for (const std::string& line : Lines) {
        if (line.starts_with(word + " ")) found.push_back(line);
    }
    return found;
}

std::string RecordingSurface::Text() const {
    std::string text;
    for (const std::string& line : Lines)
        text += line + "\n";
    return text;
}

void RecordingSurface::Clear(Colour background) { Lines.push_back("clear " + Name(background)); }

void RecordingSurface::SetScale(const ViewRectangle& world) {
    pixelsPerCm_ = pixels_ / (double{world.ViewRight} - world.ViewLeft);
    Lines.push_back("scale " + At({world.ViewLeft, world.ViewTop}) + " " + At({world.ViewRight, world.ViewBottom}));
}

void RecordingSurface::SetPen(PenWidth width) {
    const bool pixels = width.In == PenWidth::Unit::Pixels;
    if (width != PenWidth()) Lines.push_back("pen " + Decimal(width.Value) + (pixels ? " px" : " mm"));
}

void RecordingSurface::Draw(const LineSegment& line, Colour colour) {
    Lines.push_back("line " + At(line.From) + " " + At(line.To) + " " + Name(colour));
}

void RecordingSurface::Draw(const ArcSegment& arc, Colour colour) {
    Lines.push_back("arc " + At(arc.Centre) + " " + Decimal(arc.Radius) + " " + Decimal(arc.Start) + ".." +
                    Decimal(arc.End) + " " + Name(colour));
}

void RecordingSurface::Draw(const Ellipse& ellipse, Colour colour) {
    Lines.push_back("ellipse " + At(ellipse.Centre) + " " + Decimal(ellipse.Radius) + " " + Decimal(ellipse.Aspect) +
                    " " + Name(colour));
}

void RecordingSurface::DrawPoint(WorldPoint point, Colour colour) {
    TextColours.insert(colour);
    Lines.push_back("point " + At(point) + " " + Name(colour));
}

void RecordingSurface::DrawText(const std::string& text, Colour colour) {
    TextColours.insert(colour);
    Lines.push_back("text \"" + text + "\" " + Name(colour));
}

void RecordingSurface::SetFontSize(double points) { Lines.push_back("font " + Decimal(points)); }

std::string RecordingSurface::Name(Colour colour) const {
    const auto found = names_.find(colour);
    return found == names_.end() ? std::to_string(colour) : found->second;
}

} // namespace pistaro
