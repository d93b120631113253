// Whatever is written, each call to the system fails once with each error that a disk gives. Then the old file or the
// new one stands there whole and nothing else, its user was told which file it is and why, and can do the same again.
#include "commands/laying_commands.h"
#include "commands/recovery.h"
#include "editor/colour_settings.h"
#include "editor/draw_area.h"
#include "editor/owned_track.h"
#include "editor/start_up.h"
#include "faults/desk.h"
#include "faults/failing_calls.h"
#include "imaging/circuit_picture.h"
#include "platform/fault.h"
#include "report/guide.h"
#include "stats/shopping_list.h"
#include "storage/background_file.h"
#include "storage/circuit_file.h"
#include "storage/recent_circuits.h"
#include "support/chain.h"
#include "support/circuit_text.h"
#include "support/pieces.h"
#include "support/settings_bytes.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>
#include <functional>

namespace pistaro {

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

struct Failure {
    int Error;
    const char* Told;
};

constexpr std::array Failures{Failure{ENOSPC, "Disk full: "}, Failure{EDQUOT, "Disk full: "},
                              Failure{EACCES, "Permission denied: "}, Failure{EIO, ": Input/output error"},
                              Failure{EXDEV, ": Invalid cross-device link"}};

/// Of a folder the system's own words are told.
auto IsTold(const Failure& failure) { return AnyOf(HasSubstr(failure.Told), HasSubstr(std::strerror(failure.Error))); }

/// Something that writes, done as its user does it, with a message for each fault.
using Operation = std::function<void(Desk&)>;

/// The first track's pieces of each work that a recovery folder holds.
std::vector<std::string> CodesKept(const std::filesystem::path& folder) {
    std::vector<std::string> codes;
    for (const RecoveredWork& work : WithContent(FindRecoveredWork(folder)))
        codes.push_back(CodesOf(work.Content->Circuit.Tracks[0]));
    return codes;
}

class FailingCalls : public testing::Test {
protected:
    /// `written` are the files that the operation makes or replaces.
    void TryEachCall(const Operation& operation, const std::vector<std::string>& written) {
        before_ = TreeBelow(desk_.Folder());
        operation(desk_);
        ASSERT_THAT(desk_.Faults(), IsEmpty());
        after_ = TreeBelow(desk_.Folder());
        ASSERT_THAT(Others(before_, after_), UnorderedElementsAreArray(written));

        for (const Failure& failure : Failures) {
            int call = 0;
            while (FailedAt(++call, failure, operation))
                if (HasFatalFailure()) return;
            EXPECT_GT(call, 5) << "opened, written, flushed, closed, renamed: so many calls fail at least";
        }
        FailedAt(1, {ShortWrite, ""}, operation);
        EXPECT_THAT(Others(TreeBelow(desk_.Folder()), after_), IsEmpty())
            << "what is written in two parts is whole, too";
    }

    Desk desk_;

private:
    /// Does it with that call failing, and looks at what is left. False when the operation makes fewer calls.
    bool FailedAt(int call, const Failure& failure, const Operation& operation) {
        desk_.Lay();
        const Design design = desk_.Session().Project.Design;
        FailCall(desk_.Folder().string(), call, failure.Error);
        operation(desk_);
        const std::string failed = StopFailing();
        SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(failure.Error) + ": " + failed);

        const Tree left = TreeBelow(desk_.Folder());
        ExpectOldOrNew(left, before_, after_);
        const std::vector<std::string> faults = desk_.Faults();
        if (faults.empty()) {
            EXPECT_THAT(Others(left, after_), IsEmpty()) << "nothing was told";
        } else {
            EXPECT_THAT(faults, SizeIs(1));
            EXPECT_THAT(faults[0], AllOf(IsTold(failure), HasSubstr(desk_.Folder().string())));
        }
        const Project& project = desk_.Session().Project;
        EXPECT_EQ(project.Design, design);
        EXPECT_TRUE(project.EditState.DataChanged || left.at("oval.trk") == after_.at("oval.trk")) << "forgotten";
        if (!faults.empty()) ExpectDoneAgain(operation);
        return !failed.empty();
    }

    void ExpectDoneAgain(const Operation& operation) {
        desk_.Prompts() = {};
        operation(desk_);
        EXPECT_THAT(desk_.Faults(), IsEmpty()) << "a second time";
        EXPECT_THAT(Others(TreeBelow(desk_.Folder()), after_), IsEmpty()) << "a second time";
    }

    Tree before_, after_;
};

} // namespace

TEST_F(FailingCalls, OfASave) {
    const Operation save = [](Desk& desk) {
        desk.Prompts().Files = {desk.Circuit()};
        desk.Prompts().Answers = {Answer::Yes};
        desk.Session().TryRun(*desk.Session().Commands.Find("save"));
    };

    TryEachCall(save, {"oval.trk", "corvel.ini"});

    EXPECT_EQ(BytesOf(desk_.Circuit()), CircuitText("C160 C159"));
    EXPECT_THAT(BytesOf(desk_.Settings()), HasSubstr("[Working Directory]\r\n" + desk_.Folder().string() + "/\r\n"));
}

TEST_F(FailingCalls, OfASaveToTheCircuitsOwnFile) {
    const Operation save = [](Desk& desk) { desk.Session().TryRun(*desk.Session().Commands.Find("plain save")); };

    TryEachCall(save, {"oval.trk"});

    EXPECT_EQ(BytesOf(desk_.Circuit()), CircuitText("C160 C159"));
}

TEST_F(FailingCalls, OfASaveWithAPictureUnderTheCircuit) {
    const Operation save = [](Desk& desk) {
        desk.Prompts().Files = {desk.Circuit()};
        desk.Prompts().Answers = {Answer::Yes};
        desk.Session().Project.Background = std::make_shared<const ScaledBackground>(
            ScaledBackground{.Picture = std::make_shared<const std::string>("a picture"), .CmPerPixel = 0.5});
        desk.Session().TryRun(*desk.Session().Commands.Find("save"));
    };

    TryEachCall(save, {"oval.trk", "oval.background", "corvel.ini"});
}

TEST_F(FailingCalls, OfTheColourDialogsSave) {
    const Operation save = [](Desk& desk) {
        ColourScheme colours;
        colours.Rail = 222222;
        desk.Session().Do([&] { SaveColours(Pieces(), desk.Settings(), colours, desk.Prompts()); });
    };

    TryEachCall(save, {"corvel.ini"});

    EXPECT_THAT(BytesOf(desk_.Settings()), HasSubstr("\r\nRail=222222\r\n"));
}

TEST_F(FailingCalls, OfTheOwnedTrackDialogsSave) {
    const Operation save = [](Desk& desk) {
        StockBoxes boxes = EmptyStockBoxes(Pieces());
        FillStockBoxes(Pieces(), desk.Session().Project.Stock, boxes);
        boxes[0].Owned = "17";
        desk.Session().Do(
            [&] { SaveOwnedTrack(Pieces(), desk.Settings(), desk.Session().Project.Stock, boxes, desk.Prompts()); });
    };

    TryEachCall(save, {"corvel.ini"});

    EXPECT_THAT(BytesOf(desk_.Settings()), HasSubstr("=17\r\n"));
}

TEST_F(FailingCalls, OfTheDrawAreaDialogsSave) {
    const Operation save = [](Desk& desk) {
        Project& project = desk.Session().Project;
        DrawAreaFields fields = OpenDrawArea(project.Design, project.Preferences);
        fields.Step = "7";
        desk.Session().Do([&] { SaveDrawArea(Pieces(), project, desk.Settings(), fields, desk.Prompts()); });
    };

    TryEachCall(save, {"corvel.ini"});

    EXPECT_THAT(BytesOf(desk_.Settings()), HasSubstr("\r\nStep=7\r\n"));
}

TEST_F(FailingCalls, OfASavedPicture) {
    const OffscreenGraphics graphics;

    TryEachCall([](Desk& desk) { desk.Session().TryRun(*desk.Session().Commands.Find("save picture")); },
                {"track.bmp"});

    EXPECT_THAT(BytesOf(desk_.Folder() / "track.bmp"), AllOf(StartsWith("BM"), SizeIs(54 + 30 * 92)));
}

TEST_F(FailingCalls, OfTheShoppingList) {
    const Operation write = [](Desk& desk) {
        desk.Session().Do([&] {
            const Project& project = desk.Session().Project;
            const Detail detail = ShowDetail(Pieces(), project.Stock, project.Design.Circuit, AllTracks, false);
            desk.Prompts().Tell(WriteShoppingList(Pieces(), project.Stock, project.Preferences, detail));
        });
    };

    TryEachCall(write, {"shoppingList.txt"});

    EXPECT_THAT(BytesOf(desk_.Folder() / "shoppingList.txt"), HasSubstr("C159"));
}

TEST_F(FailingCalls, OfTheGuide) {
    const std::vector<GuideFile> guide{
        {"C151L.gif", "a piece", true}, {"track.gif", "the layout"}, {"guide.html", "page"}};
    const Operation write = [&](Desk& desk) {
        desk.Session().Do([&] { WriteGuide(desk.Session().Project.Preferences, guide); });
    };

    TryEachCall(write, {"C151L.gif", "track.gif", "guide.html"});
}

TEST_F(FailingCalls, OfTheCircuitsKeptFromABox) {
    const Operation keep = [](Desk& desk) {
        desk.Prompts().Files = {desk.Folder() / "kept.trk"};
        desk.Prompts().Answers = {Answer::Yes, Answer::Yes};
        desk.Session().Do([&] {
            KeepAsFiles(desk.Session(), {desk.Session().Project.Design, 0}, {Chain("C151L"), Chain("C160 C159")});
        });
    };

    TryEachCall(keep, {"kept-01.trk", "kept-02.trk"});

    EXPECT_EQ(CodesOf(ReadCircuit(desk_.Folder() / "kept-02.trk").Circuit.Tracks[0]), "C160 C159");
}

TEST_F(FailingCalls, OfTheListOfRecentCircuits) {
    const std::filesystem::path list = desk_.Folder() / "share" / "recent";
    const std::filesystem::path a = desk_.Folder() / "a.trk", b = desk_.Folder() / "b.trk";
    const auto kept = [&] {
        RecentCircuits recent(list);
        recent.Read();
        return recent.List();
    };
    for (const Failure& failure : Failures) {
        for (int call = 1, failed = 1; failed > 0; ++call) {
            desk_.Lay();
            RecentCircuits(list).Add(a);
            FailCall(desk_.Folder().string(), call, failure.Error);
            RecentCircuits recent(list);
            recent.Add(b);
            const std::string what = StopFailing();
            SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(failure.Error) + ": " + what);
            failed = what.empty() ? 0 : 1;

            EXPECT_EQ(recent.List().front(), b) << "whoever loads is not bothered";
            const auto begunAnew = ElementsAre(b); // where the old list could not be read
            EXPECT_THAT(kept(), AnyOf(ElementsAre(a), ElementsAre(b, a), begunAnew));
            EXPECT_EQ(FilesIn(list.parent_path()), 1U) << "no temporary file";
        }
    }
}

TEST_F(FailingCalls, OfWhatKeepsUnsavedWork) {
    const std::filesystem::path folder = desk_.Folder() / "share" / "recovery";
    for (const Failure& failure : Failures) {
        for (int call = 1, failed = 1; failed > 0; ++call) {
            desk_.Lay();
            Session& session = desk_.Session();
            Recovery recovery(
                session, folder, [](const std::function<void()>& tell) { tell(); }, std::chrono::hours(1));
            FailCall(desk_.Folder().string(), call, failure.Error);
            session.Run(*session.Commands.Find("add C160"));
            recovery.Secure();
            const std::string what = StopFailing();
            SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(failure.Error) + ": " + what);
            failed = what.empty() ? 0 : 1;

            EXPECT_EQ(CodesOf(session.Project.Design.Circuit.Tracks[0]), "C160 C159 C160");
            EXPECT_TRUE(session.Project.EditState.DataChanged);
            EXPECT_THAT(CodesKept(folder), AnyOf(IsEmpty(), ElementsAre("C160 C159 C160")));
            if (CodesKept(folder).empty()) {
                EXPECT_THAT(desk_.Faults(), ElementsAre(AllOf(StartsWith("Unsaved work is not kept: "), IsTold(failure),
                                                              HasSubstr(folder.string()))));
            }
            recovery.Secure();
            EXPECT_THAT(CodesKept(folder), ElementsAre("C160 C159 C160")) << "as soon as the disk takes it";
            EXPECT_THAT(BytesOf(desk_.Circuit()), CircuitText("C160"));
        }
    }
}

TEST_F(FailingCalls, OfThePictureUnderUnsavedWork) {
    const std::filesystem::path folder = desk_.Folder() / "share" / "recovery";
    const auto picture = [](const char* bytes) {
        return std::make_shared<const ScaledBackground>(
            ScaledBackground{.Picture = std::make_shared<const std::string>(bytes), .CmPerPixel = 0.5});
    };
    const auto kept = [&] {
        std::string names;
        for (const RecoveredWork& work : FindRecoveredWork(folder)) {
            const std::filesystem::path file = BackgroundFileOf(work.File);
            names += std::filesystem::exists(file) ? *ReadBackground(file).Picture : "none";
        }
        return names;
    };
    for (const Failure& failure : Failures) {
        for (int call = 1, failed = 1; failed > 0; ++call) {
            desk_.Lay();
            Session& session = desk_.Session();
            Recovery recovery(
                session, folder, [](const std::function<void()>& tell) { tell(); }, std::chrono::hours(1));
            session.Do([&] { session.Project.Background = picture("old"); });
            session.Run(*session.Commands.Find("add C160"));
            recovery.Secure();
            ASSERT_EQ(kept(), "old");
            const std::size_t files = FilesIn(folder);

            FailCall(desk_.Folder().string(), call, failure.Error);
            session.Do([&] { session.Project.Background = picture("new"); });
            session.Run(*session.Commands.Find("add C160"));
            recovery.Secure();
            const std::string what = StopFailing();
            SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(failure.Error) + ": " + what);
            failed = what.empty() ? 0 : 1;

            EXPECT_THAT(kept(), AnyOf("old", "new"));
            EXPECT_EQ(FilesIn(folder), files) << "no temporary file";
            if (kept() == "old") {
                EXPECT_THAT(desk_.Faults(), ElementsAre(AllOf(StartsWith("Unsaved work is not kept: "), IsTold(failure),
                                                              HasSubstr(folder.string()))));
            }
            EXPECT_EQ(*session.Project.Background->Picture, "new") << "what is worked on is as it was";
            recovery.Secure();
            EXPECT_EQ(kept(), "new") << "as soon as the disk takes it";
            EXPECT_THAT(CodesKept(folder), ElementsAre("C160 C159 C160 C160"));
        }
    }
}

TEST_F(FailingCalls, OfAFirstStart) {
    const std::filesystem::path settings = desk_.Folder() / "config" / "pistaro" / "corvel.ini";
    const auto start = [&] {
        const DesignerStart started = StartDesigner(Pieces(), settings);
        for (const Message& message : started.Messages)
            desk_.Prompts().Tell(message);
        return started;
    };
    const Tree before = TreeBelow(desk_.Folder());
    start();
    const Tree after = TreeBelow(desk_.Folder());
    ASSERT_THAT(Others(before, after), UnorderedElementsAre("config/", "config/pistaro/", "config/pistaro/corvel.ini",
                                                            "Documents/", "Documents/Pistaro/"));
    for (const Failure& failure : Failures) {
        for (int call = 1, failed = 1; failed > 0; ++call) {
            desk_.Lay();
            FailCall(desk_.Folder().string(), call, failure.Error);
            const DesignerStart started = start();
            const std::string what = StopFailing();
            SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(failure.Error) + ": " + what);
            failed = what.empty() ? 0 : 1;

            const Tree left = TreeBelow(desk_.Folder());
            ExpectOldOrNew(left, before, after);
            EXPECT_EQ(started.Project.Design.View.Width, 320) << "the program goes on";
            if (left != after) {
                EXPECT_THAT(desk_.Faults(), ElementsAre(AllOf(IsTold(failure), HasSubstr(desk_.Folder().string()))));
            }
        }
    }
}

TEST_F(FailingCalls, OfTheSamplesOfAFirstStart) {
    const TemporaryFolder installed;
    std::filesystem::create_directory(installed / "manual");
    WriteBytes(installed / "oval.trk", "a sample");
    WriteBytes(installed / "manual" / "help.html", "the manual");
    const std::filesystem::path documents = desk_.Folder() / "Documents";
    const Operation copy = [&](Desk& desk) { desk.Session().Do([&] { CopySamples(installed.Path(), documents); }); };

    TryEachCall(copy, {"Documents/", "Documents/oval.trk", "Documents/manual/", "Documents/manual/help.html"});
}

} // namespace pistaro
