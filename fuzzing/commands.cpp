// Any commands with undo and redo between them: each state of the history comes back to the byte, and is what the
// commands that led to it make of a new beginning.
#include "commands/session.h"
#include "editor/circuit_files.h"
#include "editor/mouse_selection.h"
#include "editor/track_editing.h"
#include "fuzzing/require.h"
#include "platform/fault.h"
#include "storage/circuit_file.h"
#include "storage/settings_file.h"
#include "support/pieces.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <chrono>

namespace {

using namespace pistaro;

/// What somebody does. The modes are told with it, because undo leaves them as they are.
struct Act {
    enum Kinds { RunRow, Select, Click } Kind;
    std::size_t Row;
    int X, Y;
    bool Inserts, Ninco, AtOnce;
};

/// A user who agrees, and has no files.
class Nobody : public Prompts {
public:
    void Tell(const Message&) override {}
    Answer Ask(const std::string&, Buttons buttons) override {
        return buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
    }
    std::optional<std::filesystem::path> ChooseFile(const FileChoice&) override { return std::nullopt; }
};

/// The circuit and the room as a file holds them; zoom and scroll bars are not stepped through.
std::string BytesOf(const Design& design) {
    Design plain = design;
    plain.View = {};
    return CircuitBytes(plain);
}

class Player {
public:
    Player() {
        RoomPolygon& room = session_.Project.Design.Room;
        room.Points = {{-100, -100, 0}, {100, -100, 1}, {100, 100, 1}};
        session_.Now = [this] { return now_; };
        for (const Command& row : session_.Commands.Rows()) {
            constexpr std::array others{"quit", "load", "save", "save as", "undo", "redo", "close", "check"};
            if (row.From == Availability::WindowAndScript && std::ranges::find(others, row.Id) == others.end())
                rows_.push_back(&row);
        }
    }

    /// False when it is not offered, or refused.
    bool Do(const Act& act, bool onlyOffered) {
        EditState& edit = session_.Project.EditState;
        edit.InsertMode = act.Inserts;
        edit.System = act.Ninco ? TrackSystem::Ninco : TrackSystem::Scalextric;
        now_ += std::chrono::milliseconds(act.AtOnce ? 1 : 2000);
        try {
            if (act.Kind == Act::Select) return Selected(act);
            if (act.Kind == Act::Click) return Clicked(act);
            const Command& row = *rows_[act.Row % rows_.size()];
            if (onlyOffered) {
                session_.Run(row);
            } else {
                session_.Work([&] { row.Run(session_); });
            }
            return true;
        } catch (const Fault&) {
            return false;
        }
    }

    std::string Bytes() const { return BytesOf(session_.Project.Design); }
    const pistaro::History& History() const { return session_.History(); }
    void GoTo(std::size_t state) { session_.GoTo(state); }

private:
    bool Selected(const Act& act) {
        SelectElement(session_.Project.Design.Circuit, session_.Project.EditState, act.X);
        return true;
    }

    bool Clicked(const Act& act) {
        SelectNearestElement(Pieces(), session_.Project.Design.Circuit, session_.Project.EditState,
                             {static_cast<float>(act.X), static_cast<float>(act.Y)});
        return true;
    }

    Nobody nobody_;
    Session session_{Pieces(), nobody_, StartUp(InitialSettings(Pieces())), {}};
    std::chrono::steady_clock::time_point now_;
    std::vector<const Command*> rows_;
};

/// What is known of a state of the history: its design, what was done until it was there, and since without a step.
struct State {
    std::string Bytes;
    std::vector<Act> Path, Since;
};

Act NextAct(FuzzedDataProvider& input) {
    return {.Kind = static_cast<Act::Kinds>(std::max(0, input.ConsumeIntegralInRange(-7, 2))),
            .Row = input.ConsumeIntegral<std::uint8_t>(),
            .X = input.ConsumeIntegralInRange(-200, 200),
            .Y = input.ConsumeIntegralInRange(-200, 200),
            .Inserts = input.ConsumeBool(),
            .Ninco = input.ConsumeBool(),
            .AtOnce = input.ConsumeBool()};
}

/// Goes to a state of the history and looks whether it is the one that was left.
void Step(Player& player, const std::vector<State>& states, FuzzedDataProvider& input) {
    if (player.History().Count() == 0) return;
    player.GoTo(input.ConsumeIntegralInRange<std::size_t>(0, player.History().Count() - 1));
    const State& state = states[player.History().Present()];
    Require(player.Bytes() == state.Bytes, "a state comes back to the byte", player.Bytes() + "\nfor\n" + state.Bytes);
}

/// Does something, and keeps what became of the states.
void Go(Player& player, std::vector<State>& states, const Act& act) {
    const std::size_t from = player.History().Present();
    const std::string before = player.Bytes();
    if (!player.Do(act, true)) return Require(player.Bytes() == before, "what is refused changes nothing");
    const std::size_t to = player.History().Present();
    State& left = states[from];
    left.Since.push_back(act);
    if (player.Bytes() == before && to == from) return;
    State reached{player.Bytes(), left.Path, {}};
    reached.Path.insert(reached.Path.end(), left.Since.begin(), left.Since.end());
    if (to > from) left.Since.pop_back();
    states.resize(to);
    states.push_back(std::move(reached));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    Player player;
    std::vector<State> states{{player.Bytes(), {}, {}}};
    for (int acts = 0; acts < 200 && input.remaining_bytes() > 0; ++acts) {
        if (input.ConsumeIntegralInRange(0, 5) == 0) {
            Step(player, states, input);
        } else {
            Go(player, states, NextAct(input));
        }
        Require(player.Bytes() == states[player.History().Present()].Bytes, "the present state is the design");
    }
    Player again;
    const State& last = states[player.History().Present()];
    for (const Act& act : last.Path)
        again.Do(act, false);
    Require(again.Bytes() == last.Bytes, "a replay gives the same design", again.Bytes() + "\nfor\n" + last.Bytes);
    return 0;
}
