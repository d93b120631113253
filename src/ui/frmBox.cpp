#include "ui/frmBox.h"

#include "commands/closing_commands.h"
#include "editor/view_commands.h"
#include "ui/named_controls.h"
#include "ui/work_picture.h"

#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr int PictureSide = 132;
constexpr int PlaceRole = Qt::UserRole; ///< of a circuit's line: its place among those found
constexpr int TogetherWithin = 60;      ///< milliseconds

struct MustHaveText {
    bool MustHaves::*Is;
    const char* Name;
    const char* Caption;
};

constexpr std::array<MustHaveText, 4> MustHaveTexts{{
    {&MustHaves::LapCounter, "chkLapCounter", "&Lap counter"},
    {&MustHaves::BankedCurve, "chkBankedCurve", "&Banked curve"},
    {&MustHaves::ChangeOvers, "chkChangeOvers", "Change-o&ver pair"},
    {&MustHaves::Chicane, "chkChicane", "Complete c&hicane"},
}};

QSpinBox* NewLengthBox(const char* name, int value) {
    constexpr int shortest = 50, longest = 5000; // cm
    auto* const box = Named(new QSpinBox, name);
    box->setRange(shortest, longest);
    box->setSingleStep(10);
    box->setValue(value);
    box->setSuffix(" cm");
    return box;
}

QString CountText(std::size_t count) {
    return QString::number(count) + (count == 1 ? " circuit found" : " circuits found");
}

} // namespace

frmBox::frmBox(Session& session, Purpose purpose, QWidget* parent)
    : QDialog(parent), session_(session), purpose_(purpose), sets_(SetsOf(session)),
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
    lstBox_->Show(varies ? BoxOfDesign(session) : OwnedBox(session.Catalogue, session.Project.Stock));
    OfferRoom();
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
    column->addLayout(BoxFields(), 1);
    column->addWidget(RoomFields());
    column->addWidget(MustHaveFields());
    column->addLayout(SearchFields());
    constexpr int width = 310;
    fields->setFixedWidth(width);
    return fields;
}

QLayout* frmBox::BoxFields() {
    lstBox_ = Named(new PieceCounts(session_.Catalogue), "lstBox");
    QPushButton* const cmdAllOwned = NewButton("cmdAllOwned", "&All I Own");
    QPushButton* const cmdNoPieces = NewButton("cmdNoPieces", "&Empty");
    QPushButton* const cmdAddSet = NewButton("cmdAddSet", "Add Se&t");
    cmdAllOwned->setToolTip("Have in the box what you own, and nothing else");
    cmdAddSet->setToolTip("Put one more such set into the box");
    cboSets_ = Named(new QComboBox, "cboSets");
    cboSets_->setAccessibleName("Boxed sets");
    cboSets_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const BoxedSet& set : sets_)
        cboSets_->addItem(Shown(set.Name));
    cmdAddSet->setEnabled(!sets_.empty());
    connect(cmdAllOwned, &QPushButton::clicked, this,
            [this] { lstBox_->Show(OwnedBox(session_.Catalogue, session_.Project.Stock)); });
    connect(cmdNoPieces, &QPushButton::clicked, this, [this] { lstBox_->Show(OwnedBox(session_.Catalogue, Stock())); });
    connect(cmdAddSet, &QPushButton::clicked, this, [this] { AddSet(); });
    auto* const contents = new QHBoxLayout;
    contents->addWidget(cmdAllOwned);
    contents->addWidget(cmdNoPieces);
    auto* const set = new QHBoxLayout;
    set->addWidget(cboSets_, 1);
    set->addWidget(cmdAddSet);
    auto* const column = new QVBoxLayout;
    column->addWidget(lstBox_, 1);
    column->addLayout(contents);
    column->addLayout(set);
    return column;
}

void frmBox::AddSet() {
    PieceBox box = lstBox_->Box();
    for (const auto& [row, count] : sets_[static_cast<std::size_t>(cboSets_->currentIndex())].Pieces) {
        int& there = box.Counts[static_cast<std::size_t>(row)];
        there = std::min(there + count, MostOfProduct);
    }
    lstBox_->Show(box);
}

QWidget* frmBox::RoomFields() {
    auto* const frame = new QGroupBox("Room");
    auto* const column = new QVBoxLayout(frame);
    optRoomDesign_ = Named(new QRadioButton("The &design's"), "optRoomDesign");
    optRoomArea_ = Named(new QRadioButton, "optRoomArea");
    optRoomArea_->setAccessibleName("Width and depth");
    spnWidth_ = NewLengthBox("spnRoomWidth", 400);
    spnDepth_ = NewLengthBox("spnRoomDepth", 300);
    auto* const area = new QHBoxLayout;
    area->addWidget(optRoomArea_);
    area->addWidget(spnWidth_, 1);
    area->addWidget(new QLabel("×"));
    area->addWidget(spnDepth_, 1);
    column->addWidget(optRoomDesign_);
    column->addLayout(area);
    for (QSpinBox* const length : {spnWidth_, spnDepth_})
        connect(length, &QSpinBox::valueChanged, this, [this] { optRoomArea_->setChecked(true); });
    return frame;
}

/// Begins with the design's room, where there is one; else with an area in which its circuit has room.
void frmBox::OfferRoom() {
    const Design& design = session_.Project.Design;
    const bool isThere = HasWalls(design.Room);
    optRoomDesign_->setEnabled(isThere);
    if (!isThere) optRoomDesign_->setToolTip("The design has no room with walls");
    const auto extent = ExtentOf(session_.Catalogue, design);
    if (purpose_ == Purpose::Variations && extent && !isThere) {
        constexpr double spare = 60; // cm
        spnWidth_->setValue(static_cast<int>(std::ceil(extent->Right - extent->Left + spare)));
        spnDepth_->setValue(static_cast<int>(std::ceil(extent->Top - extent->Bottom + spare)));
        middleX_ = static_cast<int>(std::lround((extent->Left + extent->Right) / 2));
        middleY_ = static_cast<int>(std::lround((extent->Bottom + extent->Top) / 2));
    }
    (isThere ? optRoomDesign_ : optRoomArea_)->setChecked(true);
}

QWidget* frmBox::MustHaveFields() {
    auto* const frame = new QGroupBox("Must have");
    auto* const grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < MustHaveTexts.size(); ++i) {
        mustHaves_[i] = Named(new QCheckBox(MustHaveTexts[i].Caption), MustHaveTexts[i].Name);
        grid->addWidget(mustHaves_[i], static_cast<int>(i / 2), static_cast<int>(i % 2));
    }
    if (purpose_ == Purpose::Variations) {
        chkKeepPart_ = Named(new QCheckBox, "chkKeepPart");
        OfferPart();
        grid->addWidget(chkKeepPart_, 2, 0, 1, 2);
    }
    return frame;
}

/// Offers to keep the elements that are selected as the window opens.
void frmBox::OfferPart() {
    const EditState& edit = session_.Project.EditState;
    const ElementRun run = edit.ShowsAllTracks() ? ElementRun() : SelectedRun(session_);
    const Track* const track = EditedTrack(session_.Project.Design.Circuit, edit);
    const bool canKeep = run.Count > 0 && run.Count <= track->ElementLastIndex();
    if (canKeep) part_ = PartOf(session_, run.First, run.Count);
    chkKeepPart_->setEnabled(canKeep);
    chkKeepPart_->setChecked(canKeep && run.Count > 1);
    chkKeepPart_->setText(canKeep && run.Count > 1
                              ? QString("The selected pa&rt: %1 to %2").arg(run.First).arg(run.First + run.Count - 1)
                              : QString("The selected pa&rt"));
    chkKeepPart_->setToolTip(canKeep ? "These elements stay as they are, where they are"
                                     : "Select elements first: a click, then Shift and a click");
}

QLayout* frmBox::SearchFields() {
    spnCount_ = Named(new QSpinBox, "spnCircuits");
    spnCount_->setRange(1, 100);
    spnCount_->setValue(10);
    spnCount_->setToolTip("How many circuits are shown, the best of all that are found");
    connect(spnCount_, &QSpinBox::valueChanged, this, [this] { ShowFound(); });
    txtSeed_ = Named(new QLineEdit("1"), "txtSeed");
    txtSeed_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{1,18}"), txtSeed_));
    txtSeed_->setToolTip("The same number finds the same circuits; another one finds others");
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
    auto* const numbers = new QHBoxLayout;
    auto* const lblCount = new QLabel("&Circuits:");
    auto* const lblSeed = new QLabel("Seed:");
    lblCount->setBuddy(spnCount_);
    lblSeed->setBuddy(txtSeed_);
    numbers->addWidget(lblCount);
    numbers->addWidget(spnCount_);
    numbers->addWidget(lblSeed);
    numbers->addWidget(txtSeed_, 1);
    auto* const buttons = new QHBoxLayout;
    for (QPushButton* const button : {cmdSearch_, cmdStop_, cmdCancelSearch_})
        buttons->addWidget(button);
    auto* const column = new QVBoxLayout;
    column->addLayout(numbers);
    column->addLayout(buttons);
    return column;
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

BoxWish frmBox::Wish() const {
    BoxWish wish{.Box = lstBox_->Box()};
    if (optRoomArea_->isChecked()) wish.Area = Area{spnWidth_->value(), spnDepth_->value()};
    wish.MiddleX = middleX_;
    wish.MiddleY = middleY_;
    for (std::size_t i = 0; i < MustHaveTexts.size(); ++i)
        wish.MustHave.*MustHaveTexts[i].Is = mustHaves_[i]->isChecked();
    if (chkKeepPart_ != nullptr && chkKeepPart_->isChecked()) wish.Kept = part_;
    wish.Count = spnCount_->value();
    wish.Seed = txtSeed_->text().toULongLong();
    return wish;
}

void frmBox::Search() {
    session_.Do([&] {
        const BoxWish wish = Wish();
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
    const std::vector<std::size_t> best = BestOf(found, spnCount_->value(), weights_->Weights());
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
