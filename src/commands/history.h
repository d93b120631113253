// Undo and redo: one list of the states that the design went through, which share what did not change between them.
#pragma once

#include "model/project.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <memory>
#include <string>

namespace pistaro {

/// What a piece of work is called that changed the design.
struct StepName {
    std::string Caption = {};   ///< "Add C151"
    std::string Run = {};       ///< works of the same run within a second are one step; empty for a step of its own
    bool EditsView = false;     ///< a change of the view alone is a step, too, not a zoom or a scroll
    bool BeginsCircuit = false; ///< another circuit took the place of that before: Load, New
    std::chrono::steady_clock::time_point Time = {};
};

/// States are numbered from the oldest one kept, which is 0. Each holds the design, the selection, the circuit's file
/// and whether it had unsaved changes. Zoom and scroll bars are not stepped through: they stay as they are until a step
/// is crossed that set the view.
class History {
public:
    static constexpr std::size_t MostBytes = std::size_t{64} << 20;

    /// The oldest states are dropped beyond that many bytes.
    explicit History(std::size_t mostBytes = MostBytes) : mostBytes_(mostBytes) {}

    /// Keeps what a piece of work made of a project, unless it changed nothing that is stepped through. States that
    /// were undone are dropped.
    void Record(const Project& before, const Project& after, const StepName& name);

    /// Puts a state into the project in place of the present one, which is kept as it is left.
    void GoTo(std::size_t state, Project& project);

    /// Of all states of the present circuit, and of others of its file, the present one alone stands in the file.
    void NoteOnlyOneInFile(const std::filesystem::path& file);

    std::size_t Count() const { return states_.size(); } ///< 0 before the first step
    std::size_t Present() const { return present_; }
    bool CanUndo() const { return present_ > 0; }
    bool CanRedo() const { return present_ + 1 < states_.size(); }

    /// What led to a state; empty for the one before the first step.
    const std::string& Caption(std::size_t state) const { return states_[state].Name.Caption; }

    /// Whether both states are of one circuit: no Load or New lies between them.
    bool AreOfOneCircuit(std::size_t one, std::size_t other) const;

    std::size_t Bytes() const { return bytes_; } ///< what the states take, about

private:
    struct State {
        StepName Name;
        std::array<std::shared_ptr<const std::string>, TrackCount> Codes; ///< each followed by a line feed
        std::array<BuildCursor, TrackCount> Starts;
        std::shared_ptr<const RoomPolygon> Room;
        std::shared_ptr<const ScaledBackground> Background;
        std::shared_ptr<ViewSettings> View;          ///< one for all states between two that set it
        std::shared_ptr<std::filesystem::path> File; ///< one for all states of a circuit
        std::string NameOfWork;                      ///< that of recovered work
        int CurrentTrack = 0;
        std::array<int, TrackCount> CurrentElement{};
        bool DataChanged = false;
    };

    /// The project as a state, which shares with `last` what is alike.
    static State StateOf(const Project& project, const StepName& name, const State* last, bool setsView);

    /// Keeps how a state is left.
    static void Leave(State& state, const Project& project);

    /// With the blocks that no other state shares.
    static std::size_t BytesOf(const State& state);

    bool ContinuesRun(const Project& before, const StepName& name) const;
    void DropFrom(std::size_t state);
    void Append(State&& state);

    std::size_t mostBytes_;
    std::deque<State> states_;
    std::size_t present_ = 0;
    std::size_t bytes_ = 0;
};

} // namespace pistaro
