#include "ui/must_have_fields.h"

#include "commands/closing_commands.h"
#include "ui/named_controls.h"

#include <QGridLayout>
#include <QSignalBlocker>

#include <utility>

namespace pistaro {

namespace {

struct MustHaveText {
    bool MustHaves::*Is;
    const char* Name;
    const char* Caption;
    const char* Lacking;
};

constexpr std::array<MustHaveText, 4> Texts{{
    {&MustHaves::LapCounter, "chkLapCounter", "&Lap counter", "none in the box"},
    {&MustHaves::BankedCurve, "chkBankedCurve", "&Banked curve", "none in the box"},
    {&MustHaves::ChangeOvers, "chkChangeOvers", "Change-o&ver pair", "no pair in the box"},
    {&MustHaves::Chicane, "chkChicane", "Complete c&hicane", "not both ends in the box"},
}};

} // namespace

MustHaveFields::MustHaveFields(Session& session, bool varied) : QGroupBox("Must have"), session_(session) {
    auto* const grid = new QGridLayout(this);
    grid->setVerticalSpacing(2);
    const QMargins margins = grid->contentsMargins();
    grid->setContentsMargins(margins.left(), margins.top() / 2, margins.right(), margins.bottom() / 2);
    for (std::size_t i = 0; i < Texts.size(); ++i) {
        const int row = static_cast<int>(i);
        choices_[i] = Named(new QCheckBox(Texts[i].Caption), Texts[i].Name);
        lacking_[i] = Named(new QLabel, "lblLacking", row);
        lacking_[i]->setEnabled(false);
        grid->addWidget(choices_[i], row, 0);
        grid->addWidget(lacking_[i], row, 1, Qt::AlignRight);
        connect(choices_[i], &QCheckBox::toggled, this, [this, i](bool isTicked) {
            isWanted_[i] = isTicked;
            Changed();
        });
    }
    if (varied) grid->addWidget(PartField(), static_cast<int>(Texts.size()), 0, 1, 2);
}

QCheckBox* MustHaveFields::PartField() {
    chkKeepPart_ = Named(new QCheckBox, "chkKeepPart");
    OfferPart();
    connect(chkKeepPart_, &QCheckBox::toggled, this, [this] { Changed(); });
    return chkKeepPart_;
}

void MustHaveFields::OfferPart() {
    const EditState& edit = session_.Project.EditState;
    const ElementRun run = edit.ShowsAllTracks() ? ElementRun() : SelectedRun(session_);
    const Track* const track = EditedTrack(session_.Project.Design.Circuit, edit);
    const bool canKeep = run.Count > 0 && run.Count <= track->ElementLastIndex();
    const auto before = std::exchange(part_, std::nullopt);
    if (canKeep) part_ = PartOf(session_.Catalogue, *track, run.First, run.Count);
    chkKeepPart_->setEnabled(canKeep);
    QString part = "The selected pa&rt";
    if (!canKeep) part += ": none is selected";
    if (canKeep && run.Count > 1) part += QString(": %1 to %2").arg(run.First).arg(run.First + run.Count - 1);
    chkKeepPart_->setText(part);
    chkKeepPart_->setToolTip(canKeep ? "These elements stay as they are, where they are"
                                     : "Select elements in the drawing: a click, then Shift and a click");
    chkKeepPart_->setChecked(canKeep && run.Count > 1);
    if (before != part_) Changed();
}

void MustHaveFields::Offer(const PieceBox& box) {
    for (std::size_t i = 0; i < Texts.size(); ++i) {
        MustHaves one;
        one.*Texts[i].Is = true;
        const QString why = Shown(WhyNot(session_.Catalogue, box, one));
        const bool isThere = why.isEmpty();
        const QSignalBlocker notByTheUser(choices_[i]);
        choices_[i]->setEnabled(isThere);
        choices_[i]->setChecked(isThere && isWanted_[i]);
        choices_[i]->setToolTip(why);
        choices_[i]->setAccessibleDescription(why);
        lacking_[i]->setText(isThere ? "" : isWanted_[i] ? "not in the box: left out" : Texts[i].Lacking);
        lacking_[i]->setToolTip(why);
    }
}

void MustHaveFields::PutInto(BoxWish& wish) const {
    for (std::size_t i = 0; i < Texts.size(); ++i)
        wish.MustHave.*Texts[i].Is = choices_[i]->isChecked();
    if (chkKeepPart_ != nullptr && chkKeepPart_->isChecked()) wish.Kept = part_;
}

} // namespace pistaro
