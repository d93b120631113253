#include "ui/frmBox.h"

#include "commands/closing_commands.h"
#include "editor/mouse_selection.h"
#include "editor/picking.h"
#include "editor/track_editing.h"
#include "text/count_text.h"
#include "ui/named_controls.h"

#include <QEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace pistaro {

namespace {

constexpr int TogetherWithin = 60; ///< milliseconds
constexpr int MeantToStop = 600;   ///< milliseconds in which a click comes too late to stop a search

} // namespace

frmBox::frmBox(Session& session, std::optional<int> varied, QWidget* parent)
    : QDialog(parent), session_(session), varied_(varied), begunWith_(session.Project.Design.Circuit),
      fields_(new BoxFields(
          session, varied, [this] { ShowStanding(); }, [this] { ShowFound(); })),
      lstCircuits_(new FoundCircuits(session)), preview_(new CircuitPreview(session)),
      picYours_(varied ? new DesignPicture(session, "picYours", "Your track") : nullptr),
      weights_(new ScoreWeightsBox(varied.has_value(), [this] { ShowFound(); })),
      banner_(new FoundBanner([this] { Search(); })),
      search_(
          session.Catalogue,
          [this](std::function<void()> call) {
              QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
          },
          [this] { Hear(); }, [this](const JobEnd& end) { session_.Do(end); }) {
    setObjectName(varied_ ? "frmVariations" : "frmBox");
    setWindowTitle(Heading());
    auto* const found = new QHBoxLayout;
    constexpr int twice = 2; // as wide as the one that is shown large
    found->addLayout(Circuits(), twice);
    found->addLayout(Chosen(varied_ ? "Track ▸ Variations…" : "Circuit ▸ From My Box…"), 1);
    auto* const right = new QVBoxLayout;
    right->addLayout(found, 1);
    right->addWidget(weights_);
    auto* const columns = new QHBoxLayout;
    columns->addWidget(Fields());
    columns->addLayout(right, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(Buttons());
    constexpr QSize comfortable(1680, 960);
    constexpr double ofScreen = 0.875;
    resize(comfortable.boundedTo(screen()->availableSize() * ofScreen));
    showing_.setSingleShot(true);
    showing_.setInterval(TogetherWithin);
    connect(&showing_, &QTimer::timeout, this, [this] { ShowFound(); });
    observation_ = session.Observe([this](const Changes& changes) {
        if (changes.Stock || changes.Room) fields_->Refresh();
        if (changes.Preferences) lstCircuits_->ForgetPictures(); // their colours
        if (changes.Stock || changes.Preferences) ShowFound();
        if (changes.Room) ShowStanding();
        if (changes.EditState && IsBegunTrack()) fields_->OfferPart();
        if (changes.EditState || changes.Circuit || changes.Preferences) ShowYours();
        if (changes.Circuit && varied_) ShowStanding(); // other tracks may lie elsewhere now
    });
    fields_->setFocus();
    ShowStanding(); // only now, as it takes a dialog to have a default button
    ShowChosen();
    ShowYours();
}

bool frmBox::IsAboutTheDesign() const { return IsBegunTrack() || (opened_ && IsVariedTrackOf(*opened_)); }

bool frmBox::IsBegunTrack() const { return IsVariedTrackOf(begunWith_) && VariedTrack(session_) == varied_; }

/// Whether the track that is varied is now as it is in the circuit.
bool frmBox::IsVariedTrackOf(const Circuit& circuit) const {
    if (!varied_) return false;
    const auto track = static_cast<std::size_t>(*varied_);
    return session_.Project.Design.Circuit.Tracks[track] == circuit.Tracks[track];
}

QString frmBox::Heading() const {
    if (!varied_) return "Circuits from My Box";
    const auto hasPieces = [](const Track& track) { return !track.ElementCodes.empty(); };
    const bool isOneOfSeveral = std::ranges::count_if(begunWith_.Tracks, hasPieces) > 1;
    return isOneOfSeveral ? QString("Variations of Track %1").arg(*varied_ + 1) : QString("Variations");
}

QWidget* frmBox::Fields() {
    auto* const fields = new QWidget;
    auto* const column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fields_, 1);
    column->addLayout(SearchButtons());
    constexpr int width = 330;
    fields->setFixedWidth(width);
    return fields;
}

QLayout* frmBox::SearchButtons() {
    cmdSearch_ = NewButton("cmdSearch", "&Search");
    cmdStop_ = NewButton("cmdStop", "St&op");
    cmdCancelSearch_ = NewButton("cmdCancelSearch", "Cancel");
    cmdCancelSearch_->setToolTip("End the search at once; the circuits found are kept");
    connect(cmdSearch_, &QPushButton::clicked, this, [this] { Search(); });
    connect(cmdStop_, &QPushButton::clicked, this, [this] { StopOrContinue(); });
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
    lstCircuits_->ChosenChanged = [this] { ShowChosen(); };
    lstCircuits_->Opened = [this] { OpenChosen(); };
    lstCircuits_->SizeChanged = [this] { showing_.start(); };
    lstCircuits_->MakeRoomFor(fields_->Count());
    barSearch_ = Named(new QProgressBar, "barSearch");
    barSearch_->setTextVisible(false);
    barSearch_->setAccessibleName("Searching");
    constexpr int height = 6;
    barSearch_->setFixedHeight(height);
    QSizePolicy keepsItsPlace = barSearch_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    barSearch_->setSizePolicy(keepsItsPlace);
    auto* const column = new QVBoxLayout;
    column->addWidget(banner_);
    column->addWidget(barSearch_);
    column->addWidget(lstCircuits_, 1);
    return column;
}

QLayout* frmBox::Chosen(const QString& entry) {
    cmdOpen_ = NewButton("cmdOpenCircuit", "O&pen This Circuit");
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { OpenChosen(); });
    auto* const lblComesBack =
        new QLabel(QString("Undo takes it back at once, and %1 brings all the circuits back.").arg(entry));
    lblComesBack->setWordWrap(true);
    auto* const column = new QVBoxLayout;
    column->addWidget(preview_, 1);
    if (picYours_ != nullptr) column->addLayout(Yours());
    column->addWidget(cmdOpen_);
    column->addWidget(lblComesBack);
    return column;
}

/// The track that is varied, in whose picture the part to be kept can be chosen.
QLayout* frmBox::Yours() {
    picYours_->Pressed = [this](WorldPoint place, bool andAllBetween) { ChooseFromYours(place, andAllBetween); };
    picYours_->setCursor(Qt::PointingHandCursor);
    constexpr int usual = 180, small = 120, lowScreen = 700;
    const int width = screen()->availableSize().height() < lowScreen ? small : usual;
    picYours_->setFixedSize(width, picYours_->heightForWidth(width));
    auto* const lblYours =
        new QLabel("Your track.\n\nTo keep a part of it: click its first piece here, then its last one "
                   "with Shift.");
    lblYours->setWordWrap(true);
    auto* const row = new QHBoxLayout;
    row->addWidget(picYours_);
    row->addWidget(lblYours, 1);
    return row;
}

QLayout* frmBox::Buttons() {
    cmdKeep_ = NewButton("cmdKeepCircuits", {});
    QPushButton* const cmdClose = NewButton("cmdCloseBox", "Close");
    connect(cmdKeep_, &QPushButton::clicked, this, [this] { KeepChosen(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    QHBoxLayout* const row = ButtonRow({cmdKeep_, cmdClose});
    row->insertWidget(1, new QLabel("Tick several to keep them at once."));
    return row;
}

void frmBox::Search() {
    session_.Do([&] {
        const BoxWish wish = fields_->Wish();
        const LayingTask task = TaskFor(session_, wish);
        searched_ = wish;
        around_ = SurroundingsFor(session_, wish);
        if (varied_) yours_ = session_.Project.Design.Circuit.Tracks[static_cast<std::size_t>(*varied_)];
        count_ = {};
        lstCircuits_->Begin(around_, [this](const Track& circuit) { return MarksOf(circuit); });
        search_.Start(task);
        if (!varied_) fields_->Remember(wish);
    });
    ShowStanding();
    ShowChosen();
}

void frmBox::StopOrContinue() {
    if (search_.Standing() == BoxStanding::Runs) {
        search_.Pause();
    } else if (search_.Standing() == BoxStanding::Paused || sinceEnd_.elapsed() > MeantToStop) {
        search_.Continue();
    }
    ShowStanding();
}

void frmBox::Hear() {
    if (search_.Standing() != BoxStanding::Runs) {
        sinceEnd_.start();
        return ShowFound();
    }
    if (!showing_.isActive()) showing_.start();
}

void frmBox::ShowFound() {
    const std::vector<FoundCircuit>& found = search_.Found();
    lstCircuits_->MakeRoomFor(fields_->Count());
    const bool eachShape = fields_->OneOfEachShape();
    const auto isClear = [&](std::size_t place) {
        return WallWarning(session_, around_.Design, found[place].Circuit).empty();
    };
    const std::vector<RankedCircuit> order =
        InWishedOrder(found, {weights_->Weights(), fields_->Count(), eachShape}, isClear);
    count_ = CountOf(found.size(), order, fields_->Count(), eachShape);
    lstCircuits_->Show(found, order);
    ShowStanding();
    ShowChosen();
}

/// Whether other circuits are wished for than those that are shown.
bool frmBox::IsForAnother(const BoxWish& wish) const {
    if (!searched_) return false;
    const Design around = SurroundingsFor(session_, wish).Design;
    return !IsForTheSame(wish, *searched_) || around.Room != around_.Design.Room ||
           around.Circuit != around_.Design.Circuit;
}

void frmBox::ShowStanding() {
    const BoxWish wish = fields_->Wish();
    const QString never = Shown(WhyNeverFulfilled(session_, wish));
    const QString whyNot = wish.Box.Total() == 0 ? "The box is empty." : never;
    const BoxStanding standing = search_.Standing();
    const bool runs = standing == BoxStanding::Runs;
    const bool isForAnother = IsForAnother(wish);
    const bool isOutdated = isForAnother && (!search_.Found().empty() || runs);
    const bool isIdle = standing == BoxStanding::Idle || (isForAnother && !runs);
    banner_->Show(isOutdated ? OutdatedText(whyNot) : StandingWords(wish, isIdle, !never.isEmpty()), isOutdated,
                  whyNot.isEmpty());
    lstCircuits_->SetOutdated(isOutdated);
    const BoxStanding ofThisWish = isForAnother && !runs ? BoxStanding::Idle : standing;
    const QString rare = Shown(WhyRare(session_.Catalogue, wish.Box, wish.MustHave));
    lstCircuits_->ShowHint(never.isEmpty() ? HintFor(ofThisWish, wish, rare, runs && !search_.Percent()) : never);
    ShowSearchButtons(standing, isForAnother, whyNot);
    ShowProgress();
    fields_->TellOthers(HasOtherTracks(SurroundingsFor(session_, wish)));
}

/// `never`: there can be no circuit.
QString frmBox::StandingWords(const BoxWish& wish, bool isIdle, bool never) const {
    const std::size_t count = search_.Found().size();
    const BoxStanding standing = never && count == 0 ? BoxStanding::Complete : search_.Standing();
    if (count == 0 && isIdle && !never) return IdleText(wish.Box.Total() == 0);
    if (count == 0 && !WhyNot(session_.Catalogue, wish.Box, wish.MustHave).empty())
        return "No circuit of these pieces has all that it must have.";
    FoundCount shown = count_.Circuits > 0 ? count_ : FoundCount{.Circuits = count, .Shown = count}; // it comes later
    shown.AreBesideOthers = HasOtherTracks(around_);
    return StandingText(standing, count, FoundText(shown), InsteadFor(wish, varied_.has_value()));
}

void frmBox::ShowSearchButtons(BoxStanding standing, bool isForAnother, const QString& whyNot) {
    const bool runs = standing == BoxStanding::Runs;
    cmdSearch_->setEnabled(whyNot.isEmpty() && (!runs || isForAnother)); // or what is found would go for the same
    cmdSearch_->setToolTip(whyNot.isEmpty() ? "Search for circuits from the beginning" : whyNot);
    cmdStop_->setText(search_.IsPausing()                     ? "Stopping…"
                      : runs || standing == BoxStanding::Idle ? "St&op"
                                                              : "&Continue");
    cmdStop_->setToolTip(runs ? "Pause the search; it can be continued from there"
                              : "Look on for other circuits; those that are found stay");
    cmdStop_->setEnabled(runs ? !search_.IsPausing()
                              : !isForAnother && standing != BoxStanding::Idle && standing != BoxStanding::Complete);
    const bool shallContinue = standing == BoxStanding::Ended && search_.Found().empty() && !isForAnother;
    (shallContinue ? cmdStop_ : cmdSearch_)->setDefault(true);
    cmdCancelSearch_->setEnabled(runs);
}

/// How much of the usual effort is spent; of a search that looks on beyond it nobody knows how long it takes.
void frmBox::ShowProgress() {
    constexpr int whole = 100; // percent
    const std::optional<int> percent = search_.Percent();
    barSearch_->setRange(0, percent ? whole : 0);
    barSearch_->setValue(percent.value_or(0));
    barSearch_->setVisible(search_.Standing() == BoxStanding::Runs);
}

void frmBox::ShowChosen() {
    const std::optional<std::size_t> shown = lstCircuits_->InView();
    const std::size_t kept = lstCircuits_->ToKeep().size();
    cmdOpen_->setEnabled(shown.has_value());
    cmdOpen_->setToolTip(shown ? "Open it in place of the design, as one step that Undo takes back"
                               : "Choose a circuit first");
    cmdKeep_->setEnabled(kept > 0);
    cmdKeep_->setText(kept > 1 ? QString("&Keep %1 as Files…").arg(kept) : "&Keep This One as a File…");
    cmdKeep_->setToolTip(kept > 0 ? "Write the circuits that are ticked into files, or else the chosen one"
                                  : "Tick circuits first, or choose one");
    if (!shown) {
        weights_->Show(std::nullopt);
        return preview_->ShowNone("The chosen circuit is shown here.");
    }
    const LaidCircuit& circuit = search_.Found()[*shown].Circuit;
    weights_->Show(circuit.Parts);
    preview_->Show(around_.With(circuit.Track), MarksOf(circuit.Track), FiguresOf(circuit));
}

/// What is not as in the track that is varied; what is kept is.
MarkedPieces frmBox::MarksOf(const Track& circuit) const {
    if (!varied_) return {};
    MarkedPieces marked{{}, ElementsUnlike(session_.Catalogue, circuit, yours_), *varied_};
    const int kept = searched_->Kept ? static_cast<int>(searched_->Kept->Rows.size()) : 0;
    for (int element = 0; element < kept; ++element)
        marked.Kept.push_back(element);
    std::erase_if(marked.New, [&](int element) { return element < kept; });
    const std::size_t most = circuit.ElementCodes.size() * 2 / 3; // above that hardly anything is alike
    if (marked.New.size() > most && !HasOtherTracks(around_)) marked.New.clear();
    return marked;
}

std::vector<CircuitFigure> frmBox::FiguresOf(const LaidCircuit& circuit) const {
    std::vector<CircuitFigure> figures = pistaro::FiguresOf(session_, searched_->Box, around_.Design, circuit);
    if (!varied_) return figures;
    const std::size_t unlike = ElementsUnlike(session_.Catalogue, circuit.Track, yours_).size();
    const bool isTinted = !MarksOf(circuit.Track).New.empty();
    figures.insert(figures.begin(), {"Unlike yours", unlike == 0 ? "the order alone"
                                                                 : CountText(static_cast<int>(unlike), "piece") +
                                                                       (isTinted ? ", tinted" : "")});
    return figures;
}

/// The track that is varied, of which a part to be kept can be chosen.
void frmBox::ShowYours() const {
    if (picYours_ == nullptr) return;
    Design design;
    design.Circuit = TrackAlone(session_.Project.Design.Circuit, *varied_);
    MarkedPieces marked{{}, {}, *varied_};
    if (IsBegunTrack()) {
        const int last = design.Circuit.Tracks[static_cast<std::size_t>(*varied_)].ElementLastIndex();
        const ElementRun run = session_.Project.EditState.SelectedRun(last);
        for (int element = run.First; element < run.First + run.Count; ++element)
            marked.Kept.push_back(element);
    }
    picYours_->Show(design, marked, {});
}

void frmBox::ChooseFromYours(WorldPoint place, bool andAllBetween) {
    if (!IsBegunTrack()) return;
    session_.Do([&] {
        const Circuit yours = TrackAlone(session_.Project.Design.Circuit, *varied_);
        EditState& edit = session_.Project.EditState;
        const EditState before = edit;
        SelectAt(session_.Catalogue, yours, edit, PickMap(session_.Catalogue, yours), place);
        if (andAllBetween) ExtendSelection(edit, before);
    });
}

/// The window goes, so that the design is seen; it comes back as it was.
void frmBox::OpenChosen() {
    const std::optional<std::size_t> shown = lstCircuits_->InView();
    if (!shown) return;
    bool isOpen = false;
    session_.Do([&] {
        isOpen = OpenAsNew(session_, varied_.has_value(), AroundNow(), search_.Found()[*shown].Circuit.Track, opened_);
    });
    if (isOpen) close();
}

/// What lies around a circuit that takes the varied track's place in the design as it is now.
Surroundings frmBox::AroundNow() const { return IsAboutTheDesign() ? WithPresentTracks(session_, around_) : around_; }

void frmBox::KeepChosen() {
    std::vector<Track> tracks;
    for (const std::size_t place : lstCircuits_->ToKeep())
        tracks.push_back(search_.Found()[place].Circuit.Track);
    session_.Do([&] { KeepAsFiles(session_, AroundNow(), tracks); });
}

void frmBox::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!search_.Found().empty()) lstCircuits_->setFocus();
}

void frmBox::hideEvent(QHideEvent* event) {
    search_.Pause();
    QDialog::hideEvent(event);
}

void frmBox::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || cmdKeep_ == nullptr) return;
    lstCircuits_->ForgetPictures();
    ShowFound();
}

} // namespace pistaro
