#include "ui/box_fields.h"

#include "search/no_circuit.h"
#include "text/count_text.h"
#include "ui/named_controls.h"

#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

constexpr const char* AllShapes = "all"; ///< as a habit

} // namespace

BoxFields::BoxFields(Session& session, std::optional<int> varied, std::function<void()> wishChanged,
                     std::function<void()> countChanged)
    : session_(session), varied_(varied), wishChanged_(std::move(wishChanged)), countChanged_(std::move(countChanged)),
      owned_(OwnedBox(session.Catalogue, session.Project.Stock)), sets_(SetsOf(session)),
      room_(new RoomFields(session, varied.has_value())), mustHaves_(new MustHaveFields(session, varied.has_value())) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(PieceFields(), 1);
    column->addWidget(room_);
    column->addWidget(mustHaves_);
    column->addLayout(NumberFields());
    lstBox_->ShowOwned(owned_);
    FillBox(varied ? BoxOfTrack(session, *varied) : LastBox());
    ShowTotal();
    if (varied) mustHaves_->BeginWith(MustHavesOfTrack(session, *varied));
    mustHaves_->Offer(lstBox_->Box());
    OfferOwned();
    TellChanges();
    setFocusProxy(txtFilterBox_); // Enter there goes to a count; on a button it would press that
}

void BoxFields::TellChanges() {
    lstBox_->Changed = [this] {
        ShowTotal();
        mustHaves_->Offer(lstBox_->Box());
        wishChanged_();
    };
    room_->Changed = wishChanged_;
    mustHaves_->Changed = wishChanged_;
}

void BoxFields::Refresh() {
    room_->Offer();
    const PieceBox before = std::exchange(owned_, OwnedBox(session_.Catalogue, session_.Project.Stock));
    lstBox_->ShowOwned(owned_);
    if (!varied_ && lstBox_->Box() == before && before != owned_) lstBox_->Show(owned_);
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
    const QString apart = Shown(WhySystemsStayApart(session_.Catalogue, box));
    lblSystems_->setText(apart);
    lblSystems_->setVisible(!apart.isEmpty());
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
    cmdOwnBox_->setVisible(box.Total() > 0 && !isOwned && !varied_);
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
    lblSystems_ = Named(new QLabel, "lblSystems");
    lblSystems_->setWordWrap(true);
    lblSystems_->hide();
    column->addWidget(lblSystems_);
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
    if (varied_) {
        QPushButton* const cmdDesignPieces = NewButton("cmdDesignPieces", "Th&is Track's");
        cmdDesignPieces->setToolTip("Fill the box with exactly the pieces of the track that is varied");
        connect(cmdDesignPieces, &QPushButton::clicked, this, [this] { FillBox(BoxOfTrack(session_, *varied_)); });
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
    keepsItsPlace.setRetainSizeWhenHidden(!varied_);
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

void BoxFields::Remember(const BoxWish& wish) const {
    if (wish.Area) room_->RememberArea();
    session_.Habits.BoxPieces = wish.Box == owned_ ? "" : TextOf(session_.Catalogue, wish.Box);
}

/// Of the last search, or what is owned.
PieceBox BoxFields::LastBox() const {
    if (session_.Habits.BoxPieces.empty()) return owned_;
    try {
        return BoxOf(session_.Catalogue, session_.Habits.BoxPieces);
    } catch (const std::invalid_argument&) { // of a changed file
        return owned_;
    }
}

void BoxFields::FillBox(const PieceBox& box) {
    lstBox_->Show(box);
    txtFilterBox_->clear(); // or what was put in might not be seen
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

QLayout* BoxFields::NumberFields() {
    spnCount_ = Named(new QSpinBox, "spnCircuits");
    spnCount_->setRange(1, 100);
    spnCount_->setValue(10);
    spnCount_->setToolTip("How many circuits are shown, the best of all that are found");
    connect(spnCount_, &QSpinBox::valueChanged, this, countChanged_);
    chkShapes_ = Named(new QCheckBox("O&ne of each shape"), "chkShapes");
    chkShapes_->setToolTip("Show the best of those that look alike; it tells how many others there are");
    chkShapes_->setChecked(session_.Habits.BoxShapes != AllShapes);
    connect(chkShapes_, &QCheckBox::toggled, this, [this](bool isTicked) {
        session_.Habits.BoxShapes = isTicked ? "" : AllShapes;
        countChanged_();
    });
    auto* const lblCount = new QLabel("&Circuits:");
    lblCount->setBuddy(spnCount_);
    auto* const cmdMore = Named(new QToolButton, "cmdMoreNumbers");
    cmdMore->setText("More");
    cmdMore->setToolTip("What few need: the number that a search begins with, so that it can be repeated");
    cmdMore->setCheckable(true);
    auto* const numbers = new QHBoxLayout;
    numbers->addWidget(lblCount);
    numbers->addWidget(spnCount_);
    numbers->addStretch();
    numbers->addWidget(chkShapes_);
    numbers->addStretch();
    numbers->addWidget(cmdMore);
    auto* const column = new QVBoxLayout;
    column->addLayout(numbers);
    column->addLayout(SeedField(*cmdMore));
    return column;
}

/// Shown while the button is down.
QLayout* BoxFields::SeedField(QToolButton& more) {
    txtSeed_ = Named(new QLineEdit("1"), "txtSeed");
    txtSeed_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{1,18}"), txtSeed_));
    txtSeed_->setToolTip("A number to begin with: the same one always finds the same circuits, another one others");
    auto* const lblSeed = new QLabel("Seed:");
    lblSeed->setBuddy(txtSeed_);
    lblSeed->hide();
    txtSeed_->hide();
    connect(&more, &QToolButton::toggled, lblSeed, &QWidget::setVisible);
    connect(&more, &QToolButton::toggled, txtSeed_, &QWidget::setVisible);
    auto* const row = new QHBoxLayout;
    row->addWidget(lblSeed);
    row->addWidget(txtSeed_, 1);
    return row;
}

BoxWish BoxFields::Wish() const {
    BoxWish wish{.Box = lstBox_->Box()};
    room_->PutInto(wish);
    mustHaves_->PutInto(wish);
    wish.Varied = varied_;
    wish.Count = spnCount_->value();
    wish.Seed = txtSeed_->text().toULongLong();
    return wish;
}

} // namespace pistaro
