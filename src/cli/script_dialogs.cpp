#include "cli/script_dialogs.h"

#include "cli/settings_json.h"
#include "editor/colour_settings.h"
#include "editor/draw_area.h"
#include "editor/owned_track.h"
#include "exchange/json.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <limits>

namespace pistaro {

namespace {

/// Prints what a dialog tells; asked, it agrees as every script does.
class PrintedPrompts : public ScriptPrompts {
public:
    explicit PrintedPrompts(std::ostream& output) : output_(output) {}

    void Tell(const Message& message) override { output_ << Line(MessageJson(message)) << std::endl; }

private:
    std::ostream& output_;
};

struct NameAndValue {
    std::string Name, Value;
};

NameAndValue Split(const std::string& word) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) throw Refused("\"" + word + "\" has no \"=\"");
    return {word.substr(0, equals), word.substr(equals + 1)};
}

/// Hands every NAME=VALUE between the command and its button to `set`.
template <typename Set>
void ForEachField(const Words& words, Set set) {
    for (std::size_t i = 1; i + 1 < words.size(); ++i)
        set(Split(words[i]));
}

bool PressesSave(const Words& words) {
    if (words.back() != "apply" && words.back() != "save") {
        throw Refused("\"" + words[0] + "\" ends with \"apply\" or \"save\"");
    }
    return words.back() == "save";
}

struct TextField {
    std::string_view Name;
    std::string DrawAreaFields::*Field;
};

constexpr std::array AreaTextFields{
    TextField{"centre-x", &DrawAreaFields::CentreX},   TextField{"centre-y", &DrawAreaFields::CentreY},
    TextField{"max-width", &DrawAreaFields::MaxWidth}, TextField{"window", &DrawAreaFields::ZoomVal},
    TextField{"angle", &DrawAreaFields::RoomAngle},    TextField{"step", &DrawAreaFields::Step},
    TextField{"currency", &DrawAreaFields::Currency},
};

void SetAreaField(DrawAreaFields& fields, const NameAndValue& field) {
    const auto* const text = std::ranges::find(AreaTextFields, field.Name, &TextField::Name);
    if (text != AreaTextFields.end()) {
        fields.*text->Field = field.Value;
    } else if (field.Name == "grid") {
        fields.Grid = IntegerIn(field.Value, static_cast<int>(GridType::None), static_cast<int>(GridType::Dots));
    } else if (field.Name == "units") {
        fields.Inches = field.Value == "in" || (field.Value != "cm" && IntegerIn(field.Value, 0, 1) == 1);
    } else {
        throw Refused("the draw area has no \"" + field.Name + "\"");
    }
}

void SetColour(ColourScheme& colours, const NameAndValue& field) {
    const auto* const slot = std::ranges::find(ColourSlots, field.Name, &ColourSlot::Name);
    if (slot == std::ranges::end(ColourSlots)) throw Refused("there is no colour \"" + field.Name + "\"");
    colours.*slot->Slot =
        IntegerIn(field.Value, std::numeric_limits<Colour>::min(), std::numeric_limits<Colour>::max());
}

void SetStock(StockBoxes& boxes, const NameAndValue& field) {
    const auto box = std::ranges::find(boxes, field.Name, &StockBox::Tag);
    if (box == boxes.end()) throw Refused("there is no product \"" + field.Name + "\"");
    const std::size_t at = field.Value.find('@');
    box->Owned = field.Value.substr(0, at);
    if (at != std::string::npos) box->Price = field.Value.substr(at + 1);
}

/// The entry fields X Y 0|1 at the end of a line.
RoomEntry EntryIn(const Words& words) {
    const std::size_t first = words.size() - 3;
    return {words[first], words[first + 1], IntegerIn(words[first + 2], 0, 1) == 1};
}

void RequireWords(const Words& words, std::size_t number) {
    if (words.size() != number) throw Refused("\"room " + words[1] + "\" wants other words after it");
}

} // namespace

void RunColours(Script& script, const Words& words) {
    const bool save = PressesSave(words);
    Session& session = script.Session;
    ColourScheme colours = session.Project.Preferences.Colours;
    ForEachField(words, [&](const NameAndValue& field) { SetColour(colours, field); });
    PrintedPrompts prompts(script.Output);
    if (save) {
        SaveColours(session.Catalogue, session.SettingsPath, colours, prompts);
    } else {
        session.Project.Preferences.Colours = colours;
    }
}

void RunStock(Script& script, const Words& words) {
    if (words.back() != "save") throw Refused("\"stock\" ends with \"save\"");
    Session& session = script.Session;
    StockBoxes boxes = EmptyStockBoxes(session.Catalogue);
    FillStockBoxes(session.Catalogue, session.Project.Stock, boxes);
    ForEachField(words, [&](const NameAndValue& field) { SetStock(boxes, field); });
    PrintedPrompts prompts(script.Output);
    SaveOwnedTrack(session.Catalogue, session.SettingsPath, session.Project.Stock, boxes, prompts);
}

void RunArea(Script& script, const Words& words) {
    const bool save = PressesSave(words);
    Session& session = script.Session;
    Project& project = session.Project;
    DrawAreaFields fields = OpenDrawArea(project.Design, project.Preferences);
    ForEachField(words, [&](const NameAndValue& field) { SetAreaField(fields, field); });
    if (script.Room) fields.Room = *script.Room;
    PrintedPrompts prompts(script.Output);
    session.NameStep("Draw Area");
    const bool done = save ? SaveDrawArea(session.Catalogue, project, session.SettingsPath, fields, prompts)
                           : ApplyDrawArea(project, fields, prompts);
    if (done) script.Room.reset(); // the dialog that a message keeps open keeps its room points, too
}

void RunRoom(Script& script, const Words& words) {
    RoomPoints room = script.Room.value_or(OpenRoomPoints(script.Session.Project.Design.Room.Points));
    PrintedPrompts prompts(script.Output);
    const std::string& button = words[1];
    if (button == "add") {
        RequireWords(words, 5);
        ScrollToPoint(room, LastPlace(room));
        room.Entry = EntryIn(words);
        AddPoint(room, prompts);
    } else if (button == "set") {
        RequireWords(words, 6);
        ScrollToPoint(room, IntegerIn(words[2], 1, LastPlace(room)));
        room.Entry = EntryIn(words);
        AddPoint(room, prompts);
    } else if (button == "delete") {
        RequireWords(words, 3);
        const int point = IntegerIn(words[2], 1, MaxRoomPoints);
        if (point > static_cast<int>(room.Points.size())) throw Refused("the room has no point " + words[2]);
        ScrollToPoint(room, point);
        DeletePoint(room);
    } else {
        throw Refused("\"room\" knows add, set and delete, not \"" + button + "\"");
    }
    script.Room = std::move(room);
}

void PrintSettings(Script& script, const Words&) {
    const Session& session = script.Session;
    script.Output << Line(SettingsJson(session.Catalogue, session.Project, TextFromPath(session.SettingsPath),
                                       script.Warnings))
                  << std::endl;
}

} // namespace pistaro
