// The table of commands as a whole: what every row must have, and when rows are offered.
#include "commands/commands.h"

#include "commands/session.h"
#include "support/chain.h"
#include "support/press.h"
#include "support/scripted_prompts.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace pistaro {

using testing::IsEmpty;
using testing::Not;

namespace {

const CommandTable& Table() {
    static const CommandTable table(Pieces());
    return table;
}

const std::vector<Command>& Rows() { return Table().Rows(); }

} // namespace

TEST(Commands, EachRowHasIdControlCaptionTipAndFunctions) {
    for (const Command& command : Rows()) {
        SCOPED_TRACE(command.Id);
        EXPECT_THAT(command.Id, Not(IsEmpty()));
        EXPECT_THAT(command.Control, Not(IsEmpty()));
        EXPECT_THAT(command.Caption, Not(IsEmpty()));
        EXPECT_THAT(command.Tip, Not(IsEmpty()));
        EXPECT_TRUE(command.WhyNot);
        EXPECT_TRUE(command.Run);
    }
}

TEST(Commands, NoTwoRowsShareAnId) {
    std::set<std::string> ids;
    for (const Command& command : Rows())
        EXPECT_TRUE(ids.insert(command.Id).second) << command.Id;
}

TEST(Commands, OnlyTheBuildInsertSwitchHasTwoRowsForOneControl) {
    std::map<std::string, std::set<std::string>> idsByControl;
    for (const Command& command : Rows())
        idsByControl[command.Control + "[" + command.Tag + "]"].insert(command.Id);

    for (const auto& [control, ids] : idsByControl) {
        if (control == "cmdInsert[]") continue;
        EXPECT_EQ(ids.size(), 1U) << control;
    }
    EXPECT_EQ(idsByControl["cmdInsert[]"], (std::set<std::string>{"build", "insert"}));
}

TEST(Commands, NoTwoControlsShareAKey) {
    std::map<std::string, std::string> controlByKey;
    for (const Command& command : Rows()) {
        for (const std::string& key : {command.Key, command.OtherKey}) {
            if (key.empty()) continue;
            const auto [at, isNew] = controlByKey.emplace(key, command.Control + command.Tag);
            EXPECT_TRUE(isNew || at->second == command.Control + command.Tag) << key;
        }
    }
}

TEST(Commands, BuildAndInsertAreOneSwitchWithOneKey) {
    EXPECT_EQ(Table().Find("build")->Control, "cmdInsert");
    EXPECT_EQ(Table().Find("insert")->Control, "cmdInsert");
    std::vector<std::string> ids;
    for (const Command& command : Rows()) {
        if (command.Key == "Ins") ids.push_back(command.Id);
    }

    EXPECT_EQ(ids, (std::vector<std::string>{"build", "insert"}));
}

TEST(Commands, NoTwoControlsOfAnArrayShareTheirPlace) {
    std::map<std::string, std::set<int>> placesByControl;
    for (const Command& command : Rows()) {
        if (command.Index < 0) continue;
        EXPECT_TRUE(placesByControl[command.Control].insert(command.Index).second) << command.Id;
    }

    std::set<int> pieces;
    for (int place = 0; place < 28; ++place)
        pieces.insert(place);
    EXPECT_EQ(placesByControl,
              (std::map<std::string, std::set<int>>{
                  {"cmdElement", pieces}, {"optTrack", {0, 1, 2}}, {"mnuRecent", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}}}));
}

TEST(Commands, ThoseThatWantAWindowAreNotForScripts) {
    std::set<std::string> windowOnly;
    for (const Command& command : Rows()) {
        if (command.From == Availability::WindowOnly) windowOnly.insert(command.Id);
    }

    EXPECT_EQ(windowOnly, (std::set<std::string>{"quit",
                                                 "recovered work",
                                                 "see remaining",
                                                 "refresh",
                                                 "numbers",
                                                 "background select",
                                                 "background clear",
                                                 "background import",
                                                 "background place",
                                                 "background move",
                                                 "background remove",
                                                 "draw area",
                                                 "choose colours",
                                                 "loose track",
                                                 "statistics",
                                                 "guide",
                                                 "cancel job",
                                                 "save picture",
                                                 "manual",
                                                 "about",
                                                 "history",
                                                 "plain save",
                                                 "recent clear",
                                                 "recent 1",
                                                 "recent 2",
                                                 "recent 3",
                                                 "recent 4",
                                                 "recent 5",
                                                 "recent 6",
                                                 "recent 7",
                                                 "recent 8",
                                                 "recent 9",
                                                 "recent 10",
                                                 "columns",
                                                 "fold pieces",
                                                 "fold track",
                                                 "checks",
                                                 "stock and price",
                                                 "lanes",
                                                 "balance",
                                                 "boxed sets",
                                                 "purchase",
                                                 "close loop",
                                                 "other pieces",
                                                 "from my box",
                                                 "variations",
                                                 "suggest",
                                                 "export",
                                                 "print",
                                                 "build plan",
                                                 "copy",
                                                 "paste",
                                                 "surface",
                                                 "legend",
                                                 "find piece",
                                                 "samples",
                                                 "tour"}));
}

TEST(Commands, OnlyMovesTurnsZoomsAndTheHistoryCanBeRepeated) {
    std::set<std::string> repeatable;
    for (const Command& command : Rows()) {
        if (command.Repeatable) repeatable.insert(command.Id);
    }

    EXPECT_EQ(repeatable, (std::set<std::string>{"move up", "move down", "move left", "move right", "move up-left",
                                                 "move up-right", "move down-left", "move down-right", "rotate left",
                                                 "rotate right", "zoom in", "zoom out", "undo", "redo"}));
}

TEST(Commands, EachBasicPieceAndHandHasAButtonOfItsOwn) {
    std::vector<std::string> tags;
    for (const Command& command : Rows()) {
        if (command.Control == "cmdElement") tags.push_back(command.Tag);
    }

    EXPECT_EQ(tags, Codes("C151L C151R C152L C152R C153L C153R C154L C154R C156L C156R C157 C158 C159 C160 C187L C187R "
                          "N10102 N10103 N10104 N10105L N10105R N10106L N10106R N10107L N10107R N10108L N10108R "
                          "N10110"));
}

TEST(Commands, APieceButtonShowsItsCodeWithoutHandAndN) {
    EXPECT_EQ(Table().Find("add C151L")->Caption, "C151");
    EXPECT_EQ(Table().Find("add C160")->Caption, "C160");
    EXPECT_EQ(Table().Find("add N10105R")->Caption, "10105");
    EXPECT_EQ(Table().Find("add N10110")->Caption, "10110");
}

TEST(Commands, APieceButtonsTipNamesCodeAndLongName) {
    EXPECT_EQ(Table().Find("add C151L")->Tip, "C151L, standard curve 45°");
}

TEST(Commands, EachVariantHasItsMenuEntry) {
    std::vector<std::string> controls;
    for (const Command& command : Rows()) {
        if (command.Id.starts_with("replace ")) controls.push_back(command.Control);
    }

    EXPECT_EQ(controls, Codes("mnuC151 mnuC8010 mnuC159 mnuC160 mnuC164 mnuC248 mnuC277 mnuC367 mnuC8005 mnuC8006 "
                              "mnuC8007 mnuC8009 mnuN10102 mnuN10111"));
}

TEST(Commands, ControlsAreNamedAsTheWindowNamesThem) {
    const std::map<std::string, std::string> controls{{"new", "mnuCircuitReinit"},
                                                      {"load", "mnuCircuitLoad"},
                                                      {"save", "mnuCircuitSave"},
                                                      {"plain save", "mnuCircuitPlainSave"},
                                                      {"recent 1", "mnuRecent"},
                                                      {"recent clear", "mnuRecentClear"},
                                                      {"history", "mnuHistory"},
                                                      {"quit", "mnuQuit"},
                                                      {"undo", "mnuUndo"},
                                                      {"redo", "mnuRedo"},
                                                      {"build", "cmdInsert"},
                                                      {"insert", "cmdInsert"},
                                                      {"system", "mnuScalextricNinco"},
                                                      {"delete", "cmdDelete"},
                                                      {"mirror", "mnuMirror"},
                                                      {"invert", "mnuInvert"},
                                                      {"move up", "cmdMvUp"},
                                                      {"move down", "cmdMvDn"},
                                                      {"move left", "cmdMvLeft"},
                                                      {"move right", "cmdMvRight"},
                                                      {"move up-left", "cmdMvUpLeft"},
                                                      {"move up-right", "cmdMvUpRight"},
                                                      {"move down-left", "cmdMvDnLeft"},
                                                      {"move down-right", "cmdMvDnRight"},
                                                      {"rotate left", "cmdRotLeft"},
                                                      {"rotate right", "cmdRotRight"},
                                                      {"track 1", "optTrack"},
                                                      {"track 2", "optTrack"},
                                                      {"track 3", "optTrack"},
                                                      {"track all", "optAll"},
                                                      {"zoom in", "cmdZoomIn"},
                                                      {"zoom out", "cmdZoomOut"}};
    for (const auto& [id, control] : controls) {
        const Command* const command = Table().Find(id);
        ASSERT_NE(command, nullptr) << id;
        EXPECT_EQ(command->Control, control);
    }
}

TEST(Commands, AnUnknownIdIsNoCommand) {
    EXPECT_EQ(Table().Find("add C8010L"), nullptr);
    EXPECT_EQ(Table().Find("move"), nullptr);
    EXPECT_EQ(Table().Find(""), nullptr);
}

TEST(Commands, AFreshStartOffersScalextricButtonsOnlyAndNoVariant) {
    const Project project = ProjectOf("");
    ScriptedPrompts nobody;
    const Session session(Pieces(), nobody, project, {});

    EXPECT_EQ(WhyNot(project, "add C151L"), "");
    EXPECT_EQ(WhyNot(project, "add N10102"), "Switch to Ninco track first.");
    EXPECT_EQ(WhyNot(project, "add N10110"), "Switch to Ninco track first.");
    for (const Command& command : Rows()) {
        if (!command.Id.starts_with("replace ")) continue;
        EXPECT_NE(command.WhyNot(session), "") << command.Id;
    }
}

TEST(Commands, AnEmptyTrackHasNothingToDeleteMirrorOrInvert) {
    const Project project = ProjectOf("");

    EXPECT_EQ(WhyNot(project, "delete"), "The track is empty.");
    EXPECT_EQ(WhyNot(project, "mirror"), "The track is empty.");
    EXPECT_EQ(WhyNot(project, "invert"), "The track is empty.");
    EXPECT_EQ(WhyNot(project, "move left"), "");
    EXPECT_EQ(WhyNot(project, "rotate left"), "");
}

TEST(Commands, WithNothingSelectedNothingIsDeletedOrReplaced) {
    const Project project = ProjectOf("C160");

    EXPECT_EQ(WhyNot(project, "delete"), "Select an element first.");
    EXPECT_EQ(WhyNot(project, "replace C164"), "Select an element first.");
    EXPECT_EQ(WhyNot(project, "mirror"), "");
}

TEST(Commands, WithAllTracksChosenNoneOfThemIsEdited) {
    Project project = ProjectOf("");
    Add(project, "C160");

    Press(project, "track all");

    for (const char* const id : {"add C160", "replace C164", "delete", "mirror", "invert", "insert", "build"})
        EXPECT_EQ(WhyNot(project, id), "Choose a single track first.") << id;
    for (const char* const id : {"system", "move up", "rotate right", "zoom in", "new", "save", "track 1"})
        EXPECT_EQ(WhyNot(project, id), "") << id;
}

} // namespace pistaro
