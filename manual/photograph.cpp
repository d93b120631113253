// Photographs the program's windows for the manual, and the first circuit as it grows: manual_photograph SAMPLE FOLDER.
// Works without a display.
#include "editor/building.h"
#include "editor/circuit_files.h"
#include "editor/track_editing.h"
#include "imaging/circuit_picture.h"
#include "photograph_rules.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "storage/settings_file.h"
#include "ui/frmAbout.h"
#include "ui/frmBox.h"
#include "ui/frmCorvel.h"
#include "ui/frmRecovered.h"

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>
#include <iostream>

namespace pistaro {

namespace {

/// A user who reads every message and has nothing to say.
class SilentUser : public Prompts {
public:
    void Tell(const Message&) override {}
    Answer Ask(const std::string&, Buttons) override { return Answer::Yes; }
    std::optional<std::filesystem::path> ChooseFile(const FileChoice&) override { return std::nullopt; }
};

class Photographer {
public:
    explicit Photographer(QString folder) : folder_(std::move(folder)) {}

    void Take(QWidget& widget, const char* name) const { Take(widget, widget.rect(), name); }

    void Take(QWidget& widget, const QRect& part, const char* name) const {
        QApplication::processEvents();
        const QString file = folder_ + "/" + name + ".png";
        if (!widget.grab(part).save(file)) throw std::runtime_error("not written: " + file.toStdString());
        std::cout << file.toStdString() << '\n';
    }

    /// Chooses a menu entry and photographs the dialog that it opens, then closes it.
    void TakeDialog(QWidget& window, const char* entry, const char* name) const {
        std::exception_ptr problem;
        QTimer::singleShot(200, [&] {
            try {
                QWidget& dialog = OpenDialog(window);
                Take(dialog, name);
                dialog.close();
            } catch (...) {
                problem = std::current_exception();
            }
        });
        window.findChild<QAction*>(entry)->trigger();
        QTest::qWait(400); // a dialog that is not modal is open only now
        if (problem) std::rethrow_exception(problem);
    }

private:
    static QWidget& OpenDialog(const QWidget& window) {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget != &window && widget->isVisible() && qobject_cast<QDialog*>(widget) != nullptr) return *widget;
        }
        throw std::runtime_error("no dialog is open");
    }

    QString folder_;
};

/// The dialogs by the menu entries that open them.
constexpr std::array<std::pair<const char*, const char*>, 5> Dialogs{{
    {"mnuDrawArea", "draw-area"},
    {"mnuColors", "colours"},
    {"mnuTrackStock", "loose-track"},
    {"mnuStats", "statistics"},
    {"mnuSets", "boxed-sets"},
}};

/// The circuit of the first chapter after each of its steps: what was laid last is selected, as in the window.
void PictureFirstCircuit(const Catalogue& catalogue, const QString& folder) {
    Project project = StartUp(InitialSettings(catalogue));
    MoveTracks(project.Design, project.EditState, 2, -3); // into the middle
    int step = 0;
    const auto lay = [&](const char* code, int times) {
        for (int i = 0; i < times; ++i)
            AddPiece(catalogue, project.Design, project.EditState, code);
    };
    const auto picture = [&] {
        const std::string file = folder.toStdString() + "/first-" + std::to_string(++step) + ".png";
        ReplaceFile(PathFromText(file), CircuitPicture(catalogue, project, 260, std::nullopt, PictureFormat::Png));
        std::cout << file << '\n';
    };
    lay("C160", 3);
    picture();
    lay("C151L", 4);
    picture();
    lay("C160", 3);
    lay("C151L", 4);
    picture();
}

/// The room that the manual enters point by point: 320 x 260 cm, with a pillar.
RoomPolygon RoomOfTheManual() {
    return {.Points = {{-160, -130, 1},
                       {160, -130, 1},
                       {160, 130, 1},
                       {-160, 130, 1},
                       {-160, -130, 1},
                       {60, 40, 0},
                       {100, 40, 1},
                       {100, 80, 1},
                       {60, 80, 1},
                       {60, 40, 1}},
            .Angle = 0};
}

void PhotographWindows(const Catalogue& catalogue, const std::filesystem::path& sample, const QString& folder) {
    const Photographer photographer(folder);
    SilentUser user;
    const QTemporaryDir settings; // a user has a settings file, so that the dialogs can save
    const std::filesystem::path settingsPath = PathFromText(settings.filePath("corvel.ini").toStdString());
    ReplaceFile(settingsPath, InitialSettingsBytes(catalogue));
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), settingsPath);
    Project& project = session.Project;
    LoadCircuit(project, sample);
    project.Preferences.WorkingDirectory = "/home/you/Documents/Pistaro/"; // nobody's own folder
    project.EditState.CurrentElement[0] = 29;
    frmCorvel window(session);
    window.resize(1100, 760);
    window.show();
    photographer.Take(window, "window");
    QWidget& palette = *window.findChild<QWidget*>("cmdSeeRemaining")->parentWidget();
    QApplication::processEvents();
    photographer.Take(palette, palette.childrenRect().adjusted(-4, -4, 4, 4), "pieces");
    project.Design.Room = RoomOfTheManual();
    for (const auto& [entry, name] : Dialogs) {
        if (window.findChild<QAction*>(entry) != nullptr) photographer.TakeDialog(window, entry, name);
    }
    project.Design.Room = {};
    window.findChild<QAction*>("mnuLanes")->trigger();
    photographer.Take(window.Canvas(), "lanes");
    window.findChild<QAction*>("mnuLanes")->trigger();
    for (const auto& [entry, name] : {std::pair("mnuChecks", "checks"), std::pair("mnuMoney", "money")}) {
        window.findChild<QAction*>(entry)->trigger();
        QTest::qWait(100);
        photographer.Take(window, name);
        window.findChild<QAction*>(entry)->trigger();
    }
    frmAbout about(session.Catalogue, &window);
    about.show();
    photographer.Take(about, "about");
}

/// Circuits from a box: the dialog with one of those found chosen, and twelve of them.
void PhotographBox(const Catalogue& catalogue, const QString& folder) {
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    for (const auto& [code, owned] : {std::pair("C151L", 16), {"C160", 12}, {"C159", 4}, {"C153L", 4}, {"C158", 4}})
        session.Project.Stock.Of(catalogue.FindRow(code)).OwnedCount = static_cast<std::int16_t>(owned);
    frmBox dialog(session, frmBox::Purpose::Box);
    dialog.show();
    dialog.findChild<QSpinBox*>("spnRoomWidth")->setValue(300);
    dialog.findChild<QSpinBox*>("spnRoomDepth")->setValue(200);
    dialog.findChild<QSpinBox*>("spnCircuits")->setValue(12);
    dialog.findChild<QPushButton*>("cmdSearch")->click();
    constexpr int longest = 120'000; // milliseconds
    const auto* const running = dialog.findChild<QPushButton*>("cmdCancelSearch");
    if (!QTest::qWaitFor([&] { return !running->isEnabled(); }, longest))
        throw std::runtime_error("the search for circuits does not end");
    const Photographer photographer(folder);
    auto* const circuits = dialog.findChild<QListWidget*>("lstCircuits");
    photographer.Take(dialog, "my-box");
    dialog.resize(1130, 940);
    QApplication::processEvents();
    QRect shown;
    for (int row = 0; row < circuits->count(); ++row)
        shown |= circuits->visualItemRect(circuits->item(row));
    photographer.Take(*circuits->viewport(), shown, "found-circuits");
}

/// The start that finds two samples unsaved, of which one was written last at half past nine and one the day before.
void PhotographRecoveredWork(const Catalogue& catalogue, const std::filesystem::path& samples, const QString& folder) {
    using namespace std::chrono;
    const QTemporaryDir found;
    const std::filesystem::path works = PathFromText(found.path().toStdString());
    sys_seconds written = sys_days{November / 21 / 2026} + hours(21) + minutes(30);
    int number = 0;
    for (const char* const sample : {"grand-prix", "figure-of-eight"}) {
        const auto file = works / FileNameOf({sample, written, "1.2", ++number, false});
        std::filesystem::copy_file(samples / (std::string(sample) + ".trk"), file);
        std::filesystem::last_write_time(file, file_clock::from_sys(written));
        written -= days(1);
    }
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    const Recovery recovery(session, works, [](const std::function<void()>&) {});
    frmRecovered dialog(session, frmRecovered::Occasion::Start);
    dialog.show();
    Photographer(folder).Take(dialog, "recovered-work");
}

} // namespace

} // namespace pistaro

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const std::vector<std::string> arguments = pistaro::CommandLineArguments(argc, argv);
    try {
        const QString folder = QString::fromStdString(arguments.at(1));
        const pistaro::Catalogue catalogue = pistaro::InitCatalogue();
        pistaro::PictureFirstCircuit(catalogue, folder);
        pistaro::PhotographRules(catalogue, folder);
        const std::filesystem::path sample = pistaro::PathFromText(arguments.at(0));
        pistaro::PhotographWindows(catalogue, sample, folder);
        pistaro::PhotographBox(catalogue, folder);
        pistaro::PhotographRecoveredWork(catalogue, sample.parent_path(), folder);
    } catch (const std::exception& problem) {
        std::cerr << "manual_photograph: " << problem.what() << '\n';
        return 1;
    }
    return 0;
}
