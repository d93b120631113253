#include "ui/box_fields.h"

#include "commands/closing_commands.h"
#include "editor/view_commands.h"
#include "text/count_text.h"
#include "ui/named_controls.h"

#include <QGroupBox>
#include <QRegularExpressionValidator>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pistaro {

namespace {

struct MustHaveText {
    bool MustHaves::*Is;
    const char* Name;
    const char* Caption;
    const char* Lacking;
};

constexpr std::array<MustHaveText, 4> MustHaveTexts{{
    {&MustHaves::LapCounter, "chkLapCounter", "&Lap counter", "none in the box"},
    {&MustHaves::BankedCurve, "chkBankedCurve", "&Banked curve", "none in the box"},
    {&MustHaves::ChangeOvers, "chkChangeOvers", "Change-o&ver pair", "no pair in the box"},
    {&MustHaves::Chicane, "chkChicane", "Complete c&hicane", "not both ends in the box"},
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

} // namespace

BoxFields::BoxFields(Session& session, BoxPurpose purpose, std::function<void()> wishChanged,
                     std::function<void()> countChanged)
    : session_(session), purpose_(purpose), wishChanged_(std::move(wishChanged)),
      countChanged_(std::move(countChanged)), owned_(OwnedBox(session.Catalogue, session.Project.Stock)),
      sets_(SetsOf(session)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(PieceFields(), 1);
    column->addWidget(RoomFields());
    column->addWidget(MustHaveFields());
    column->addLayout(NumberFields());
    lstBox_->ShowOwned(owned_);
    FillBox(purpose == BoxPurpose::Variations ? BoxOfDesign(session) : owned_);
    ShowTotal();
    OfferMustHaves();
    OfferRoom();
    ChooseRoom();
    OfferOwned();
    TellChanges();
    setFocusProxy(txtFilterBox_); // Enter there goes to a count; on a button it would press that
}

void BoxFields::TellChanges() {
    lstBox_->Changed = [this] {
        ShowTotal();
        OfferMustHaves();
        wishChanged_();
    };
    std::vector<QAbstractButton*> choices(mustHaves_.begin(), mustHaves_.end());
    choices.push_back(optRoomArea_);
    if (chkKeepPart_ != nullptr) choices.push_back(chkKeepPart_);
    for (QAbstractButton* const choice : choices)
        connect(choice, &QAbstractButton::toggled, this, wishChanged_);
    for (QSpinBox* const length : {spnWidth_, spnDepth_})
        connect(length, &QSpinBox::valueChanged, this, wishChanged_);
}

void BoxFields::Refresh() {
    OfferRoom();
    const PieceBox before = std::exchange(owned_, OwnedBox(session_.Catalogue, session_.Project.Stock));
    lstBox_->ShowOwned(owned_);
    if (purpose_ == BoxPurpose::Box && lstBox_->Box() == before && before != owned_) lstBox_->Show(owned_);
    OfferOwned();
    ShowTotal();
    Filter();
}

void BoxFields::ShowTotal() {
    const PieceBox box = lstBox_->Box();
    const int owned = owned_.Total();
    int beyond = 0;
    for (std::size_t row = 0; row < box.Counts.size(); ++row)
        beyond += std::max(0, box.Counts[row] - owned_.Counts[row]);
    std::string text = CountText(box.Total(), "piece") + " in the box";
    if (beyond > 0 && owned > 0) text += ", " + std::to_string(beyond) + " more than you own";
    if (beyond == 0 && owned > 0)
        text = std::to_string(box.Total()) + " of your " + CountText(owned, "piece") + " in the box";
    lblTotal_->setText(Shown(text));
    OfferToOwn();
}

/// Where the box is what is owned, there is nothing to take over.
void BoxFields::OfferToOwn() {
    const PieceBox box = lstBox_->Box();
    const bool isOwned = std::ranges::all_of(session_.Catalogue.ProductRows(), [&](int row) {
        const auto count = [&](const PieceBox& of) {
            return CountOfProduct(session_.Catalogue, of, session_.Catalogue[row].Code);
        };
        return count(box) == count(owned_);
    });
    cmdOwnBox_->setVisible(box.Total() > 0 && !isOwned && purpose_ == BoxPurpose::Box);
    EnableSaving(*cmdOwnBox_, !session_.SettingsPath.empty());
    if (cmdOwnBox_->isEnabled())
        cmdOwnBox_->setToolTip("Take exactly these pieces for what you own, here and wherever Pistaro counts");
}

QLayout* BoxFields::PieceFields() {
    lstBox_ = Named(new PieceCounts(session_.Catalogue), "lstBox");
    auto* const column = new QVBoxLayout;
    column->addLayout(SourceFields());
    column->addLayout(FilterFields());
    column->addWidget(lstBox_, 1);
    column->addLayout(TotalFields());
    return column;
}

/// Whence the box is filled: above its list, as the first thing to do.
QLayout* BoxFields::SourceFields() {
    cmdAllOwned_ = NewButton("cmdAllOwned", "&All I Own");
    QPushButton* const cmdNoPieces = NewButton("cmdNoPieces", "&Empty");
    QPushButton* const cmdAddSet = NewButton("cmdAddSet", "Add Se&t");
    cmdNoPieces->setToolTip("Take everything out of the box");
    cmdAddSet->setToolTip("Add one such set to the box");
    cboSets_ = Named(new QComboBox, "cboSets");
    cboSets_->setAccessibleName("Boxed sets");
    cboSets_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const BoxedSet& set : sets_)
        cboSets_->addItem(Shown(set.Name));
    cmdAddSet->setEnabled(!sets_.empty());
    connect(cmdAllOwned_, &QPushButton::clicked, this, [this] { FillBox(owned_); });
    connect(cmdNoPieces, &QPushButton::clicked, this, [this] { FillBox(OwnedBox(session_.Catalogue, Stock())); });
    connect(cmdAddSet, &QPushButton::clicked, this, [this] { AddSet(); });
    auto* const contents = new QHBoxLayout;
    contents->addWidget(cmdAllOwned_);
    if (purpose_ == BoxPurpose::Variations) {
        QPushButton* const cmdDesignPieces = NewButton("cmdDesignPieces", "The Desi&gn's");
        cmdDesignPieces->setToolTip("Fill the box with exactly the pieces of the design that is open");
        connect(cmdDesignPieces, &QPushButton::clicked, this, [this] { FillBox(BoxOfDesign(session_)); });
        contents->addWidget(cmdDesignPieces);
    }
    contents->addWidget(cmdNoPieces);
    auto* const set = new QHBoxLayout;
    set->addWidget(cboSets_, 1);
    set->addWidget(cmdAddSet);
    auto* const column = new QVBoxLayout;
    column->addWidget(new QLabel("<b>What shall it be built from?</b>"));
    column->addLayout(contents);
    column->addLayout(set);
    return column;
}

/// How many pieces that is, and that they be what is owned from now on.
QLayout* BoxFields::TotalFields() {
    lblTotal_ = Named(new QLabel, "lblTotal");
    lblTotal_->setWordWrap(true);
    lblTotal_->setMinimumHeight(2 * lblTotal_->fontMetrics().lineSpacing()); // the list above stays as high as it is
    cmdOwnBox_ = NewButton("cmdOwnBox", "&I Own These");
    QSizePolicy keepsItsPlace = cmdOwnBox_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(purpose_ == BoxPurpose::Box);
    cmdOwnBox_->setSizePolicy(keepsItsPlace);
    connect(cmdOwnBox_, &QPushButton::clicked, this,
            [this] { session_.Do([this] { OwnBox(session_, lstBox_->Box()); }); });
    auto* const total = new QHBoxLayout;
    total->addWidget(lblTotal_, 1);
    total->addWidget(cmdOwnBox_);
    return total;
}

QLayout* BoxFields::FilterFields() {
    txtFilterBox_ = new ProductFinder("txtFilterBox");
    txtFilterBox_->GoesOn = [this] { lstBox_->EditFirst(); };
    chkAllProducts_ = Named(new QCheckBox("All prod&ucts"), "chkAllProducts");
    connect(txtFilterBox_, &QLineEdit::textChanged, this, [this] { Filter(); });
    connect(chkAllProducts_, &QCheckBox::toggled, this, [this] { Filter(); });
    auto* const filter = new QHBoxLayout;
    filter->addWidget(txtFilterBox_, 1);
    filter->addWidget(chkAllProducts_);
    return filter;
}

void BoxFields::Filter() {
    const bool hasMine = lstBox_->HasMine();
    chkAllProducts_->setEnabled(hasMine);
    chkAllProducts_->setToolTip(hasMine ? "List products, too, that you do not own and that are not in the box"
                                        : "All products are listed while you own none and the box is empty");
    lstBox_->Filter(txtFilterBox_->text(), chkAllProducts_->isChecked());
}

void BoxFields::FillBox(const PieceBox& box) {
    lstBox_->Show(box);
    Filter();
}

void BoxFields::OfferOwned() {
    const bool ownsAny = owned_.Total() > 0;
    cmdAllOwned_->setEnabled(ownsAny);
    cmdAllOwned_->setToolTip(ownsAny ? "Fill the box with exactly what you own"
                                     : "You own nothing yet: say what you own in Settings ▸ Loose Track…");
}

void BoxFields::AddSet() {
    PieceBox box = lstBox_->Box();
    for (const auto& [row, count] : sets_[static_cast<std::size_t>(cboSets_->currentIndex())].Pieces) {
        int& there = box.Counts[static_cast<std::size_t>(row)];
        there = std::min(there + count, MostOfProduct);
    }
    FillBox(box);
}

QWidget* BoxFields::RoomFields() {
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

void BoxFields::OfferRoom() {
    const bool isThere = HasWalls(session_.Project.Design.Room);
    optRoomDesign_->setEnabled(isThere);
    const QString size = Shown(RoomSizeText(session_.Project.Design.Room));
    optRoomDesign_->setText(isThere ? "The &design's, " + size : "The &design's");
    optRoomDesign_->setToolTip(isThere ? "The walls of the design that is open" : "The design has no room with walls");
    if (!isThere) optRoomArea_->setChecked(true);
}

/// Begins with the design's room, where there is one; else with an area in which its circuit has room, or with the last
/// one.
void BoxFields::ChooseRoom() {
    const Design& design = session_.Project.Design;
    const bool isThere = HasWalls(design.Room);
    const auto extent = ExtentOf(session_.Catalogue, design);
    const QString last = Shown(session_.Habits.BoxRoom);
    const std::array<int, 2> sides{last.section('x', 0, 0).toInt(), last.section('x', 1, 1).toInt()};
    if (std::ranges::min(sides) > 0) {
        spnWidth_->setValue(sides[0]);
        spnDepth_->setValue(sides[1]);
    }
    if (purpose_ == BoxPurpose::Variations && extent && !isThere) {
        constexpr double spare = 60; // cm
        spnWidth_->setValue(static_cast<int>(std::ceil(extent->Right - extent->Left + spare)));
        spnDepth_->setValue(static_cast<int>(std::ceil(extent->Top - extent->Bottom + spare)));
        middleX_ = static_cast<int>(std::lround((extent->Left + extent->Right) / 2));
        middleY_ = static_cast<int>(std::lround((extent->Bottom + extent->Top) / 2));
    }
    (isThere ? optRoomDesign_ : optRoomArea_)->setChecked(true);
}

QWidget* BoxFields::MustHaveFields() {
    auto* const frame = new QGroupBox("Must have");
    auto* const grid = new QGridLayout(frame);
    grid->setVerticalSpacing(2);
    for (std::size_t i = 0; i < MustHaveTexts.size(); ++i) {
        const int row = static_cast<int>(i);
        mustHaves_[i] = Named(new QCheckBox(MustHaveTexts[i].Caption), MustHaveTexts[i].Name);
        lacking_[i] = Named(new QLabel, "lblLacking", row);
        lacking_[i]->setEnabled(false);
        grid->addWidget(mustHaves_[i], row, 0);
        grid->addWidget(lacking_[i], row, 1, Qt::AlignRight);
        connect(mustHaves_[i], &QCheckBox::toggled, this, [this] { OfferMustHaves(); });
    }
    if (purpose_ == BoxPurpose::Variations) {
        chkKeepPart_ = Named(new QCheckBox, "chkKeepPart");
        OfferPart();
        grid->addWidget(chkKeepPart_, static_cast<int>(MustHaveTexts.size()), 0, 1, 2);
    }
    return frame;
}

/// What the box cannot give is not offered, and why stands beside it; what is asked for already can be let go of.
void BoxFields::OfferMustHaves() {
    const PieceBox box = lstBox_->Box();
    for (std::size_t i = 0; i < MustHaveTexts.size(); ++i) {
        MustHaves one;
        one.*MustHaveTexts[i].Is = true;
        const QString why = Shown(WhyNot(session_.Catalogue, box, one));
        mustHaves_[i]->setEnabled(why.isEmpty() || mustHaves_[i]->isChecked());
        mustHaves_[i]->setToolTip(why);
        mustHaves_[i]->setAccessibleDescription(why);
        lacking_[i]->setText(why.isEmpty() ? QString() : QString(MustHaveTexts[i].Lacking));
        lacking_[i]->setToolTip(why);
    }
}

/// Offers to keep the elements that are selected as the window opens.
void BoxFields::OfferPart() {
    const EditState& edit = session_.Project.EditState;
    const ElementRun run = edit.ShowsAllTracks() ? ElementRun() : SelectedRun(session_);
    const Track* const track = EditedTrack(session_.Project.Design.Circuit, edit);
    const bool canKeep = run.Count > 0 && run.Count <= track->ElementLastIndex();
    if (canKeep) part_ = PartOf(session_, run.First, run.Count);
    chkKeepPart_->setEnabled(canKeep);
    chkKeepPart_->setChecked(canKeep && run.Count > 1);
    QString part = "The selected pa&rt";
    if (!canKeep) part += ": none is selected";
    if (canKeep && run.Count > 1) part += QString(": %1 to %2").arg(run.First).arg(run.First + run.Count - 1);
    chkKeepPart_->setText(part);
    chkKeepPart_->setToolTip(canKeep ? "These elements stay as they are, where they are"
                                     : "Select elements first: a click, then Shift and a click");
}

QLayout* BoxFields::NumberFields() {
    spnCount_ = Named(new QSpinBox, "spnCircuits");
    spnCount_->setRange(1, 100);
    spnCount_->setValue(10);
    spnCount_->setToolTip("How many circuits are shown, the best of all that are found");
    connect(spnCount_, &QSpinBox::valueChanged, this, countChanged_);
    txtSeed_ = Named(new QLineEdit("1"), "txtSeed");
    txtSeed_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{1,18}"), txtSeed_));
    txtSeed_->setToolTip("A number to begin with: the same one always finds the same circuits, another one others");
    auto* const numbers = new QHBoxLayout;
    auto* const lblCount = new QLabel("&Circuits:");
    auto* const lblSeed = new QLabel("Seed:");
    lblCount->setBuddy(spnCount_);
    lblSeed->setBuddy(txtSeed_);
    lblSeed->hide();
    txtSeed_->hide();
    auto* const cmdMore = Named(new QToolButton, "cmdMoreNumbers");
    cmdMore->setText("More");
    cmdMore->setToolTip("What few need: the number that a search begins with, so that it can be repeated");
    cmdMore->setCheckable(true);
    connect(cmdMore, &QToolButton::toggled, lblSeed, &QWidget::setVisible);
    connect(cmdMore, &QToolButton::toggled, txtSeed_, &QWidget::setVisible);
    numbers->addWidget(lblCount);
    numbers->addWidget(spnCount_);
    numbers->addStretch();
    numbers->addWidget(lblSeed);
    numbers->addWidget(txtSeed_, 1);
    numbers->addWidget(cmdMore);
    return numbers;
}

BoxWish BoxFields::Wish() const {
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

void BoxFields::RememberArea() const {
    session_.Habits.BoxRoom = std::to_string(spnWidth_->value()) + "x" + std::to_string(spnDepth_->value());
}

} // namespace pistaro
