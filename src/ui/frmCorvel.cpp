#include "ui/frmCorvel.h"

#include "commands/circuit_commands.h"
#include "editor/status_text.h"
#include "platform/files.h"
#include "ui/main_menus.h"
#include "ui/side_column.h"

#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QIcon>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

namespace pistaro {

namespace {

constexpr int Spacing = 8;
constexpr int TitleBarHeight = 32;

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

} // namespace

frmCorvel::frmCorvel(Session& session)
    : session_(session), controls_(session), palette_(new PiecePalette(session, controls_)),
      circuit_(new CircuitPanel(session, controls_)), track_(new TrackPanel(session, controls_)),
      pointer_(new CanvasPointer(session, controls_, circuit_->View())), dialogs_(session, *this),
      jobBar_(new JobBar(session, controls_)), status_(new QLabel), figures_(new QLabel), place_(new QLabel) {
    setObjectName("frmCorvel");
    new CanvasKeys(session, *pointer_, circuit_->View());
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    auto* const columns = new QWidget;
    auto* const row = new QHBoxLayout(columns);
    row->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    row->setSpacing(Spacing);
    row->addWidget(new SideColumn(palette_));
    row->addWidget(circuit_, 1);
    row->addWidget(new SideColumn(track_));
    setCentralWidget(columns);
    status_->setObjectName("lblStatus");
    statusBar()->addWidget(status_);
    figures_->setObjectName("lblFigures");
    statusBar()->addWidget(figures_);
    place_->setObjectName("lblPlace");
    statusBar()->addPermanentWidget(jobBar_);
    statusBar()->addPermanentWidget(place_);
    statusBar()->setContentsMargins(Spacing, 0, 0, 0);
    AddMainMenus(*this, controls_, session_, [this] { close(); });
    hand_ = new BuildingHand(session, circuit_->View(), palette_->Pieces(), [this] { ShowStatus(); });
    pointer_->TellPlace = [this](WorldPoint place) {
        place_->setText(QString::fromStdString(PlaceText(session_.Project, place)));
    };
    session_.Windows = &dialogs_;
    session_.Observe([this](const Changes& changes) { Refresh(changes); });
    Refresh({});
    resize(QSize(1200, 820).boundedTo(screen()->availableSize() - QSize(0, TitleBarHeight)));
}

frmCorvel::~frmCorvel() {
    session_.CancelJob(); // its end would be looked for here
    session_.Windows = nullptr;
}

void frmCorvel::Refresh(const Changes& changes) {
    circuit_->View().Invalidate(changes);
    controls_.Refresh();
    circuit_->Refresh();
    jobBar_->Refresh();                           // the end of a job may have changed anything
    if (changes == Changes{.View = true}) return; // a view moves too often for what does not show it
    palette_->Refresh();
    track_->Refresh();
    for (QWidget* const column : {palette_->parentWidget()->parentWidget(), track_->parentWidget()->parentWidget()})
        column->setVisible(session_.Looks.Columns);
    // "[*]" would be taken for the toolkit's mark of modified documents.
    setWindowTitle(QString::fromStdString(Caption(session_.Project.EditState)).replace("[*]", "[*][*]"));
    ShowStatus();
    if (hand_ != nullptr) hand_->Refresh();
    pointer_->Refresh(changes);
}

void frmCorvel::ShowStatus() {
    std::string text = StatusText(session_.Catalogue, session_.Project);
    if (hand_ != nullptr && hand_->Times() > 1)
        text += " · the next piece " + std::to_string(hand_->Times()) + " times";
    status_->setText(QString::fromStdString(text));
    figures_->setText(QString::fromStdString(FiguresText(session_.Catalogue, session_.Project)));
}

void frmCorvel::Open(const std::filesystem::path& file) {
    session_.Do([&] { LoadFileCommand(session_, file); });
}

void frmCorvel::closeEvent(QCloseEvent* event) {
    if (closing_) return event->ignore(); // the question is being asked already
    closing_ = true;
    event->setAccepted(session_.TryRun(*session_.Commands.Find("quit")));
    closing_ = false;
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
