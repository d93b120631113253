#include "ui/frmCorvel.h"

#include "commands/circuit_commands.h"
#include "commands/side_columns.h"
#include "editor/status_text.h"
#include "platform/files.h"
#include "ui/fold_handle.h"
#include "ui/lanes_overlay.h"
#include "ui/main_menus.h"
#include "ui/typed_number.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QIcon>
#include <QMimeData>
#include <QResizeEvent>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>

#include <cstdlib>
#include <initializer_list>
#include <utility>
#include <vector>

namespace pistaro {

namespace {

constexpr int Spacing = 8;
constexpr int TitleBarHeight = 32;
constexpr const char* LanesOverlayName = "built lanes"; ///< below ghosts, of which it hides no word

/// The first circuit file among what is dragged; empty when there is none.
QString CircuitFileIn(const QMimeData& data) {
    for (const QUrl& url : data.urls()) {
        QString file = url.toLocalFile();
        if (file.endsWith(".trk", Qt::CaseInsensitive)) return file;
    }
    return {};
}

QIcon ProgramIcon() {
    QIcon icon;
    for (const QString& drawing : QDir(":/").entryList({"icon-*.png"}))
        icon.addFile(":/" + drawing);
    return icon;
}

/// Of panels that stand behind each other the toolkit keeps all but one beside the window.
bool IsInFront(const QDockWidget& panel) { return panel.isVisible() && panel.geometry().right() >= 0; }

/// Whether it stands in front below the drawing.
bool IsBelow(const QMainWindow& window, QDockWidget& panel) {
    return IsInFront(panel) && !panel.isFloating() && window.dockWidgetArea(&panel) == Qt::BottomDockWidgetArea;
}

/// Has panels below the drawing keep their part of a window that becomes as large as the screen, or is that no longer.
class PanelShares : public QObject {
public:
    PanelShares(QMainWindow& window, std::vector<QDockWidget*> panels)
        : QObject(&window), window_(window), panels_(std::move(panels)) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Resize) return false;
        constexpr int leap = 100; // pixels: who drags an edge makes smaller steps, and the drawing takes these
        const int before = static_cast<QResizeEvent*>(event)->oldSize().height();
        const int now = static_cast<QResizeEvent*>(event)->size().height();
        if (before <= 0 || std::abs(now - before) < leap) return false;
        for (QDockWidget* const panel : panels_) {
            if (!IsBelow(window_, *panel)) continue;
            QTimer::singleShot(0, panel, [this, panel, height = panel->height() * now / before] {
                window_.resizeDocks({panel}, {height}, Qt::Vertical);
            });
        }
        return false;
    }

private:
    QMainWindow& window_;
    const std::vector<QDockWidget*> panels_;
};

void Toggle(QDockWidget& panel) {
    if (IsInFront(panel)) return panel.hide();
    panel.show();
    panel.raise();
    if (panel.focusProxy() != nullptr) panel.focusProxy()->setFocus(); // one to type into
}

} // namespace

frmCorvel::frmCorvel(Session& session)
    : session_(session), controls_(session), palette_(new PiecePalette(session, controls_)),
      circuit_(new CircuitPanel(session, controls_)), middle_(new QMainWindow),
      track_(new TrackPanel(session, controls_)), pieceColumn_(new SideColumn(palette_)),
      trackColumn_(new SideColumn(track_)), pointer_(new CanvasPointer(session, controls_, circuit_->View())),
      suggestions_(new SuggestionBar(session, circuit_->View())), balance_(new BalanceBar(session, circuit_->View())),
      picture_(new PictureBar(session, circuit_->View())), suggester_(session, circuit_->View()),
      dialogs_(session, *this, *suggestions_, *balance_), jobBar_(new JobBar(session, controls_)), status_(new QLabel),
      figures_(new ElidedLabel), place_(new QLabel), checks_(new ChecksDock(session, circuit_->View())),
      money_(new MoneyDock(session)), history_(new HistoryDock(session)) {
    setObjectName("frmCorvel");
    session.MoneyMarks = DesktopMarks();
    circuit_->TakeStrip(*suggestions_);
    circuit_->TakeStrip(*balance_);
    circuit_->TakeStrip(*picture_);
    new CanvasKeys(session, *pointer_, circuit_->View());
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    middle_->setObjectName("fraMiddle");
    middle_->setWindowFlags(Qt::Widget);
    middle_->setCentralWidget(circuit_);
    auto* const columns = new QWidget;
    auto* const row = new QHBoxLayout(columns);
    row->setSpacing(0);
    row->addWidget(pieceColumn_);
    row->addWidget(NewHandle("fold pieces", Qt::LeftEdge));
    row->addWidget(middle_, 1);
    row->addWidget(NewHandle("fold track", Qt::RightEdge));
    row->addWidget(trackColumn_);
    setCentralWidget(columns);
    statusBar()->addWidget(StatusLine(), 1);
    place_->setObjectName("lblPlace");
    statusBar()->addPermanentWidget(jobBar_);
    statusBar()->addPermanentWidget(place_);
    statusBar()->setContentsMargins(Spacing, 0, 0, 0);
    AddMainMenus(*this, controls_, session_, [this] { close(); });
    AddPanels();
    AddHand();
    pointer_->TellPlace = [this](WorldPoint place) {
        pointedAt_ = place;
        ShowPlace();
    };
    track_->MenuWanted = [this](QPoint global) { pointer_->OpenMenu(global); };
    session_.Windows = &dialogs_;
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        if (isActiveWindow()) controls_.Refresh(); // what is behind others looks when it comes to the front
    });
    observation_ = session_.Observe([this](const Changes& changes) { Refresh(changes); });
    Refresh({});
    circuit_->View().setFocus();
    resize(QSize(1200, 820).boundedTo(screen()->availableSize() - QSize(0, TitleBarHeight)));
}

frmCorvel::~frmCorvel() {
    session_.Windows = nullptr;
    // What these tell of when they are hidden needs the rest of the window.
    picture_->Gone = [] {};
    suggestions_->Turned = balance_->Turned = nullptr;
    palette_->PointedAt = [](const std::string&) {};
    delete checks_;
    delete money_;
    delete history_;
}

QWidget* frmCorvel::NewHandle(const char* id, Qt::Edge side) {
    auto* const handle = new FoldHandle(side);
    controls_.Bind(*handle, id);
    return handle;
}

/// Both texts of the line as one, a blank apart.
QWidget* frmCorvel::StatusLine() {
    auto* const line = new QWidget;
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(fontMetrics().horizontalAdvance(' '));
    status_->setObjectName("lblStatus");
    row->addWidget(status_);
    figures_->setObjectName("lblFigures");
    row->addWidget(figures_, 1);
    return line;
}

void frmCorvel::AddPanels() {
    middle_->setDockOptions(QMainWindow::AllowTabbedDocks | QMainWindow::AnimatedDocks);
    const auto add = [&](Panel panel, QDockWidget* dock, Qt::DockWidgetArea area) {
        middle_->addDockWidget(area, dock);
        dock->hide();
        // By its own button it is closed without a command: the menu's mark follows.
        connect(dock, &QDockWidget::visibilityChanged, this, [this] { controls_.Refresh(); });
        dialogs_.Offer(panel, {[dock] { Toggle(*dock); }, [dock] { return IsInFront(*dock); }});
    };
    add(Panel::Checks, checks_, Qt::BottomDockWidgetArea);
    add(Panel::Money, money_, Qt::BottomDockWidgetArea);
    add(Panel::History, history_, Qt::RightDockWidgetArea);
    dialogs_.OfferPrices([this] { money_->EnterPrices(); });
    picture_->Gone = [this] { controls_.Refresh(); };
    dialogs_.Offer(Panel::Picture, {[this] { picture_->Toggle(); }, [this] { return !picture_->isHidden(); }});
    middle_->tabifyDockWidget(checks_, money_);
    middle_->installEventFilter(new PanelShares(*middle_, {checks_, money_}));
    for (QTabBar* const tabs : middle_->findChildren<QTabBar*>())
        tabs->setFocusPolicy(Qt::NoFocus); // they are there before any panel is; keys and menu bring one to the front
}

void frmCorvel::AddHand() {
    const auto told = [this] {
        ShowStatus();
        if (tour_ != nullptr) tour_->Refresh();
    };
    const auto previews = [this] { return !suggestions_->isHidden() || !balance_->isHidden(); };
    hand_ = new BuildingHand(session_, circuit_->View(), palette_->Pieces(), told, previews);
    suggestions_->Turned = balance_->Turned = [this] {
        MakeRoom();
        ShowLanes();
        hand_->Refresh();
    };
    palette_->PointedAt = [this](const std::string& code) { hand_->PointAt(code); };
    palette_->TakenUp = [this](const std::string& code) { hand_->TakeUp(code); };
    pointer_->PointedAtInMenu = [this](const std::string& code, bool replaces) {
        hand_->PointAtSelected(code, replaces);
    };
    tour_ = new Tour(session_, *this, circuit_->View());
    dialogs_.OfferSearchAndTour([this] { palette_->FindPiece(); }, [this] { tour_->Begin(); });
}

/// While changes that balance lanes are looked at, the drawing has the height of the panels below it.
void frmCorvel::MakeRoom() {
    if (balance_->isHidden()) {
        for (QDockWidget* const panel : std::exchange(aside_, {})) {
            panel->show();
            panel->raise();
        }
        return;
    }
    for (QDockWidget* const panel : std::initializer_list<QDockWidget*>{checks_, money_}) {
        const bool isBelow = middle_->dockWidgetArea(panel) == Qt::BottomDockWidgetArea && !panel->isFloating();
        if (panel->isHidden() || !isBelow) continue;
        aside_.insert(IsInFront(*panel) ? aside_.end() : aside_.begin(), panel);
    }
    for (QDockWidget* const panel : aside_)
        panel->hide();
}

void frmCorvel::ShowLanes() {
    CircuitView& view = circuit_->View();
    const std::optional<Circuit> balanced = balance_->Shows(); // whose lanes are what one looks for
    view.ShowSelection(!balanced);
    if (!session_.Looks.Lanes && !balanced) {
        view.ShowLaneLegend({});
        return view.ClearOverlay(LanesOverlayName);
    }
    const Circuit& circuit = balanced ? *balanced : session_.Project.Design.Circuit;
    view.SetOverlay(LanesOverlayName, LanesOverlay(session_.Catalogue, circuit));
    view.ShowLaneLegend(LanesLegend(session_.Catalogue, circuit, session_.Project.Preferences.Units));
}

void frmCorvel::Refresh(const Changes& changes) {
    circuit_->View().Invalidate(changes);
    suggestions_->Refresh(changes);
    balance_->Refresh(changes);
    picture_->Refresh(changes);
    suggester_.Refresh(changes);
    controls_.Refresh();
    circuit_->Refresh();
    jobBar_->Refresh(); // the end of a job may have changed anything
    if (pointedAt_) ShowPlace();
    if (changes == Changes{.View = true}) return; // a view moves too often for what does not show it
    palette_->Refresh();
    track_->Refresh();
    checks_->Refresh(changes);
    money_->Refresh(changes);
    history_->Refresh();
    if (changes.Circuit || changes.Looks || changes.Preferences) ShowLanes();
    ShowColumns();
    // "[*]" would be taken for the toolkit's mark of modified documents.
    setWindowTitle(QString::fromStdString(Caption(session_.Project.EditState)).replace("[*]", "[*][*]"));
    ShowStatus();
    if (hand_ != nullptr) hand_->Refresh();
    if (tour_ != nullptr) tour_->Refresh();
    pointer_->Refresh(changes);
}

/// Where a column is folded away its handle lies at the window's very edge, which the mouse cannot miss.
void frmCorvel::ShowColumns() {
    const bool pieces = IsColumnShown(session_, &Looks::PieceColumn);
    const bool track = IsColumnShown(session_, &Looks::TrackColumn);
    pieceColumn_->setVisible(pieces);
    trackColumn_->setVisible(track);
    centralWidget()->layout()->setContentsMargins(pieces ? Spacing : 0, Spacing, track ? Spacing : 0, Spacing);
}

void frmCorvel::ShowPlace() { place_->setText(QString::fromStdString(PlaceText(session_.Project, *pointedAt_))); }

void frmCorvel::ShowStatus() {
    std::string text = StatusText(session_.Catalogue, session_.Project);
    if (session_.Times > 1) text += " · the next piece " + std::to_string(session_.Times) + " times";
    status_->setText(QString::fromStdString(text));
    const std::string figures = FiguresText(session_.Catalogue, session_.Project, session_.MoneyMarks);
    figures_->setText(QString::fromStdString(figures.empty() ? "" : "· " + figures));
}

void frmCorvel::Open(const std::filesystem::path& file) {
    session_.Do([&] { LoadFileCommand(session_, file); });
}

void frmCorvel::closeEvent(QCloseEvent* event) {
    if (closing_) return event->ignore(); // the question is being asked already
    closing_ = true;
    event->setAccepted(session_.TryRun(*session_.Commands.Find("quit")));
    if (event->isAccepted()) balance_->hide(); // with which panels come back that are there the next time
    closing_ = false;
}

void frmCorvel::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Later, as a question must not be asked before the window is back.
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    QTimer::singleShot(0, this, [this] {
        controls_.Refresh(); // something may have been copied elsewhere
        CheckFileOnDisk();
    });
}

void frmCorvel::CheckFileOnDisk() {
    const bool asksAlready = closing_ || session_.IsWorking() || QApplication::activeModalWidget() != nullptr;
    if (asksAlready || !session_.Files.IsChanged(session_.Project.EditState.File)) return;
    session_.Do([this] { OfferChangedFile(session_); });
}

void frmCorvel::dragEnterEvent(QDragEnterEvent* event) {
    if (!CircuitFileIn(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void frmCorvel::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    const QString file = CircuitFileIn(*event->mimeData());
    // Not before the drop is over: the program it came from waits for that, and there may be a question to answer.
    QTimer::singleShot(0, this, [this, file] { Open(PathFromText(file.toStdString())); });
}

} // namespace pistaro
