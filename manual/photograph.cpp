// Photographs the program's windows for the manual, and the first circuit as it grows: manual_photograph SAMPLE FOLDER.
// Works without a display.
#include "editor/building.h"
#include "editor/circuit_files.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "imaging/circuit_picture.h"
#include "large_screen.h"
#include "photograph_rules.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "storage/settings_file.h"
#include "ui/desktop_colours.h"
#include "ui/frmAbout.h"
#include "ui/frmBackground.h"
#include "ui/frmBox.h"
#include "ui/frmCorvel.h"
#include "ui/frmPrint.h"
#include "ui/frmRecovered.h"
#include "ui/frmSamples.h"
#include "ui/history_dock.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QPainter>
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
constexpr std::array<std::pair<const char*, const char*>, 7> Dialogs{{
    {"mnuDrawArea", "draw-area"},
    {"mnuColors", "colours"},
    {"mnuTrackStock", "loose-track"},
    {"mnuStats", "statistics"},
    {"mnuSets", "boxed-sets"},
    {"mnuExport", "export"},
    {"mnuBuildPlan", "build-plan"},
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

QWidget* PieceOf(const QWidget& window, const QString& code) {
    for (auto* const button : window.findChildren<QWidget*>("cmdElement"))
        if (button->property("Tag") == code) return button;
    throw std::runtime_error("there is no button of " + code.toStdString());
}

/// The tour's third step: a straight is laid, and a 4 was typed.
void PhotographTour(const Photographer& photographer, Session& session, frmCorvel& window) {
    session.Do([&] { session.Project = StartUp(InitialSettings(session.Catalogue)); });
    window.findChild<QAction*>("mnuTour")->trigger();
    QApplication::processEvents();
    session.Run(*session.Commands.Find("add C160"));
    QWidget* const next = PieceOf(window, "C151L");
    QCursor::setPos(next->mapToGlobal(next->rect().center())); // where its user's mouse is by then
    QTest::keyClick(&window, Qt::Key_4);
    photographer.Take(window, QRect(0, 0, 720, 450), "tour");
    QCursor::setPos(0, 0);
    QTest::mouseClick(window.findChild<QAbstractButton*>("cmdEndTour"), Qt::LeftButton);
}

/// The overview of the tiles that the floor takes at 1:4.
void PhotographPrinting(Session& session, const Photographer& photographer) {
    frmPrint dialog(session);
    dialog.show();
    dialog.findChild<QDoubleSpinBox*>("spnScale")->setValue(4);
    for (QRadioButton* const choice : dialog.findChildren<QRadioButton*>("optSize"))
        choice->setChecked(choice->property("Index").toInt() == 1);
    photographer.Take(dialog, "print");
}

/// A plan of a room with a door and a table.
std::string FloorPlan() {
    QImage plan(720, 540, QImage::Format_RGB32);
    plan.fill(QColor(250, 248, 240));
    QPainter painter(&plan);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(70, 74, 80), 9, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawPolyline(QPolygonF({{500, 20}, {20, 20}, {20, 520}, {700, 520}, {700, 20}, {620, 20}}));
    painter.setPen(QPen(QColor(150, 154, 160), 3));
    painter.drawArc(QRectF(500, -100, 240, 240), 180 * 16, 90 * 16);
    painter.drawLine(620, 20, 620, 140);
    painter.setBrush(QColor(238, 226, 204));
    painter.drawRoundedRect(QRectF(36, 380, 200, 124), 8, 8);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    plan.save(&buffer, "PNG");
    return bytes.toStdString();
}

/// The floor plan whose longer wall is clicked at both ends, and the circuit on it.
void PhotographBackground(Session& session, frmCorvel& window, const Photographer& photographer) {
    frmBackground dialog(session, {.Picture = std::make_shared<const std::string>(FloorPlan())});
    dialog.show();
    auto& picture = *dialog.findChild<MarkedPicture*>("picBackground");
    QApplication::processEvents();
    const double scale = std::min(picture.width() / 720.0, picture.height() / 540.0);
    const QPointF corner = QPointF(picture.width() - 720 * scale, picture.height() - 540 * scale) / 2;
    for (const QPointF end : {QPointF(20, 520), QPointF(700, 520)})
        QTest::mouseClick(&picture, Qt::LeftButton, {}, (corner + end * scale).toPoint());
    dialog.findChild<QDoubleSpinBox*>("spnDistance")->setValue(480);
    photographer.Take(dialog, "background");
    dialog.findChild<QPushButton*>("cmdOk")->click();
    const ViewSettings view = session.Project.Design.View;
    for (const char* const id : {"background move", "fit"})
        session.Run(*session.Commands.Find(id));
    QApplication::processEvents();
    photographer.Take(*window.Canvas().parentWidget(), "background-canvas");
    session.Run(*session.Commands.Find("background move"));
    session.Do([&] {
        session.Project.Background.reset();
        session.Project.Design.View = view;
    });
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
    session.Looks.Surface = true; // as at a first start
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
    frmSamples samples(session, sample.parent_path(), &window);
    samples.show();
    photographer.Take(samples, "samples");
    samples.close();
    PhotographPrinting(session, photographer);
    PhotographBackground(session, window, photographer);
    PhotographTour(photographer, session, window); // which leaves a circuit of its own
    frmAbout about(session.Catalogue, &window);
    about.show();
    photographer.Take(about, "about");
}

/// A sample whose last pieces lack, with what closes it; what balances another one, and what may lie in the place of
/// some of its pieces.
void PhotographSuggestions(const Catalogue& catalogue, const std::filesystem::path& samples, const QString& folder) {
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    Project& project = session.Project;
    for (const auto& [code, price] : {std::pair("C151L", 3.5F), {"C160", 3.0F}, {"C159", 2.5F}, {"C158", 2.0F}}) {
        project.Stock.Of(catalogue.FindRow(code)).Price = price;
        project.Stock.Of(catalogue.FindRow(code)).OwnedCount = 40;
    }
    session.Looks.Surface = true;
    frmCorvel window(session);
    window.resize(1100, 760);
    window.show();
    const Photographer photographer(folder);
    const auto show = [&](const char* sample, const char* entry, const char* name, const auto& prepare) {
        session.Do([&] {
            LoadCircuit(project, samples / sample);
            prepare(project.Design.Circuit.Tracks.front());
            FitView(catalogue, project.Design);
        });
        window.findChild<QAction*>(entry)->trigger();
        QTest::qWait(100); // the columns settle
        photographer.Take(*window.Canvas().parentWidget(), name);
    };
    show("figure-of-eight.trk", "mnuCloseLoop", "closing", [&](Track& track) {
        track.ElementCodes.resize(track.ElementCodes.size() - 3);
        project.EditState.Select(track.ElementLastIndex());
    });
    show("oval.trk", "mnuBalance", "balance", [](const Track&) {});
    show("oval.trk", "mnuReplaceBy", "replace-by", [&](const Track&) {
        project.EditState.Select(10);
        project.EditState.RunFrom = 8;
    });
}

/// Circuits from a box: the dialog with one of those found chosen, and twelve of them.
void PhotographBox(const Catalogue& catalogue, const QString& folder) {
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    for (const auto& [code, owned] : {std::pair("C151L", 16), {"C160", 12}, {"C159", 4}, {"C153L", 4}, {"C158", 4}})
        session.Project.Stock.Of(catalogue.FindRow(code)).OwnedCount = static_cast<std::int16_t>(owned);
    frmBox dialog(session, std::nullopt);
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
    dialog.resize(1020, 700);
    photographer.Take(dialog, "my-box");
    dialog.resize(1900, 1000);
    QApplication::processEvents();
    circuits->clearSelection();
    QRect shown;
    for (int row = 0; row < circuits->count(); ++row)
        shown |= circuits->visualItemRect(circuits->item(row));
    photographer.Take(*circuits->viewport(), shown, "found-circuits");
}

/// The list of steps, of which the last two are undone.
void PhotographHistory(const Catalogue& catalogue, const QString& folder) {
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    for (const char* const command :
         {"add C160", "add C160", "add C151L", "move up", "add C153R", "delete", "add C158", "mirror", "undo", "undo"})
        session.Run(*session.Commands.Find(command));
    QMainWindow window;
    auto* const dock = new HistoryDock(session);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    window.resize(240, 180);
    window.show();
    Photographer(folder).Take(*dock, "history");
}

/// The window on a dark desktop, with three tracks of which some pieces are owned.
void PhotographDarkWindow(const Catalogue& catalogue, const std::filesystem::path& samples, const QString& folder) {
    const QPalette toolkits = QApplication::palette();
    ShowAsWished({.Dark = true}, toolkits);
    SilentUser user;
    Session session(catalogue, user, StartUp(InitialSettings(catalogue)), "");
    Project& project = session.Project;
    LoadCircuit(project, samples / "three-tracks.trk");
    for (const char* const piece : {"C160", "C151L", "C8006"})
        project.Stock.Of(catalogue.FindRow(piece)).OwnedCount = 3;
    project.EditState.Select(5);
    project.EditState.ShowNumbers = true;
    session.Looks.Surface = session.Looks.Legend = true;
    {
        frmCorvel window(session);
        window.resize(1366, 768);
        window.show();
        Photographer(folder).Take(window, "dark");
    }
    ShowAsWished({}, toolkits);
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
    try {
        QTemporaryFile screen;
        pistaro::UseLargeScreen(screen);
        const QApplication application(argc, argv);
        const std::vector<std::string> arguments = pistaro::CommandLineArguments(argc, argv);
        const QString folder = QString::fromStdString(arguments.at(1));
        const pistaro::Catalogue catalogue = pistaro::InitCatalogue();
        pistaro::PictureFirstCircuit(catalogue, folder);
        pistaro::PhotographRules(catalogue, folder);
        const std::filesystem::path sample = pistaro::PathFromText(arguments.at(0));
        pistaro::PhotographWindows(catalogue, sample, folder);
        pistaro::PhotographHistory(catalogue, folder);
        pistaro::PhotographSuggestions(catalogue, sample.parent_path(), folder);
        pistaro::PhotographBox(catalogue, folder);
        pistaro::PhotographDarkWindow(catalogue, sample.parent_path(), folder);
        pistaro::PhotographRecoveredWork(catalogue, sample.parent_path(), folder);
    } catch (const std::exception& problem) {
        std::cerr << "manual_photograph: " << problem.what() << '\n';
        return 1;
    }
    return 0;
}
