#include "ui/frmBox.h"

#include "commands/closing_commands.h"
#include "ui/named_controls.h"

#include <QEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace pistaro {

namespace {

constexpr int TogetherWithin = 60; ///< milliseconds

/// "The best 10 of 115 circuits found".
QString CountText(std::size_t count, std::size_t shown) {
    const QString found = QString::number(count) + (count == 1 ? " circuit found" : " circuits found");
    return count > shown ? QString("The best %1 of %2").arg(shown).arg(found) : found;
}

QString IdleText(bool isBoxEmpty) {
    return isBoxEmpty ? "Put pieces into the box: type their counts, or add a set."
                      : "Press Search to see what these pieces make in this room.";
}

/// What was found, how the search stands, and what can be done next; `instead`, what gives more room to find some.
QString StandingText(BoxStanding standing, std::size_t count, const QString& found, const QString& instead) {
    switch (standing) {
    case BoxStanding::Idle:
        return found + ".";
    case BoxStanding::Runs:
        return found + ", still searching …";
    case BoxStanding::Paused:
        return found + " so far.";
    case BoxStanding::Ended:
        if (count == 0) return "Nothing found in the time so far: Continue looks on, or " + instead + ".";
        return found + ". Continue looks for others.";
    case BoxStanding::Complete:
        break;
    }
    return count == 0 ? "These pieces make no circuit in this room." : found + "; there are no others.";
}

QString InsteadFor(const BoxWish& wish, bool varies) {
    if (wish.Kept) return "keep less of the track";
    return varies ? "try a larger room, or other pieces" : "try a larger room, or more curves";
}

/// What makes it more likely that there is one.
QString EasierFor(const Session& session, const BoxWish& wish) {
    const QString rare = Shown(WhyRare(session.Catalogue, wish.Box, wish.MustHave));
    if (!rare.isEmpty()) return rare;
    const QString without =
        wish.MustHave == MustHaves() ? QString() : "Without what they must have there may be some. ";
    return without + "More curves, straights of another length, or a larger room make it easier.";
}

/// What stands in the place of circuits while there are none; `never`, why there can be none.
QString HintFor(BoxStanding standing, const QString& never, const QString& easier, bool varies, bool keeps) {
    if (!never.isEmpty()) return never + "\n\nAdd pieces to the box, or choose a larger room.";
    switch (standing) {
    case BoxStanding::Idle:
        break;
    case BoxStanding::Runs:
        return keeps ? "Around a part that is kept the first circuit may take a minute: keep less of the track, or "
                       "wait. Stop ends the search."
                     : "The first circuits come in a moment.";
    case BoxStanding::Complete:
        return "Every way to lay these pieces was tried, and none closes inside the room.\n\n" + easier;
    case BoxStanding::Paused:
    case BoxStanding::Ended:
        return "No circuit so far.\n\n" + easier;
    }
    return QString("1.  %1\n\n2.  Say how large the room is.\n\n3.  Press Search, and choose among the circuits.")
        .arg(varies ? "The box holds the pieces of your track; add others, if you like. To keep a part of it, click "
                      "that part's first piece in the drawing, then its last one with Shift."
                    : "Fill the box: All I Own, a set that you have, or a click on a line and its count.");
}

} // namespace

frmBox::frmBox(Session& session, std::optional<int> varied, QWidget* parent)
    : QDialog(parent), session_(session), varied_(varied), begunWith_(session.Project.Design.Circuit),
      fields_(new BoxFields(
          session, varied, [this] { ShowStanding(); }, [this] { ShowFound(); })),
      lstCircuits_(new FoundCircuits(session)), preview_(new CircuitPreview(session)),
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
    });
    fields_->setFocus();
    ShowStanding(); // only now, as it takes a dialog to have a default button
    ShowChosen();
}

bool frmBox::IsAboutTheDesign() const {
    const Circuit& circuit = session_.Project.Design.Circuit;
    return circuit == opened_ || IsBegunTrack();
}

bool frmBox::IsBegunTrack() const {
    return session_.Project.Design.Circuit == begunWith_ && VariedTrack(session_) == varied_;
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
    column->addWidget(cmdOpen_);
    column->addWidget(lblComesBack);
    return column;
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
        kept_ = {wish.Kept ? wish.Kept->Rows.size() : 0, around_.Track};
        lstCircuits_->Begin(around_, kept_);
        search_.Start(task);
        if (wish.Area && !varied_) fields_->RememberArea();
    });
    ShowStanding();
    ShowChosen();
}

void frmBox::StopOrContinue() {
    if (search_.Standing() == BoxStanding::Runs) {
        search_.Pause();
    } else {
        search_.Continue();
    }
    ShowStanding();
}

void frmBox::Hear() {
    if (search_.Standing() != BoxStanding::Runs) return ShowFound();
    if (!showing_.isActive()) showing_.start();
}

void frmBox::ShowFound() {
    const std::vector<FoundCircuit>& found = search_.Found();
    lstCircuits_->MakeRoomFor(fields_->Count());
    const ScoreWeights weights = weights_->Weights();
    const std::vector<std::size_t> best = BestOf(found, fields_->Count(), weights);
    // What is like the design is like each other, too.
    lstCircuits_->Show(found, weights.Likeness > 0 ? InOrder(best) : Ranked(found, best));
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
    const std::size_t count = search_.Found().size();
    const bool isInVain = count == 0 && !never.isEmpty() && !wish.Kept && search_.Standing() == BoxStanding::Ended;
    const BoxStanding standing = isInVain ? BoxStanding::Complete : search_.Standing();
    const bool runs = standing == BoxStanding::Runs;
    const bool isBoxEmpty = wish.Box.Total() == 0;
    const bool isForAnother = IsForAnother(wish);
    const bool isOutdated = isForAnother && (count > 0 || runs);
    banner_->Show(StandingWords(wish, standing, isOutdated), isOutdated, !isBoxEmpty);
    lstCircuits_->SetOutdated(isOutdated);
    const BoxStanding ofThisWish = isForAnother && !runs ? BoxStanding::Idle : standing;
    lstCircuits_->ShowHint(
        HintFor(ofThisWish, never, EasierFor(session_, wish), varied_.has_value(), wish.Kept.has_value()));
    ShowSearchButtons(standing, isForAnother, isBoxEmpty);
    ShowProgress();
}

QString frmBox::StandingWords(const BoxWish& wish, BoxStanding standing, bool isOutdated) const {
    const bool isBoxEmpty = wish.Box.Total() == 0;
    const std::size_t count = search_.Found().size();
    if (isOutdated && isBoxEmpty) return "The box is empty now; this is of the box before. Fill it to search again.";
    if (isOutdated) return "This is of another box or room than stands at the left.";
    const bool isIdle = standing == BoxStanding::Idle || (IsForAnother(wish) && standing != BoxStanding::Runs);
    if (count == 0 && isIdle) return IdleText(isBoxEmpty);
    const QString found = CountText(count, static_cast<std::size_t>(wish.Count));
    return StandingText(standing, count, found, InsteadFor(wish, varied_.has_value()));
}

void frmBox::ShowSearchButtons(BoxStanding standing, bool isForAnother, bool isBoxEmpty) {
    const bool runs = standing == BoxStanding::Runs;
    cmdSearch_->setEnabled(!isBoxEmpty);
    cmdSearch_->setToolTip(isBoxEmpty ? "The box is empty" : "Search for circuits from the beginning");
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
    preview_->Show(around_.With(circuit.Track), kept_, FiguresOf(session_, searched_->Box, around_.Design, circuit));
}

/// The window goes, so that the design is seen; it comes back as it was.
void frmBox::OpenChosen() {
    const std::optional<std::size_t> shown = lstCircuits_->InView();
    if (!shown) return;
    bool isOpen = false;
    session_.Do([&] {
        isOpen = OpenAsNew(session_, varied_.has_value(), around_, search_.Found()[*shown].Circuit.Track, opened_);
    });
    if (isOpen) close();
}

void frmBox::KeepChosen() {
    std::vector<Track> tracks;
    for (const std::size_t place : lstCircuits_->ToKeep())
        tracks.push_back(search_.Found()[place].Circuit.Track);
    session_.Do([&] { KeepAsFiles(session_, around_, tracks); });
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
