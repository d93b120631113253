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
        return found + "; there may be others.";
    case BoxStanding::Complete:
        break;
    }
    return count == 0 ? "These pieces make no circuit in this room." : found + "; there are no others.";
}

QString InsteadFor(const BoxWish& wish, bool varies) {
    if (wish.Kept) return "keep less of the track";
    return varies ? "try a larger room, or other pieces" : "try a larger room, or more curves";
}

/// What stands in the place of circuits while there are none.
QString HintFor(BoxStanding standing, bool varies, bool keeps) {
    if (standing == BoxStanding::Runs && keeps)
        return "Around a part that is kept the first circuit may take a minute: keep less of the track, or wait. "
               "Stop ends the search.";
    if (standing == BoxStanding::Runs) return "The first circuits come in a moment.";
    if (standing != BoxStanding::Idle) return {};
    return QString("1.  %1\n\n2.  Say how large the room is.\n\n3.  Press Search, and choose among the circuits.")
        .arg(varies ? "The box holds the pieces of your design; add others, if you like."
                    : "Fill the box: click a line and type how many you have, or add a set.");
}

} // namespace

frmBox::frmBox(Session& session, Purpose purpose, QWidget* parent)
    : QDialog(parent), session_(session), varies_(purpose == Purpose::Variations),
      begunWith_(session.Project.Design.Circuit), begunRun_(SelectedRun(session)),
      fields_(new BoxFields(
          session, purpose, [this] { ShowStanding(); }, [this] { ShowFound(); })),
      lstCircuits_(new FoundCircuits(session)), preview_(new CircuitPreview(session)),
      weights_(new ScoreWeightsBox([this] { ShowFound(); })),
      search_(
          session.Catalogue,
          [this](std::function<void()> call) {
              QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
          },
          [this] { Hear(); }, [this](const JobEnd& end) { session_.Do(end); }) {
    setObjectName(varies_ ? "frmVariations" : "frmBox");
    setWindowTitle(varies_ ? "Variations" : "Circuits from My Box");
    auto* const found = new QHBoxLayout;
    found->addLayout(Circuits(), 3);
    found->addLayout(Chosen(varies_ ? "Track ▸ Variations…" : "Circuit ▸ From My Box…"), 2);
    auto* const right = new QVBoxLayout;
    right->addLayout(found, 1);
    right->addWidget(weights_);
    auto* const columns = new QHBoxLayout;
    columns->addWidget(Fields());
    columns->addLayout(right, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(Buttons());
    constexpr QSize comfortable(1180, 700), titleBar(0, 40);
    resize(comfortable.boundedTo(screen()->availableSize() - titleBar));
    showing_.setSingleShot(true);
    showing_.setInterval(TogetherWithin);
    connect(&showing_, &QTimer::timeout, this, [this] { ShowFound(); });
    observation_ = session.Observe([this](const Changes& changes) {
        if (changes.Stock || changes.Room) fields_->Refresh();
        if (changes.Preferences) lstCircuits_->ForgetPictures(); // their colours
        if (changes.Stock || changes.Preferences) ShowFound();
        if (changes.Room) ShowStanding();
    });
    ShowStanding(); // only now, as it takes a dialog to have a default button
    ShowChosen();
}

bool frmBox::IsAboutTheDesign() const {
    const Circuit& circuit = session_.Project.Design.Circuit;
    return circuit == opened_ || (circuit == begunWith_ && SelectedRun(session_) == begunRun_);
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
    cmdStop_->setToolTip("Pause the search; it can be continued from there");
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
    lblFound_ = Named(new QLabel, "lblFound");
    barSearch_ = Named(new QProgressBar, "barSearch");
    barSearch_->setRange(0, 0); // nobody knows how much there is to find
    barSearch_->setTextVisible(false);
    barSearch_->setAccessibleName("Searching");
    constexpr int height = 6;
    barSearch_->setFixedHeight(height);
    QSizePolicy keepsItsPlace = barSearch_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    barSearch_->setSizePolicy(keepsItsPlace);
    lblFound_->setWordWrap(true);
    auto* const column = new QVBoxLayout;
    column->addWidget(lblFound_);
    column->addWidget(barSearch_);
    column->addWidget(lstCircuits_, 1);
    return column;
}

QLayout* frmBox::Chosen(const QString& entry) {
    cmdOpen_ = NewButton("cmdOpenCircuit", "O&pen This Circuit");
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { OpenChosen(); });
    auto* const lblComesBack = new QLabel(QString("%1 brings all the circuits back.").arg(entry));
    lblComesBack->setEnabled(false);
    lblComesBack->setWordWrap(true);
    auto* const column = new QVBoxLayout;
    column->addWidget(preview_, 1);
    column->addWidget(cmdOpen_);
    column->addWidget(lblComesBack);
    return column;
}

QLayout* frmBox::Buttons() {
    cmdKeep_ = NewButton("cmdKeepCircuits", "&Keep as Files…");
    QPushButton* const cmdClose = NewButton("cmdCloseBox", "Close");
    connect(cmdKeep_, &QPushButton::clicked, this, [this] { KeepChosen(); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    return ButtonRow({cmdKeep_, cmdClose});
}

void frmBox::Search() {
    session_.Do([&] {
        const BoxWish wish = fields_->Wish();
        const LayingTask task = TaskFor(session_, wish);
        searched_ = wish;
        room_ = RoomFor(session_, wish);
        kept_ = wish.Kept ? wish.Kept->Rows.size() : 0;
        lstCircuits_->Begin(room_, kept_);
        search_.Start(task);
    });
    ShowStanding();
    ShowChosen();
}

void frmBox::StopOrContinue() {
    if (search_.Standing() == BoxStanding::Runs) {
        search_.Pause();
    } else {
        search_.Continue();
        ShowStanding();
    }
}

void frmBox::Hear() {
    if (search_.Standing() != BoxStanding::Runs) return ShowFound();
    if (!showing_.isActive()) showing_.start();
}

void frmBox::ShowFound() {
    const std::vector<FoundCircuit>& found = search_.Found();
    const ScoreWeights weights = weights_->Weights();
    lstCircuits_->Show(found, BestOf(found, fields_->Count(), weights), weights);
    ShowStanding();
    ShowChosen();
}

/// Whether other circuits are wished for than those that are shown.
bool frmBox::IsForAnother(const BoxWish& wish) const {
    return searched_ && !(IsForTheSame(wish, *searched_) && RoomFor(session_, wish).Room == room_.Room);
}

void frmBox::ShowStanding() {
    const BoxStanding standing = search_.Standing();
    const BoxWish wish = fields_->Wish();
    const std::size_t count = search_.Found().size();
    const bool runs = standing == BoxStanding::Runs;
    const bool isBoxEmpty = wish.Box.Total() == 0;
    const bool isForAnother = IsForAnother(wish);
    if (count == 0 && !runs && (isForAnother || standing == BoxStanding::Idle)) {
        lblFound_->setText(IdleText(isBoxEmpty));
    } else if (isForAnother) {
        lblFound_->setText("Found for another box or room: press Search.");
    } else {
        const QString found = CountText(count, static_cast<std::size_t>(wish.Count));
        lblFound_->setText(StandingText(standing, count, found, InsteadFor(wish, varies_)));
    }
    lstCircuits_->ShowHint(HintFor(standing, varies_, searched_ && searched_->Kept));
    cmdSearch_->setEnabled(!isBoxEmpty);
    cmdSearch_->setToolTip(isBoxEmpty ? "The box is empty" : "Search for circuits from the beginning");
    cmdStop_->setText(runs || standing == BoxStanding::Idle ? "St&op" : "&Continue");
    cmdStop_->setEnabled(runs || (!isForAnother && standing != BoxStanding::Idle && standing != BoxStanding::Complete));
    const bool shallContinue = standing == BoxStanding::Ended && count == 0 && !isForAnother;
    (shallContinue ? cmdStop_ : cmdSearch_)->setDefault(true);
    cmdCancelSearch_->setEnabled(runs);
    barSearch_->setVisible(runs);
}

void frmBox::ShowChosen() {
    const std::vector<std::size_t> chosen = lstCircuits_->Chosen();
    const bool isOne = chosen.size() == 1;
    cmdOpen_->setEnabled(isOne);
    cmdOpen_->setToolTip(isOne ? "Open it in place of the design, as one step that Undo takes back"
                               : "Choose one circuit first");
    cmdKeep_->setEnabled(!chosen.empty());
    cmdKeep_->setToolTip(chosen.empty() ? "Choose circuits first: a click, and others with Ctrl or Shift"
                                        : "Write the chosen circuits into files");
    if (!isOne) {
        weights_->Show(std::nullopt);
        return preview_->ShowNone(chosen.empty() ? "The chosen circuit is shown here."
                                                 : QString("%1 circuits are chosen.").arg(chosen.size()));
    }
    const LaidCircuit& circuit = search_.Found()[chosen.front()].Circuit;
    weights_->Show(circuit.Parts);
    preview_->Show(lstCircuits_->DesignOf(circuit), kept_, FiguresOf(session_, searched_->Box, circuit));
}

/// The window goes, so that the design is seen; it comes back as it was.
void frmBox::OpenChosen() {
    const std::vector<std::size_t> chosen = lstCircuits_->Chosen();
    if (chosen.size() != 1) return;
    bool isOpen = false;
    session_.Do([&] {
        isOpen = OpenAsNew(session_, varies_ ? "Variation" : "Circuit from My Box", room_,
                           search_.Found()[chosen.front()].Circuit.Track, opened_);
    });
    if (isOpen) close();
}

void frmBox::KeepChosen() {
    std::vector<Track> tracks;
    for (const std::size_t place : lstCircuits_->Chosen())
        tracks.push_back(search_.Found()[place].Circuit.Track);
    session_.Do([&] { KeepAsFiles(session_, room_, tracks); });
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
