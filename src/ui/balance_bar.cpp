#include "ui/balance_bar.h"

#include "commands/money_commands.h"
#include "commands/piece_texts.h"
#include "imaging/painter_surface.h"
#include "layout/outline.h"
#include "layout/placement.h"
#include "ui/named_controls.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <numeric>

namespace pistaro {

namespace {

constexpr int Margin = 6;
constexpr int Lines = 3; ///< no balance has more steps
constexpr Colour ChosenColour = Rgb(0, 130, 60);
constexpr Colour OtherColour = Rgb(110, 160, 0);

/// The changes are no alternatives: it takes all of them.
std::string TogetherText(std::size_t count) {
    if (count == 1) return "This one change makes them equally long:";
    return (count == 2 ? "Both changes" : "All " + std::to_string(count) + " changes") +
           std::string(" together make them equally long:");
}

QString Sample(const char* sign, Colour colour, const char* words) {
    return QString("<span style=\"color:%1\">%2</span> %3").arg(ToQColor(colour).name(), sign, words);
}

/// "at 0 and 5": where a proposal's changes are.
QString PlacesText(const std::vector<BalanceStep>& steps) {
    QStringList places;
    for (const BalanceStep& step : steps)
        places += QString::number(step.First);
    const QString last = places.takeLast();
    return "at " + (places.isEmpty() ? last : places.join(", ") + " and " + last);
}

/// What the colours in the drawing mean.
QString LegendText(std::size_t count) {
    const QString between = " &nbsp; ";
    QString text = "In the drawing: " + Sample("■", ChosenColour, "new") + between;
    if (count > 1)
        text = "In the drawing: " + Sample("■", ChosenColour, "new by the chosen line") + between +
               Sample("■", OtherColour, "new by another line") + between;
    return text + Sample("▨", ChosenColour, "taken out for it");
}

/// The places of a track's pieces once all steps are done.
class BalancedPlaces {
public:
    BalancedPlaces(const Catalogue& catalogue, const Track& track, const std::vector<BalanceStep>& steps)
        : track_(Balanced(track, steps)), exits_{track.Start()} {
        WalkTrack(catalogue, track_, [&](int, const PiecePlacement* placement, const BuildCursor&) {
            exits_.push_back(exits_.back());
            grounds_.emplace_back();
            if (placement == nullptr) return; // it lies nowhere
            exits_.back() = placement->Exit;
            grounds_.back() = GroundOf(*placement).Box;
        });
    }

    OverlayPieces GhostOf(const BalanceStep& step, Colour colour) const {
        const auto first = static_cast<std::size_t>(step.First);
        return {step.Codes, exits_[first], first == 0 ? std::string() : track_.ElementCodes[first - 1], colour};
    }

    GroundBox BoxOf(const BalanceStep& step) const {
        const auto first = grounds_.begin() + step.First;
        return std::accumulate(first, first + static_cast<std::ptrdiff_t>(step.Codes.size()), *first,
                               [](const GroundBox& box, const GroundBox& piece) { return box.Joined(piece); });
    }

private:
    const Track track_;
    std::vector<BuildCursor> exits_; ///< where each element begins, and where the last one ends
    std::vector<GroundBox> grounds_;
};

} // namespace

BalanceBar::BalanceBar(Session& session, CircuitView& view)
    : Strip("fraBalance", session, view, "balance"), lblBalance_(Named(new QLabel, "lblBalance")),
      cboBalance_(Named(new QComboBox, "cboBalance")), lstBalance_(Named(new QListWidget, "lstBalance")),
      lblToBuy_(Named(new QLabel, "lblBalanceToBuy")), lblLegend_(Named(new QLabel, "lblBalanceLegend")),
      cmdBalance_(NewButton("cmdBalance", "Appl&y")) {
    lstBalance_->setAccessibleName("Changes");
    lstBalance_->setFixedHeight(Lines * (lstBalance_->fontMetrics().height() + 4) + 2 * lstBalance_->frameWidth());
    lstBalance_->installEventFilter(this);
    connect(lstBalance_, &QListWidget::currentRowChanged, this, [this] { ShowPieces(); });
    cboBalance_->setAccessibleName("Proposals");
    cboBalance_->setToolTip("Proposals of as many changes, the best first");
    connect(cboBalance_, &QComboBox::currentIndexChanged, this, [this] { ShowProposal(); });
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    QHBoxLayout* const head = Head(*lblBalance_, *cmdBalance_, *NewButton("cmdLeaveBalance", "Cancel"));
    head->insertWidget(1, cboBalance_, 0, Qt::AlignTop);
    column->addLayout(head);
    column->addWidget(lstBalance_);
    lblToBuy_->setWordWrap(true);
    column->addWidget(lblToBuy_);
    lblLegend_->setWordWrap(true);
    column->addWidget(lblLegend_);
}

void BalanceBar::Show(const Balance& balance) {
    balance_ = balance;
    proposals_ = balance.Others;
    proposals_.insert(proposals_.begin(), balance.Steps);
    {
        const QSignalBlocker quiet(cboBalance_);
        cboBalance_->clear();
        for (std::size_t number = 1; number <= proposals_.size(); ++number)
            cboBalance_->addItem(
                QString("%1 of %2: %3").arg(number).arg(proposals_.size()).arg(PlacesText(proposals_[number - 1])));
        cboBalance_->setVisible(proposals_.size() > 1);
    }
    Open();
    ShowProposal();
    lstBalance_->setFocus();
}

void BalanceBar::ShowProposal() {
    if (cboBalance_->currentIndex() < 0) return;
    balance_.Steps = proposals_[static_cast<std::size_t>(cboBalance_->currentIndex())];
    const Units& units = session_.Project.Preferences.Units;
    const std::size_t count = balance_.Steps.size();
    const std::string toBuy = MoreToBuyText(session_, *Shows());
    lblBalance_->setText(Shown("Track " + std::to_string(session_.Project.EditState.CurrentTrack + 1) + ": " +
                               DifferenceText(balance_, units) + " now. " + TogetherText(count)));
    lblToBuy_->setText(Shown("To buy for it: " + toBuy));
    lblToBuy_->setVisible(!toBuy.empty());
    cmdBalance_->setText(count == 1 ? "Appl&y" : count == 2 ? "Appl&y Both" : "Appl&y All");
    cmdBalance_->setToolTip(count == 1 ? "Do this, as Enter does" : "Do all of these, as Enter does");
    lblLegend_->setText(LegendText(count));
    {
        const QSignalBlocker quiet(lstBalance_);
        lstBalance_->clear();
        int number = 0;
        for (const BalanceStep& step : balance_.Steps)
            lstBalance_->addItem(Shown(std::to_string(++number) + ". " + StepText(step, units)));
        lstBalance_->setCurrentRow(0);
    }
    ShowPieces();
    if (Turned) Turned(); // the lanes are drawn as they then are
}

/// Those of the chosen change stronger than the others', with what they take the place of hatched; and in sight.
void BalanceBar::ShowPieces() {
    const int chosen = lstBalance_->currentRow();
    if (chosen < 0) return;
    const Track& track = *EditedTrack(session_.Project.Design.Circuit, session_.Project.EditState);
    const BalancedPlaces places(session_.Catalogue, track, balance_.Steps);
    const BalanceStep& step = balance_.Steps[static_cast<std::size_t>(chosen)];
    Overlay overlay;
    for (const BalanceStep& each : balance_.Steps)
        overlay.emplace_back(places.GhostOf(each, &each == &step ? ChosenColour : OtherColour));
    constexpr double tolerance = 0.1; // cm, of rounded outlines
    const int end = step.First + static_cast<int>(step.Codes.size());
    WalkTrack(session_.Catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr || element < step.First || element >= end) return;
        overlay.emplace_back(OverlayArea{OutlinePolygon(*placement, tolerance), ChosenColour, true});
    });
    ShowAbove(std::move(overlay));
    BringIntoSight(places.BoxOf(step));
}

std::optional<Circuit> BalanceBar::Shows() const {
    if (isHidden()) return std::nullopt;
    Circuit circuit = session_.Project.Design.Circuit;
    if (Track* const track = EditedTrack(circuit, session_.Project.EditState))
        *track = Balanced(*track, balance_.Steps);
    return circuit;
}

void BalanceBar::Accept() {
    hide();
    session_.Do([&] { BalanceTrack(session_, balance_); });
}

void BalanceBar::Refresh(const Changes& changes) {
    if (isVisible() && (changes.Circuit || changes.Room || changes.EditState)) hide();
}

/// The list's.
bool BalanceBar::eventFilter(QObject*, QEvent* event) {
    return event->type() == QEvent::KeyPress && TakesKey(static_cast<QKeyEvent*>(event)->key());
}

} // namespace pistaro
