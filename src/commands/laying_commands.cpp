#include "commands/laying_commands.h"

#include "commands/circuit_commands.h"
#include "editor/owned_track.h"
#include "editor/track_editing.h"
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

const Track& TrackOf(const Session& session, int track) {
    return session.Project.Design.Circuit.Tracks[static_cast<std::size_t>(track)];
}

/// The track as a circuit of known pieces.
std::optional<TrackPart> KnownCircuit(const Catalogue& catalogue, const Track& track) {
    const int count = track.ElementLastIndex() + 1;
    TrackPart circuit = PartOf(catalogue, track, 0, count);
    if (circuit.Rows.size() < static_cast<std::size_t>(count) || !IsRing(catalogue, track)) return std::nullopt;
    return circuit;
}

/// Begins the circuit, that of the whole track, with the part, one of the same track.
void BeginWith(const Catalogue& catalogue, const Track& track, const TrackPart& part, TrackPart& circuit) {
    std::ptrdiff_t first = 0;
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement*, const BuildCursor& entry) {
        if (entry == part.At) first = element;
    });
    std::rotate(circuit.Rows.begin(), circuit.Rows.begin() + first, circuit.Rows.end());
    circuit.At = part.At;
}

/// The task as it is wished for, whether anything can come of it or not.
LayingTask WishedTask(const Session& session, const BoxWish& wish) {
    const Surroundings around = SurroundingsFor(session, wish);
    LayingTask task{.Box = wish.Box,
                    .Room = around.Design.Room,
                    .Seed = wish.Seed,
                    .Count = wish.Count,
                    .MustHave = wish.MustHave,
                    .Kept = wish.Kept,
                    .Taken = GroundsBeside(session.Catalogue, around.Design.Circuit, around.Track),
                    .FromWalls = wish.FromWalls};
    if (wish.Varied) task.Varied = KnownCircuit(session.Catalogue, TrackOf(session, *wish.Varied));
    if (task.Varied) task.LeftOut = {task.Varied->Rows};
    if (task.Varied && task.Kept)
        BeginWith(session.Catalogue, TrackOf(session, *wish.Varied), *task.Kept, *task.Varied);
    return task;
}

/// Files that are there already are overwritten only when the user says so, once for all of them.
bool MayOverwrite(Session& session, const std::vector<std::filesystem::path>& files) {
    std::vector<std::string> there;
    for (const std::filesystem::path& file : files) {
        CheckNotSettings(file, session.SettingsPath);
        std::error_code toldByTheWrite;
        if (std::filesystem::exists(file, toldByTheWrite)) there.push_back(TextFromPath(file.filename()));
    }
    if (there.empty()) return true;
    std::string question = there.front() + " already exists. Overwrite?";
    if (there.size() > 1)
        question = there.front() + " and " + CountText(static_cast<int>(there.size()) - 1, "other") +
                   " already exist. Overwrite them?";
    return session.Prompts.Ask(question, Buttons::YesNo) == Answer::Yes;
}

/// Why a circuit from a box that was typed in, or is a set, is shown in the colour of what is not owned.
void TellWhyAllIsRed(Session& session) {
    if (session.Windows == nullptr || OwnedBox(session.Catalogue, session.Project.Stock).Total() > 0) return;
    session.Windows->TellBriefly("None of it is yours yet: it is shown as pieces to be bought. I Own These in Circuit "
                                 "▸ From My Box… says that it is.");
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

Design Surroundings::With(const pistaro::Track& circuit) const {
    pistaro::Design design = Design;
    design.Circuit.Tracks[static_cast<std::size_t>(Track)] = circuit;
    return design;
}

bool HasOtherTracks(const Surroundings& around) {
    return std::ranges::any_of(around.Design.Circuit.Tracks,
                               [](const Track& track) { return !track.ElementCodes.empty(); });
}

bool HasWalls(const RoomPolygon& room) {
    return std::ranges::any_of(room.Points, [](const RoomPoint& point) { return point.Line == 1; });
}

bool IsForTheSame(const BoxWish& one, const BoxWish& other) {
    return one.Box == other.Box && one.Area == other.Area && one.FromWalls == other.FromWalls &&
           one.MustHave == other.MustHave && one.Varied == other.Varied && one.Kept == other.Kept;
}

Circuit TrackAlone(const Circuit& circuit, int track) {
    const auto at = static_cast<std::size_t>(track);
    Circuit alone = EmptyCircuit();
    alone.Tracks[at] = circuit.Tracks[at];
    return alone;
}

Surroundings SurroundingsFor(const Session& session, const BoxWish& wish) {
    const Design& now = session.Project.Design;
    Surroundings around{wish.Area ? EmptyArea(*wish.Area, wish.MiddleX, wish.MiddleY) : now, wish.Varied.value_or(0)};
    around.Design.Circuit = wish.Varied ? now.Circuit : EmptyCircuit();
    return {around.With({}), around.Track};
}

LayingTask TaskFor(const Session& session, const BoxWish& wish) {
    if (wish.Box.Total() == 0) throw Fault("Refused", "the box is empty");
    const std::string lacking = WhyNot(session.Catalogue, wish.Box, wish.MustHave);
    if (!lacking.empty()) throw Fault("Refused", lacking);
    LayingTask task = WishedTask(session, wish);
    if (!HasWalls(task.Room)) throw Fault("Refused", "the design has no room with walls");
    if (task.Kept && !CanKeep(session.Catalogue, task.Kept->Rows))
        throw Fault("Refused", "the part that is kept must begin and end within one system");
    return task;
}

std::string WhyNeverFulfilled(const Session& session, const BoxWish& wish) {
    const LayingTask task = WishedTask(session, wish);
    if (wish.Box.Total() == 0 || !HasWalls(task.Room)) return "";
    const std::string impossible = WhyNoCircuit(session.Catalogue, task);
    return impossible.empty() ? WhyNot(session.Catalogue, wish.Box, wish.MustHave) : impossible;
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

int VariedTrack(const Session& session) {
    const Project& project = session.Project;
    const auto hasPieces = [](const Track& track) { return !track.ElementCodes.empty(); };
    const Track* const edited = EditedTrack(project.Design.Circuit, project.EditState);
    if (edited != nullptr && hasPieces(*edited)) return project.EditState.CurrentTrack;
    const auto& tracks = project.Design.Circuit.Tracks;
    const auto first = std::ranges::find_if(tracks, hasPieces);
    return first == tracks.end() ? 0 : static_cast<int>(first - tracks.begin());
}

PieceBox BoxOfTrack(const Session& session, int track) {
    Circuit alone;
    alone.Tracks.front() = TrackOf(session, track);
    return {CountUsed(session.Catalogue, alone)};
}

MustHaves MustHavesOfTrack(const Session& session, int track) {
    const Track& its = TrackOf(session, track);
    return MustHavesOf(session.Catalogue, PartOf(session.Catalogue, its, 0, its.ElementLastIndex() + 1).Rows);
}

TrackPart PartOf(const Catalogue& catalogue, const Track& track, int first, int count) {
    TrackPart part;
    part.At = track.Start();
    WalkTrack(catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr && element < first) part.At = placement->Exit;
    });
    for (int element = first; element < first + count; ++element) {
        const int row = catalogue.FindRow(track.ElementCodes[static_cast<std::size_t>(element)]);
        if (row >= 0) part.Rows.push_back(row);
    }
    return part;
}

BoxedSets SetsOf(const Session& session) {
    return SetsBeside(session.Catalogue, session.SettingsPath).value_or(ExampleSets(session.Catalogue));
}

std::string WhyNotVary(const Session& session) {
    if (session.Windows == nullptr) return "Available in the designer only.";
    return BoxOfTrack(session, VariedTrack(session)).Total() == 0 ? "There are no pieces to lay in another way." : "";
}

bool OpenAsNew(Session& session, bool varies, const Surroundings& around, const Track& track,
               std::optional<Circuit>& opened) {
    const Design design = around.With(track);
    Project& project = session.Project;
    if (project.Design.Circuit == design.Circuit) return true;
    if (project.Design.Circuit != opened && !MayReplace(session)) return false;
    session.NotifyLeaving();
    const std::string name = varies ? VariationName(project.EditState) : std::string();
    NewProject(project);
    project.EditState.Name = name;
    project.Design = design;
    project.EditState.CurrentTrack = around.Track;
    FitView(session.Catalogue, project.Design);
    project.EditState.DataChanged = true;
    session.BeginCircuit(varies ? "Variation" : "Circuit from My Box");
    opened = design.Circuit;
    if (!varies) TellWhyAllIsRed(session);
    return true;
}

Surroundings WithPresentTracks(const Session& session, Surroundings around) {
    const Design& now = session.Project.Design;
    around.Design.Circuit = now.Circuit;
    if (!HasWalls(now.Room)) around.Design.Room = now.Room;
    return {around.With({}), around.Track};
}

bool KeepAsFiles(Session& session, const Surroundings& around, const std::vector<Track>& tracks) {
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
        written.push_back(std::make_unique<WrittenFile>(files[i], CircuitBytes(around.With(tracks[i]))));
    for (const std::unique_ptr<WrittenFile>& one : written)
        one->TakePlace();
    const std::string others =
        files.size() > 1 ? "The others stand beside it, up to " + TextFromPath(files.back().filename()) + "." : "";
    session.Prompts.TellWritten(files.front(), others);
    return true;
}

} // namespace pistaro
