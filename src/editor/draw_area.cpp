#include "editor/draw_area.h"

#include "catalogue/track_geometry.h"
#include "platform/fault.h"
#include "storage/settings_sections.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace pistaro {

namespace {

constexpr double RoomAngleStep = 22.5; ///< degrees

/// A typed angle, whole degrees of it, snapped down to the steps in which rooms are turned.
double SnappedDegrees(const std::string& text) {
    const double degrees = std::fabs(std::trunc(ParseNumber(text)));
    return std::floor(degrees / RoomAngleStep) * RoomAngleStep;
}

double WholePart(const std::string& text, const char* name) {
    const double value = std::trunc(ParseNumber(text));
    if (!std::isfinite(value)) throw Overflow(std::string(name) + ", " + text + ", is too large");
    return value;
}

std::string WholeText(const std::string& text, const char* name) { return NumberText(WholePart(text, name)); }

std::string PositiveWholeText(const std::string& text, const char* name) {
    return NumberText(std::fabs(WholePart(text, name)));
}

/// What valid fields come to.
struct DrawArea {
    ViewSettings View;
    RoomPolygon Room;
    GridSettings Grid;
    pistaro::Units Units;
};

float Width(const std::string& text) {
    const auto width = static_cast<float>(ParseNumber(text));
    if (!std::isfinite(width)) throw Overflow("the window, " + text + " cm, is too large");
    return width;
}

std::int16_t GridStep(const std::string& text) {
    if (const auto step = RoundedWithin<std::int16_t>(ParseNumber(text))) return *step;
    throw Overflow("the grid step, " + text + ", is larger than 32767");
}

/// The text of one line of the settings file.
std::string CurrencyIn(const std::string& text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
    if (std::ranges::any_of(text, isControl)) {
        throw InvalidProcedureCall("the currency must be a plain word, without line ends or other control characters");
    }
    return text;
}

DrawArea DrawAreaOf(const DrawAreaFields& fields) {
    const double centreX = ParseNumber(fields.CentreX);
    const double centreY = ParseNumber(fields.CentreY);
    const double reach = ParseNumber(fields.MaxWidth);
    DrawArea area;
    area.View = ViewAround(centreX, centreY, Width(fields.ZoomVal), reach);
    area.Room = RoomIn(fields);
    if (!std::isfinite(area.Room.Angle)) throw Overflow("the room angle is too large");
    area.Grid = {static_cast<std::int16_t>(fields.Grid), GridStep(fields.Step)};
    area.Units = {fields.Inches, CurrencyIn(fields.Currency)};
    return area;
}

/// A room whose points have all moved alike takes the picture under it along.
void FollowRoom(Project& project, const RoomPolygon& moved) {
    const std::vector<RoomPoint>& from = project.Design.Room.Points;
    const std::vector<RoomPoint>& to = moved.Points;
    if (!project.Background || from.empty() || from.size() != to.size()) return;
    const auto right = [&](std::size_t point) { return to[point].X - from[point].X; };
    const auto up = [&](std::size_t point) { return to[point].Y - from[point].Y; };
    for (std::size_t point = 0; point < from.size(); ++point) {
        if (right(point) != right(0) || up(point) != up(0)) return;
    }
    if (right(0) == 0 && up(0) == 0) return;
    ScaledBackground background = *project.Background;
    background.X += right(0);
    background.Y += up(0);
    project.Background = std::make_shared<const ScaledBackground>(std::move(background));
}

void Put(Project& project, DrawArea&& area) {
    FollowRoom(project, area.Room);
    project.Design.View = area.View;
    project.Design.Room = std::move(area.Room);
    project.Preferences.Grid = area.Grid;
    project.Preferences.Units = std::move(area.Units);
    project.EditState.DataChanged = true;
}

/// What valid fields come to; nothing, and the user is told, when they are not valid.
std::optional<DrawArea> Checked(DrawAreaFields& fields, Prompts& prompts) {
    if (HasTypedPoint(fields.Room)) {
        const std::string number = NumberText(fields.Room.Number);
        const std::string question = "The coordinates of room point " + number +
                                     " were typed but not added. Press OK to go on without them, or Cancel to go back.";
        if (prompts.Ask(question, Buttons::OkCancel) == Answer::Cancel) return std::nullopt;
    }
    if (const auto wrong = ValidateDrawArea(fields)) {
        prompts.Tell(*wrong);
        return std::nullopt;
    }
    DrawArea area = DrawAreaOf(fields);
    fields.RoomAngle = NumberText(SnappedDegrees(fields.RoomAngle));
    return area;
}

} // namespace

DrawAreaFields OpenDrawArea(const Design& design, const Preferences& preferences) {
    const auto middle = [](const ScrollBar& bar) {
        return NumberText((static_cast<double>(bar.Minimum) + bar.Maximum) / 2);
    };
    const ScrollBar& bar = design.View.HMov;
    const double degrees = design.Room.Angle * 180 / PiValue;
    return {.CentreX = middle(design.View.HMov),
            .CentreY = middle(design.View.VMov),
            .ZoomVal = NumberText(design.View.Width),
            .MaxWidth = NumberText((static_cast<double>(bar.Maximum) - bar.Minimum) / 2),
            .RoomAngle = NumberText(static_cast<float>(RoundHalfEven(degrees * 1000) / 1000)),
            .Step = NumberText(int{preferences.Grid.Step}),
            .Currency = preferences.Units.Currency,
            .Grid = preferences.Grid.Type,
            .Inches = preferences.Units.Inches,
            .Room = OpenRoomPoints(design.Room.Points)};
}

std::string DrawAreaLabel(const DrawAreaFields& fields) {
    const double width = std::fabs(std::trunc(ParseNumber(fields.ZoomVal)));
    return AreaLabel(std::isfinite(width) ? width : 0, {.Inches = fields.Inches, .Currency = {}});
}

RoomPolygon RoomIn(const DrawAreaFields& fields) {
    return {fields.Room.Points, static_cast<float>(SnappedDegrees(fields.RoomAngle) * PiValue / 180)};
}

std::optional<Message> ValidateDrawArea(DrawAreaFields& fields) {
    fields.CentreX = WholeText(fields.CentreX, "the centre X");
    fields.CentreY = WholeText(fields.CentreY, "the centre Y");
    fields.MaxWidth = PositiveWholeText(fields.MaxWidth, "the max width");
    fields.ZoomVal = PositiveWholeText(fields.ZoomVal, "the window");
    fields.RoomAngle = PositiveWholeText(fields.RoomAngle, "the room angle");
    fields.Step = PositiveWholeText(fields.Step, "the grid step");

    const double maxWidth = ParseNumber(fields.MaxWidth);
    const auto isBeyondReach = [&](const std::string& centre) { return std::fabs(ParseNumber(centre)) > maxWidth; };
    const auto illegal = [](const char* text) { return Message{Icon::Exclamation, text}; };
    if (maxWidth == 0) return illegal("Illegal max Width Setting!");
    if (isBeyondReach(fields.CentreX)) return illegal("Illegal Centre X Setting!");
    if (isBeyondReach(fields.CentreY)) return illegal("Illegal Centre Y Setting!");
    if (ParseNumber(fields.ZoomVal) == 0) return illegal("Illegal Window Setting!");
    if (ParseNumber(fields.Step) == 0) return illegal("Illegal Grid Step Setting!");
    return std::nullopt;
}

bool ApplyDrawArea(Project& project, DrawAreaFields& fields, Prompts& prompts) {
    auto area = Checked(fields, prompts);
    if (!area) return false;
    Put(project, std::move(*area));
    return true;
}

bool SaveDrawArea(const Catalogue& catalogue, Project& project, const std::filesystem::path& settingsPath,
                  DrawAreaFields& fields, Prompts& prompts) {
    auto area = Checked(fields, prompts);
    if (!area) return false;
    RewriteSettings(catalogue, settingsPath,
                    {ViewOf(ParseNumber(fields.CentreX), ParseNumber(fields.CentreY), ParseNumber(fields.ZoomVal),
                            ParseNumber(fields.MaxWidth)),
                     GridOf(area->Grid), UnitsOf(area->Units), RoomOf(area->Room)});
    project.Preferences.MWid = area->View.MWid;
    Put(project, std::move(*area));
    prompts.Tell({Icon::Information, SettingsSaved});
    return true;
}

void ExplainDrawArea(Prompts& prompts) {
    prompts.Tell(
        {Icon::Information,
         "The Draw Area Settings allow to modify the draw window's contents.\n\n"
         "Centre X and Centre Y are the defined window centre coordinates in cm displacement from the origin.\n\n"
         "Window is the current draw window's width and height in cm.\n\n"
         "Max Width is the maximum allowed displacement of the centre coordinates in X and Y from the defined centre "
         "position using the scroll bars.\n\n"
         "The Room Definition frame allows you to define your room's layout, which appear in the window as a red "
         "polygon. Unticking Line causes no line to be draw to the current point, which can be useful to define "
         "pillars or other obstacles located within the room.\n\n"
         "The Angle given is the angle of the room relative to the defined circuit.\n\n"
         "Pressing the Apply buttons applies your changes to the current track. The defined values are saved with the "
         "track.\n\n"
         "Saving the settings makes them your default values for all successive Pistaro sessions, Cancel ignores all "
         "changes."});
}

} // namespace pistaro
