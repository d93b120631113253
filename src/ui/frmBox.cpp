#include "ui/frmBox.h"

#include "ui/named_controls.h"
#include "ui/work_picture.h"

#include <QEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int PictureSide = 132;
constexpr int PlaceRole = Qt::UserRole; ///< of a circuit's line: its place among those found
constexpr int TogetherWithin = 60;      ///< milliseconds

QString CountText(std::size_t count) {
    return QString::number(count) + (count == 1 ? " circuit found" : " circuits found");
}

} // namespace

frmBox::frmBox(Session& session, Purpose purpose, QWidget* parent)
    : QDialog(parent), session_(session), purpose_(purpose),
      fields_(new BoxFields(session, purpose, [this] { ShowFound(); })),
      search_(
          session.Catalogue,
          [this](std::function<void()> call) {
              QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
          },
          [this] { Hear(); }, [this](const JobEnd& end) { session_.Do(end); }) {
    const bool varies = purpose == Purpose::Variations;
    setObjectName(varies ? "frmVariations" : "frmBox");
    setWindowTitle(varies ? "Variations" : "Circuits from My Box");
    auto* const columns = new QHBoxLayout;
    columns->addWidget(Fields());
    columns->addLayout(Circuits(), 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(Buttons());
    resize(980, 640);
    showing_.setSingleShot(true);
    showing_.setInterval(TogetherWithin);
    connect(&showing_, &QTimer::timeout, this, [this] { ShowFound(); });
    observation_ = session.Observe([this](const Changes& changes) {
        if (changes.Stock || changes.Preferences) ShowFound(); // prices and colours
    });
    ShowStanding();
}

QWidget* frmBox::Fields() {
    auto* const fields = new QWidget;
    auto* const column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fields_, 1);
    column->addLayout(SearchButtons());
    constexpr int width = 310;
    fields->setFixedWidth(width);
    return fields;
}

QLayout* frmBox::SearchButtons() {
    cmdSearch_ = NewButton("cmdSearch", "&Search");
    cmdStop_ = NewButton("cmdStop", "St&op");
    cmdCancelSearch_ = NewButton("cmdCancelSearch", "Cancel");
    cmdSearch_->setToolTip("Look for circuits from the beginning");
    cmdSearch_->setDefault(true);
    connect(cmdSearch_, &QPushButton::clicked, this, [this] { Search(); });
    connect(cmdStop_, &QPushButton::clicked, this, [this] { StopOrGoOn(); });
    connect(cmdCancelSearch_, &QPushButton::clicked, this, [this] {
        search_.Cancel();
        ShowStanding();
    });
    auto* const buttons = new QHBoxLayout;
    for (QPushButton* const button : {cmdSearch_, cmdStop_, cmdCancelSearch_})
        buttons->addWidget(button);
    return buttons;
}

QLayout* frmBox::Circuits() {
    lstCircuits_ = Named(new QListWidget, "lstCircuits");
    lstCircuits_->setViewMode(QListView::IconMode);
    lstCircuits_->setMovement(QListView::Static);
    lstCircuits_->setResizeMode(QListView::Adjust);
    lstCircuits_->setIconSize(QSize(PictureSide, PictureSide));
    lstCircuits_->setSpacing(6);
    lstCircuits_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstCircuits_->setAccessibleName("Circuits");
    lstCircuits_->setToolTip("Click a circuit to open it as a new design; with Ctrl, only choose it");
    lstCircuits_->installEventFilter(this);
    connect(lstCircuits_, &QListWidget::itemClicked, this, [this] {
        if (lstCircuits_->selectedItems().size() == 1) OpenChosen();
    });
    connect(lstCircuits_, &QListWidget::itemSelectionChanged, this, [this] { ShowParts(); });
    weights_ = new ScoreWeightsBox([this] { ShowFound(); });
    lblFound_ = Named(new QLabel, "lblFound");
    auto* const column = new QVBoxLayout;
    column->addWidget(lblFound_);
    column->addWidget(lstCircuits_, 1);
    column->addWidget(weights_);
    return column;
}

QLayout* frmBox::Buttons() {
    cmdOpen_ = NewButton("cmdOpenCircuit", "O&pen");
    cmdKeep_ = NewButton("cmdKeepCircuits", "&Keep as Files…");
    QPushButton* const cmdClose = NewButton("cmdCloseBox", "Close");
    cmdOpen_->setToolTip("Open the chosen circuit as a new design");
    cmdKeep_->setToolTip("Write the chosen circuits into files");
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { OpenChosen(); });
    connect(cmdKeep_, &QPushButton::clicked, this, [this] { KeepChosen(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    return ButtonRow({cmdOpen_, cmdKeep_, cmdClose});
}

void frmBox::Search() {
    session_.Do([&] {
        const BoxWish wish = fields_->Wish();
        const LayingTask task = TaskFor(session_, wish);
        wish_ = wish;
        room_ = RoomFor(session_, wish);
        pictures_.clear();
        lstCircuits_->clear();
        search_.Start(task);
        ShowStanding();
    });
}

void frmBox::StopOrGoOn() {
    if (search_.Standing() == BoxStanding::Runs) {
        search_.Pause();
    } else {
        search_.GoOn();
        ShowStanding();
    }
}

void frmBox::Hear() {
    if (search_.Standing() != BoxStanding::Runs) return ShowFound();
    if (!showing_.isActive()) showing_.start();
}

/// Brings the list up to date: its lines stay where the order has not changed.
void frmBox::ShowFound() {
    const std::vector<FoundCircuit>& found = search_.Found();
    pictures_.resize(found.size());
    const std::vector<std::size_t> best = BestOf(found, fields_->Count(), weights_->Weights());
    const std::vector<std::size_t> chosen = Chosen();
    {
        const QSignalBlocker quiet(lstCircuits_);
        while (lstCircuits_->count() > static_cast<int>(best.size()))
            delete lstCircuits_->takeItem(lstCircuits_->count() - 1);
        for (std::size_t i = 0; i < best.size(); ++i) {
            const int row = static_cast<int>(i);
            if (row == lstCircuits_->count()) lstCircuits_->addItem(QString());
            FillLine(*lstCircuits_->item(row), best[i]);
            lstCircuits_->item(row)->setSelected(std::ranges::find(chosen, best[i]) != chosen.end());
        }
    }
    ShowStanding();
    ShowParts();
}

void frmBox::FillLine(QListWidgetItem& line, std::size_t place) {
    const LaidCircuit& circuit = search_.Found()[place].Circuit;
    if (pictures_[place].isNull()) {
        Design design = room_;
        design.Circuit.Tracks.front() = circuit.Track;
        pictures_[place] = QPixmap::fromImage(
            WorkPicture(session_.Catalogue, design, session_.Project.Preferences, PictureSide, devicePixelRatioF()));
    }
    line.setData(PlaceRole, static_cast<qulonglong>(place));
    line.setIcon(pictures_[place]);
    line.setText(Shown(UseText(circuit) + "\n" + LengthAndPriceText(session_, circuit)));
}

void frmBox::ShowStanding() {
    const BoxStanding standing = search_.Standing();
    const std::size_t count = search_.Found().size();
    QString text;
    switch (standing) {
    case BoxStanding::Idle:
        text = count == 0 ? "Press Search to see what these pieces make in this room." : CountText(count) + ".";
        break;
    case BoxStanding::Runs:
        text = CountText(count) + ", and looking on …";
        break;
    case BoxStanding::Paused:
        text = CountText(count) + " so far.";
        break;
    case BoxStanding::Ended:
        text = CountText(count) + "; there may be others.";
        break;
    case BoxStanding::Complete:
        text = count == 0 ? "These pieces make no circuit in this room." : CountText(count) + "; there are no others.";
        break;
    }
    lblFound_->setText(text);
    cmdStop_->setText(standing == BoxStanding::Runs || standing == BoxStanding::Idle ? "St&op" : "&Go On");
    cmdStop_->setEnabled(standing != BoxStanding::Idle && standing != BoxStanding::Complete);
    cmdCancelSearch_->setEnabled(standing == BoxStanding::Runs);
}

void frmBox::ShowParts() {
    const std::vector<std::size_t> chosen = Chosen();
    cmdOpen_->setEnabled(chosen.size() == 1);
    cmdKeep_->setEnabled(!chosen.empty());
    weights_->Show(chosen.size() == 1 ? std::optional(search_.Found()[chosen.front()].Circuit.Parts) : std::nullopt);
}

std::vector<std::size_t> frmBox::Chosen() const {
    std::vector<std::size_t> chosen;
    for (int row = 0; row < lstCircuits_->count(); ++row) {
        const QListWidgetItem& line = *lstCircuits_->item(row);
        if (line.isSelected()) chosen.push_back(static_cast<std::size_t>(line.data(PlaceRole).toULongLong()));
    }
    return chosen;
}

void frmBox::OpenChosen() {
    const std::vector<std::size_t> chosen = Chosen();
    if (chosen.size() != 1) return;
    session_.Do([&] { OpenAsNew(session_, room_, search_.Found()[chosen.front()].Circuit.Track, opened_); });
}

void frmBox::KeepChosen() {
    std::vector<Track> tracks;
    for (const std::size_t place : Chosen())
        tracks.push_back(search_.Found()[place].Circuit.Track);
    session_.Do([&] { KeepAsFiles(session_, room_, tracks); });
}

bool frmBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    OpenChosen();
    return true;
}

void frmBox::hideEvent(QHideEvent* event) {
    search_.Cancel();
    QDialog::hideEvent(event);
}

} // namespace pistaro
