#include "commands/history.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr std::chrono::seconds LongestPause{1}; ///< between works of a run
constexpr std::size_t BlockBytes = 48;          ///< what the allocator and the count of owners take of a shared block

/// The codes of a track in one block, a fifth of what the list takes. A code is a line of a file: it holds no line
/// feed.
std::string Joined(const std::vector<std::string>& codes) {
    std::size_t length = 0;
    for (const std::string& code : codes)
        length += code.size() + 1;
    std::string joined;
    joined.reserve(length);
    for (const std::string& code : codes)
        (joined += code) += '\n';
    return joined;
}

bool Holds(const std::string& joined, const std::vector<std::string>& codes) {
    std::size_t at = 0;
    for (const std::string& code : codes) {
        if (joined.compare(at, code.size(), code) != 0 || joined[at + code.size()] != '\n') return false;
        at += code.size() + 1;
    }
    return at == joined.size();
}

std::vector<std::string> Split(const std::string& joined) {
    std::vector<std::string> codes;
    codes.reserve(static_cast<std::size_t>(std::ranges::count(joined, '\n')));
    for (std::size_t begin = 0; begin < joined.size();) {
        const std::size_t end = joined.find('\n', begin);
        codes.push_back(joined.substr(begin, end - begin));
        begin = end + 1;
    }
    return codes;
}

/// The last block where it holds the same value, else a new one.
template <typename Value>
std::shared_ptr<const Value> Shared(const std::shared_ptr<const Value>& last, Value value) {
    return last && *last == value ? last : std::make_shared<const Value>(std::move(value));
}

std::size_t SizeOf(const std::string& text) { return sizeof(std::string) + text.capacity(); }

std::size_t SizeOf(const RoomPolygon& room) { return sizeof(room) + room.Points.capacity() * sizeof(RoomPoint); }

std::size_t SizeOf(const ViewSettings& view) { return sizeof(view); }

/// A path's length may change while the states hold it: as much as a usual one.
std::size_t SizeOf(const std::filesystem::path&) { return 512; }

/// The background with the picture of an earlier state that holds the same bytes, as where its circuit was loaded
/// again.
template <typename States>
std::shared_ptr<const ScaledBackground> Shared(const States& states,
                                               const std::shared_ptr<const ScaledBackground>& background) {
    if (!background || !background->Picture) return background;
    for (const auto& state : states) {
        if (state.Background == background) return background;
        const auto& picture = state.Background ? state.Background->Picture : nullptr;
        if (!picture || picture == background->Picture || *picture != *background->Picture) continue;
        ScaledBackground shared = *background;
        shared.Picture = picture;
        return std::make_shared<const ScaledBackground>(std::move(shared));
    }
    return background;
}

/// Whether one state alone holds the picture. Who else does, such as the project, is none of the history's memory.
template <typename States>
bool OneHolds(const States& states, const std::shared_ptr<const std::string>& picture) {
    const auto holds = [&](const auto& state) { return state.Background && state.Background->Picture == picture; };
    const auto first = std::ranges::find_if(states, holds);
    return first != states.end() && std::none_of(std::next(first), states.end(), holds);
}

/// What a state of these takes for the picture under its circuit: the place, which is small, in each of them; the bytes
/// with the last that holds them.
template <typename States, typename State>
std::size_t BackgroundBytes(const States& states, const State& state) {
    if (!state.Background) return 0;
    const auto& picture = state.Background->Picture;
    const std::size_t place = BlockBytes + sizeof(*state.Background);
    return picture && OneHolds(states, picture) ? place + BlockBytes + SizeOf(*picture) : place;
}

/// What goes when the block's last owner goes.
template <typename Value>
std::size_t OwnBytes(const std::shared_ptr<Value>& block) {
    return block.use_count() == 1 ? BlockBytes + SizeOf(*block) : 0;
}

} // namespace

void History::Record(const Project& before, const Project& after, const StepName& name) {
    const bool viewChanged = before.Design.View != after.Design.View;
    const bool designChanged = before.Design.Circuit != after.Design.Circuit ||
                               before.Design.Room != after.Design.Room || before.Background != after.Background ||
                               (name.EditsView && viewChanged);
    const bool otherCircuit = name.BeginsCircuit && before.EditState != after.EditState;
    if (!designChanged && !otherCircuit) return;

    if (states_.empty()) Append(StateOf(before, {}, nullptr, true));
    if (ContinuesRun(before, name)) {
        --present_;
    } else {
        State& left = states_[present_];
        bytes_ -= left.NameOfWork.capacity();
        Leave(left, before);
        bytes_ += left.NameOfWork.capacity();
    }
    DropFrom(present_ + 1);
    Append(StateOf(after, name, &states_[present_], viewChanged));
    present_ = states_.size() - 1;
    for (; bytes_ > mostBytes_ && present_ > 0; --present_) {
        bytes_ -= BytesOf(states_.front()) + BackgroundBytes(states_, states_.front());
        states_.pop_front();
    }
}

void History::GoTo(std::size_t state, Project& project) {
    State& from = states_[present_];
    const State& to = states_[state];
    bytes_ -= from.NameOfWork.capacity();
    Leave(from, project);
    bytes_ += from.NameOfWork.capacity();
    for (std::size_t at = 0; at < to.Codes.size(); ++at) {
        Track& track = project.Design.Circuit.Tracks[at];
        if (from.Codes[at] != to.Codes[at]) track.ElementCodes = Split(*to.Codes[at]);
        track.TrackStartX = to.Starts[at].CursorX;
        track.TrackStartY = to.Starts[at].CursorY;
        track.TrackStartHeading = to.Starts[at].CursorHeading;
    }
    project.Design.Room = *to.Room;
    project.Background = to.Background;
    project.Design.View = *to.View;
    project.EditState.CurrentTrack = to.CurrentTrack;
    project.EditState.CurrentElement = to.CurrentElement;
    project.EditState.SelectItAlone();
    project.EditState.DataChanged = to.DataChanged;
    project.EditState.File = *to.File;
    project.EditState.Name = to.NameOfWork;
    present_ = state;
}

void History::NoteOnlyOneInFile(const std::filesystem::path& file) {
    if (states_.empty()) return;
    *states_[present_].File = file;
    for (State& state : states_) {
        if (*state.File == file) state.DataChanged = true;
    }
    states_[present_].DataChanged = false;
}

bool History::AreOfOneCircuit(std::size_t one, std::size_t other) const {
    return states_[one].File == states_[other].File;
}

History::State History::StateOf(const Project& project, const StepName& name, const State* last, bool setsView) {
    State state;
    state.Name = name;
    for (std::size_t at = 0; at < state.Codes.size(); ++at) {
        const Track& track = project.Design.Circuit.Tracks[at];
        const bool isShared = last != nullptr && Holds(*last->Codes[at], track.ElementCodes);
        state.Codes[at] = isShared ? last->Codes[at] : std::make_shared<const std::string>(Joined(track.ElementCodes));
        state.Starts[at] = track.Start();
    }
    state.Room = Shared(last ? last->Room : nullptr, RoomPolygon(project.Design.Room));
    state.Background = project.Background;
    state.View = last && !setsView ? last->View : std::make_shared<ViewSettings>();
    state.File = last && !name.BeginsCircuit ? last->File : std::make_shared<std::filesystem::path>();
    Leave(state, project);
    return state;
}

void History::Leave(State& state, const Project& project) {
    state.CurrentTrack = project.EditState.CurrentTrack;
    state.CurrentElement = project.EditState.CurrentElement;
    state.DataChanged = project.EditState.DataChanged;
    *state.View = project.Design.View;
    *state.File = project.EditState.File;
    state.NameOfWork = project.EditState.Name;
}

bool History::ContinuesRun(const Project& before, const StepName& name) const {
    const State& present = states_[present_];
    return !name.Run.empty() && name.Run == present.Name.Run && name.Time - present.Name.Time <= LongestPause &&
           CanUndo() && !CanRedo() && before.EditState.CurrentTrack == present.CurrentTrack &&
           before.EditState.DataChanged;
}

std::size_t History::BytesOf(const State& state) {
    std::size_t bytes =
        sizeof(state) + state.Name.Caption.capacity() + state.Name.Run.capacity() + state.NameOfWork.capacity();
    for (const auto& codes : state.Codes)
        bytes += OwnBytes(codes);
    return bytes + OwnBytes(state.Room) + OwnBytes(state.View) + OwnBytes(state.File);
}

void History::DropFrom(std::size_t state) {
    for (; states_.size() > state; states_.pop_back())
        bytes_ -= BytesOf(states_.back()) + BackgroundBytes(states_, states_.back());
}

void History::Append(State&& state) {
    state.Background = Shared(states_, state.Background);
    states_.push_back(std::move(state));
    bytes_ += BytesOf(states_.back()) + BackgroundBytes(states_, states_.back());
}

} // namespace pistaro
