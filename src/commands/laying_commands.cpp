#include "commands/laying_commands.h"

#include "commands/circuit_commands.h"
#include "editor/owned_track.h"
#include "editor/view_commands.h"
#include "layout/room_fit.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "search/no_circuit.h"
#include "storage/circuit_file.h"
#include "storage/sets_file.h"
#include "storage/settings_file.h"
#include "text/count_text.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace pistaro {

namespace {

Design WithTrack(Design design, const Track& track) {
    design.Circuit = EmptyCircuit();
    design.Circuit.Tracks.front() = track;
    return design;
}

/// By which Save proposes a file beside that of the design that is varied; empty where that has no name.
std::string VariationName(const EditState& edit) {
    const std::string suffix = " variation";
    const std::string name = ProjectName(edit);
    if (name == NewProjectName) return {};
    return name.ends_with(suffix) ? name : name + suffix;
}

/// "found.trk" for one of one; "found-02.trk" for the second of several.
std::filesystem::path NumberedFile(const std::filesystem::path& file, std::size_t number, std::size_t count) {
    if (count == 1) return file;
    const std::string digits = std::to_string(number);
    std::filesystem::path numbered = file.parent_path() / file.stem();
    numbered += "-" + std::string(digits.size() < 2, '0') + digits;
    numbered += file.extension();
    return numbered;
}

/// Of the design's tracks, less those that hold an unknown code.
std::vector<Rows> RowsOfTracks(const Session& session) {
    std::vector<Rows> tracks;
    for (const Track& track : session.Project.Design.Circuit.Tracks) {
        Rows rows;
        for (const std::string& code : track.ElementCodes)
            rows.push_back(session.Catalogue.FindRow(code));
        if (!rows.empty() && std::ranges::min(rows) >= 0) tracks.push_back(std::move(rows));
    }
    return tracks;
}

/// A file that is there already is overwritten only when the user says so.
bool MayOverwrite(Session& session, const std::vector<std::filesystem::path>& files) {
    for (const std::filesystem::path& file : files) {
        CheckNotSettings(file, session.SettingsPath);
        std::error_code toldByTheWrite;
        if (!std::filesystem::exists(file, toldByTheWrite)) continue;
        const std::string question = TextFromPath(file.filename()) + " already exists. Overwrite?";
        if (session.Prompts.Ask(question, Buttons::YesNo) != Answer::Yes) return false;
    }
    return true;
}

} // namespace

Design EmptyArea(Area area, int middleX, int middleY) {
    const auto right = static_cast<std::int16_t>(middleX + area.Width / 2);
    const auto top = static_cast<std::int16_t>(middleY + area.Height / 2);
    const auto left = static_cast<std::int16_t>(right - area.Width);
    const auto bottom = static_cast<std::int16_t>(top - area.Height);
    Design design;
    design.Room.Points = {{left, bottom, 0}, {right, bottom, 1}, {right, top, 1}, {left, top, 1}, {left, bottom, 1}};
    constexpr int margin = 20; // cm, in all
    const auto shown = static_cast<float>(std::max(area.Width, area.Height) + margin);
    design.View = ViewAround(middleX, middleY, shown, shown / 2);
    return design;
}

bool HasWalls(const RoomPolygon& room) {
    return std::ranges::any_of(room.Points, [](const RoomPoint& point) { return point.Line == 1; });
}

bool IsForTheSame(const BoxWish& one, const BoxWish& other) {
    return one.Box == other.Box && one.Area == other.Area && one.FromWalls == other.FromWalls &&
           one.MustHave == other.MustHave && one.Kept == other.Kept;
}

Design RoomFor(const Session& session, const BoxWish& wish) {
    if (wish.Area) return EmptyArea(*wish.Area, wish.MiddleX, wish.MiddleY);
    Design design = session.Project.Design;
    design.Circuit = EmptyCircuit();
    return design;
}

LayingTask TaskFor(const Session& session, const BoxWish& wish) {
    if (wish.Box.Total() == 0) throw Fault("Refused", "the box is empty");
    const std::string lacking = WhyNot(session.Catalogue, wish.Box, wish.MustHave);
    if (!lacking.empty()) throw Fault("Refused", lacking);
    LayingTask task{.Box = wish.Box,
                    .Room = RoomFor(session, wish).Room,
                    .Seed = wish.Seed,
                    .Count = wish.Count,
                    .MustHave = wish.MustHave,
                    .Kept = wish.Kept,
                    .FromWalls = wish.FromWalls};
    if (wish.LeavesOutDesign) task.LeftOut = RowsOfTracks(session);
    if (!HasWalls(task.Room)) throw Fault("Refused", "the design has no room with walls");
    if (task.Kept && !CanKeep(session.Catalogue, task.Kept->Rows))
        throw Fault("Refused", "the part that is kept must begin and end within one system");
    return task;
}

std::string WhyNeverFulfilled(const Session& session, const BoxWish& wish) {
    const LayingTask task{
        .Box = wish.Box, .Room = RoomFor(session, wish).Room, .Kept = wish.Kept, .FromWalls = wish.FromWalls};
    return wish.Box.Total() > 0 && HasWalls(task.Room) ? WhyNoCircuit(session.Catalogue, task) : "";
}

bool IsRoomOfSettings(const Session& session) {
    if (session.SettingsPath.empty()) return false;
    try {
        return ReadSettings(session.Catalogue, session.SettingsPath).Room == session.Project.Design.Room;
    } catch (const Fault&) {
        return false; // it has been told at the start
    }
}

std::string RoomSizeText(const RoomPolygon& room) {
    if (!HasWalls(room)) return "";
    const RoomFit fit(room);
    std::vector<double> across, up;
    for (const Wall& wall : fit.Walls()) {
        across.insert(across.end(), {wall.From.X, wall.To.X});
        up.insert(up.end(), {wall.From.Y, wall.To.Y});
    }
    const auto extent = [](const std::vector<double>& places) {
        const auto [least, most] = std::ranges::minmax(places);
        return std::to_string(std::lround(most - least));
    };
    return extent(across) + " × " + extent(up) + " cm";
}

void OwnBox(Session& session, const PieceBox& box) {
    const int owned = OwnedBox(session.Catalogue, session.Project.Stock).Total();
    const std::string question = "You own " + CountText(owned, "piece") + " by now. Shall it be the " +
                                 std::to_string(box.Total()) + " of this box?";
    if (owned > 0 && session.Prompts.Ask(question, Buttons::YesNo) != Answer::Yes) return;
    StockBoxes boxes = EmptyStockBoxes(session.Catalogue);
    FillStockBoxes(session.Catalogue, session.Project.Stock, boxes);
    for (StockBox& product : boxes)
        product.Owned = std::to_string(CountOfProduct(session.Catalogue, box, product.Tag));
    SaveOwnedTrack(session.Catalogue, session.SettingsPath, session.Project.Stock, boxes, session.Prompts);
}

PieceBox BoxOfDesign(const Session& session) { return {CountUsed(session.Catalogue, session.Project.Design.Circuit)}; }

KeptPart PartOf(const Session& session, int first, int count) {
    KeptPart part;
    const Track& track = *EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
    part.At = track.Start();
    WalkTrack(session.Catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr && element < first) part.At = placement->Exit;
    });
    for (int element = first; element < first + count; ++element) {
        const int row = session.Catalogue.FindRow(track.ElementCodes[static_cast<std::size_t>(element)]);
        if (row >= 0) part.Rows.push_back(row);
    }
    return part;
}

BoxedSets SetsOf(const Session& session) {
    return SetsBeside(session.Catalogue, session.SettingsPath).value_or(ExampleSets(session.Catalogue));
}

std::string WhyNotVary(const Session& session) {
    if (session.Windows == nullptr) return "Available in the designer only.";
    return BoxOfDesign(session).Total() == 0 ? "There are no pieces to lay in another way." : "";
}

bool OpenAsNew(Session& session, bool varies, const Design& room, const Track& track, std::optional<Circuit>& opened) {
    const Design design = WithTrack(room, track);
    Project& project = session.Project;
    if (project.Design.Circuit == design.Circuit) return true;
    if (project.Design.Circuit != opened && !MayReplace(session)) return false;
    session.NotifyLeaving();
    const std::string name = varies ? VariationName(project.EditState) : std::string();
    NewProject(project);
    project.EditState.Name = name;
    project.Design = design;
    FitView(session.Catalogue, project.Design);
    project.EditState.DataChanged = true;
    session.BeginCircuit(varies ? "Variation" : "Circuit from My Box");
    opened = design.Circuit;
    return true;
}

bool KeepAsFiles(Session& session, const Design& room, const std::vector<Track>& tracks) {
    const auto file = session.Prompts.ChooseFile({.Saving = true,
                                                  .Title = "Keep Circuits",
                                                  .Filter = TrackFilter,
                                                  .DefaultName = "circuit",
                                                  .Folder = session.Project.Preferences.WorkingDirectory});
    if (!file) return false;
    std::vector<std::filesystem::path> files;
    for (std::size_t i = 0; i < tracks.size(); ++i)
        files.push_back(NumberedFile(*file, i + 1, tracks.size()));
    if (!MayOverwrite(session, files)) return false;
    std::vector<std::unique_ptr<WrittenFile>> written;
    for (std::size_t i = 0; i < tracks.size(); ++i)
        written.push_back(std::make_unique<WrittenFile>(files[i], CircuitBytes(WithTrack(room, tracks[i]))));
    for (const std::unique_ptr<WrittenFile>& one : written)
        one->TakePlace();
    const std::string others =
        files.size() > 1 ? "The others stand beside it, up to " + TextFromPath(files.back().filename()) + "." : "";
    session.Prompts.TellWritten(files.front(), others);
    return true;
}

} // namespace pistaro
