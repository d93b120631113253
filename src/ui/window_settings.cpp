#include "ui/window_settings.h"

#include "platform/files.h"
#include "ui/named_controls.h"

#include <QDockWidget>
#include <QEvent>
#include <QLocale>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

constexpr int LeastWidthForColumns = 900; ///< device-independent pixels; on a narrower screen they leave no drawing

struct NamedLook {
    const char* Key;
    bool Looks::*Look;
    bool AtFirst;
};
constexpr NamedLook NamedLooks[] = {
    {"window/surface", &Looks::Surface, true},        {"window/legend", &Looks::Legend, false},
    {"window/lanes", &Looks::Lanes, false},           {"window/suggestions", &Looks::Suggestions, false},
    {"window/columns", &Looks::Columns, true},        {"window/pieceColumn", &Looks::PieceColumn, true},
    {"window/trackColumn", &Looks::TrackColumn, true}};
constexpr const char* NumbersKey = "window/numbers";
struct NamedHabit {
    const char* Key;
    std::string Habits::*Habit;
};
constexpr NamedHabit NamedHabits[] = {{"habits/exportFolder", &Habits::ExportFolder},
                                      {"habits/exportEnding", &Habits::ExportEnding},
                                      {"habits/paper", &Habits::Paper},
                                      {"habits/exportSize", &Habits::ExportSize},
                                      {"habits/exportScale", &Habits::ExportScale},
                                      {"habits/exportWidth", &Habits::ExportWidth},
                                      {"habits/exportDots", &Habits::ExportDots},
                                      {"habits/exportContents", &Habits::ExportContents},
                                      {"habits/printContents", &Habits::PrintContents},
                                      {"habits/printSize", &Habits::PrintSize},
                                      {"habits/printScale", &Habits::PrintScale},
                                      {"habits/printOrientation", &Habits::PrintOrientation},
                                      {"habits/planEnding", &Habits::PlanEnding},
                                      {"habits/boxRoom", &Habits::BoxRoom},
                                      {"habits/boxPieces", &Habits::BoxPieces},
                                      {"habits/boxShapes", &Habits::BoxShapes}};
constexpr const char* PlaceKey = "window/place";
constexpr const char* PanelsKey = "window/panels";

bool HasRoomForColumns(const QMainWindow& window) {
    return window.screen()->availableSize().width() >= LeastWidthForColumns;
}

/// Which panels are shown, and where.
QMainWindow& PanelsOf(const QMainWindow& window) { return *window.findChild<QMainWindow*>("fraMiddle"); }

QString FileName(const std::filesystem::path& path) { return Shown(TextFromPath(path)); }

} // namespace

std::string PaperOfLocale(const QLocale& locale) {
    constexpr QLocale::Territory lettered[] = {QLocale::UnitedStates, QLocale::Canada,    QLocale::Mexico,
                                               QLocale::Philippines,  QLocale::Chile,     QLocale::Colombia,
                                               QLocale::Venezuela,    QLocale::PuertoRico};
    return std::ranges::find(lettered, locale.territory()) == std::end(lettered) ? "A4" : "Letter";
}

void RestoreWindow(const std::filesystem::path& path, QMainWindow& window, Session& session) {
    Looks looks;
    bool numbers = false;
    for (const NamedLook& named : NamedLooks)
        looks.*named.Look = named.AtFirst;
    if (!path.empty()) {
        const QSettings settings(FileName(path), QSettings::IniFormat);
        for (const NamedLook& named : NamedLooks)
            looks.*named.Look = settings.value(named.Key, named.AtFirst).toBool();
        numbers = settings.value(NumbersKey, numbers).toBool();
        for (const NamedHabit& named : NamedHabits)
            session.Habits.*named.Habit = settings.value(named.Key).toString().toStdString();
        window.restoreGeometry(settings.value(PlaceKey).toByteArray());
        PanelsOf(window).restoreState(settings.value(PanelsKey).toByteArray());
    }
    if (session.Habits.Paper.empty()) session.Habits.Paper = PaperOfLocale(QLocale());
    session.HasRoomForColumns = HasRoomForColumns(window);
    if (!session.HasRoomForColumns) looks.Columns = false;
    session.Do([&] {
        session.Looks = looks;
        session.Project.EditState.ShowNumbers = numbers;
    });
}

void KeepWindow(const std::filesystem::path& path, const QMainWindow& window, const Session& session) {
    if (path.empty()) return;
    QSettings settings(FileName(path), QSettings::IniFormat);
    for (const NamedLook& named : NamedLooks) {
        const bool isOfColumns =
            named.Look == &Looks::Columns || named.Look == &Looks::PieceColumn || named.Look == &Looks::TrackColumn;
        const bool isUsersChoice = !isOfColumns || HasRoomForColumns(window);
        if (isUsersChoice) settings.setValue(named.Key, session.Looks.*named.Look);
    }
    settings.setValue(NumbersKey, session.Project.EditState.ShowNumbers);
    for (const NamedHabit& named : NamedHabits)
        settings.setValue(named.Key, Shown(session.Habits.*named.Habit));
    settings.setValue(PlaceKey, window.saveGeometry());
    settings.setValue(PanelsKey, PanelsOf(window).saveState());
}

WindowKeeper::WindowKeeper(std::filesystem::path path, QMainWindow& window, Session& session)
    : path_(std::move(path)), window_(window), session_(session) {
    constexpr int rest = 1000; // milliseconds in which a window that is dragged comes to its place
    rest_.setSingleShot(true);
    rest_.setInterval(rest);
    connect(&rest_, &QTimer::timeout, this, [this] { Keep(); });
    window.installEventFilter(this);
    for (QDockWidget* const panel : window.findChildren<QDockWidget*>())
        connect(panel, &QDockWidget::visibilityChanged, this, [this] { rest_.start(); });
    observation_ = session.Observe([this](const Changes& changes) {
        const bool numbers = session_.Project.EditState.ShowNumbers;
        const bool habits = session_.Habits != habits_;
        if (!changes.Looks && numbers == numbers_ && !habits) return;
        numbers_ = numbers;
        habits_ = session_.Habits;
        rest_.start();
    });
    numbers_ = session.Project.EditState.ShowNumbers;
    habits_ = session.Habits;
}

void WindowKeeper::Keep() { KeepWindow(path_, window_, session_); }

bool WindowKeeper::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move || event->type() == QEvent::WindowStateChange)
        rest_.start();
    return false;
}

} // namespace pistaro
