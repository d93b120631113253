#include "cli/generate.h"

#include "cli/foreground.h"
#include "cli/start.h"
#include "commands/laying_commands.h"
#include "exchange/json.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "storage/circuit_file.h"

#include <charconv>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace pistaro {

namespace {

Design RoomDesign(const GenerateOptions& options) {
    if (!options.RoomOf) return EmptyArea(options.Area);
    Design design = ReadCircuit(*options.RoomOf);
    if (!HasWalls(design.Room)) throw Fault("No room", TextFromPath(*options.RoomOf) + " holds no room with walls");
    design.Circuit = EmptyCircuit();
    return design;
}

PieceBox BoxFor(const VerbContext& context, const Project& project, const GenerateOptions& options) {
    if (!options.IsOwned) return BoxOf(context.Catalogue, options.Pieces);
    PieceBox owned = OwnedBox(context.Catalogue, project.Stock);
    if (owned.Total() == 0) throw Fault("No pieces", "the settings hold no owned track");
    return owned;
}

void RefuseWhatHoldsSomething(const std::filesystem::path& folder) {
    std::error_code error;
    if (!std::filesystem::exists(folder, error)) return;
    if (!std::filesystem::is_directory(folder, error)) throw Fault("No folder", TextFromPath(folder));
    const bool empty = std::filesystem::is_empty(folder, error);
    if (error) throw Fault("Path not readable", TextFromPath(folder) + ": " + error.message());
    if (!empty) throw Fault("Folder not empty", TextFromPath(folder));
}

/// The circuits' files, which go again, with a folder that was made for them, unless all could be written.
class CircuitFolder {
public:
    explicit CircuitFolder(std::filesystem::path folder) : folder_(std::move(folder)) {
        std::error_code error;
        made_ = std::filesystem::create_directory(folder_, error);
        if (error) throw Fault("Path not found", TextFromPath(folder_) + ": " + error.message());
    }
    ~CircuitFolder() {
        if (whole_) return;
        std::error_code stays;
        for (const std::filesystem::path& file : files_)
            std::filesystem::remove(file, stays);
        if (made_) std::filesystem::remove(folder_, stays);
    }
    CircuitFolder(const CircuitFolder&) = delete;
    CircuitFolder& operator=(const CircuitFolder&) = delete;

    void Write(const Design& design) {
        const std::string number = std::to_string(files_.size() + 1);
        const std::filesystem::path file =
            folder_ / ("circuit-" + std::string(number.size() < 2, '0') + number + ".trk");
        WriteCircuit(file, design);
        files_.push_back(file);
    }

    const std::vector<std::filesystem::path>& Files() const { return files_; }

    /// They stay.
    void Keep() { whole_ = true; }

private:
    std::filesystem::path folder_;
    std::vector<std::filesystem::path> files_;
    bool made_ = false, whole_ = false;
};

Json CircuitJson(const std::filesystem::path& file, const LaidCircuit& circuit) {
    return {{"file", TextFromPath(file)},
            {"pieces", circuit.Track.ElementCodes},
            {"count", circuit.Track.ElementCodes.size()},
            {"used", Number(static_cast<float>(circuit.Used))},
            {"length", Number(static_cast<float>(circuit.Length))},
            {"gap", {{"distance", Number(circuit.Gap.Distance)}, {"angle", Number(circuit.Gap.Angle)}}},
            {"score", Number(static_cast<float>(circuit.Score))}};
}

/// Asks for the end of a search when something else does, or after a number of seconds, if there is one.
class SearchEnd {
public:
    SearchEnd(std::optional<double> seconds, const std::stop_token& sooner)
        : onSooner_(sooner, [this] { ending_.request_stop(); }) {
        if (seconds) clock_ = std::jthread([this, seconds](const std::stop_token& isOver) { Wait(isOver, *seconds); });
    }

    std::stop_token Token() const { return ending_.get_token(); }

private:
    void Wait(const std::stop_token& isOver, double seconds) {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any never;
        never.wait_for(lock, isOver, std::chrono::duration<double>(seconds), [] { return false; });
        if (!isOver.stop_requested()) ending_.request_stop();
    }

    std::stop_source ending_;
    std::stop_callback<std::function<void()>> onSooner_;
    std::jthread clock_; ///< goes first
};

/// A whole number of cm at the front of `text`, which is taken off it; 0 where there is none.
int TakeLength(std::string_view& text) {
    int length = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), length);
    if (error != std::errc()) return 0;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return length;
}

const char* WhyNone(const Laying& laying) {
    if (laying.AreAll) return "these pieces make none in this room";
    return laying.TimeWasUp ? "none was found from these pieces in this room before the time was up"
                            : "none was found from these pieces in this room";
}

const char* WhyNoMore(const Laying& laying, bool wasInterrupted) {
    if (laying.AreAll) return "there are no others";
    if (wasInterrupted) return "it was interrupted";
    return laying.TimeWasUp ? "the time was up" : "no others were found";
}

/// Ctrl+C ends the search with what is found by then, as the time does.
Laying Lay(const VerbContext& context, const LayingTask& task, const Interruptions& interruptions,
           std::optional<double> seconds) {
    return InForeground(interruptions, context.Errors, "generate, circuits found", [&](const JobWatch& watch) {
        const JobWatch untilEnded{.Progress = watch.Progress, .Stop = {}};
        const SearchEnd end(seconds, interruptions.Stop());
        return LayCircuits(context.Catalogue, task, untilEnded, end.Token());
    });
}

/// The files stay only when every line of them was printed, too.
void WriteAndTell(const VerbContext& context, const std::filesystem::path& out,
                  const std::vector<LaidCircuit>& circuits, Design design) {
    CircuitFolder folder(out);
    for (const LaidCircuit& circuit : circuits) {
        design.Circuit.Tracks.front() = circuit.Track;
        folder.Write(design);
    }
    for (std::size_t i = 0; i < circuits.size(); ++i)
        context.Output << Line(CircuitJson(folder.Files()[i], circuits[i])) << '\n';
    FlushOutput(context);
    folder.Keep();
}

} // namespace

std::optional<Area> AreaOf(std::string_view text) {
    constexpr int longest = 30000; // a room's points are 16-bit numbers
    const auto isLength = [](int length) { return length >= 1 && length <= longest; };
    Area area;
    area.Width = TakeLength(text);
    if (!text.starts_with('x')) return std::nullopt;
    text.remove_prefix(1);
    area.Height = TakeLength(text);
    if (!text.empty() || !isLength(area.Width) || !isLength(area.Height)) return std::nullopt;
    return area;
}

void GenerateVerb(const VerbContext& context, const GenerateOptions& options) {
    VerbStart start = StartVerb(context);
    PrintMessages(start.Messages, context.Errors);
    Design design = RoomDesign(options);
    const LayingTask task{.Box = BoxFor(context, start.Project, options),
                          .Room = design.Room,
                          .Seed = options.Seed,
                          .Count = options.Count};
    RefuseWhatHoldsSomething(options.Out);
    const Interruptions interruptions;
    const Laying laying = Lay(context, task, interruptions, options.Seconds);
    const bool wasInterrupted = interruptions.Stop().stop_requested();
    if (laying.Circuits.empty() && wasInterrupted) throw Stopped();
    if (laying.Circuits.empty()) throw Fault("No circuit", WhyNone(laying));
    WriteAndTell(context, options.Out, laying.Circuits, std::move(design));
    if (static_cast<int>(laying.Circuits.size()) < options.Count)
        context.Errors << "pistaro: " << laying.Circuits.size() << " of " << options.Count
                       << " circuits: " << WhyNoMore(laying, wasInterrupted) << '\n';
    if (wasInterrupted) throw Stopped();
}

} // namespace pistaro
