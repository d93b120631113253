#include "ui/must_have_fields.h"

#include "commands/closing_commands.h"
#include "ui/named_controls.h"

#include <QGridLayout>
#include <QSignalBlocker>

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
    std::optional<TrackPart> part;
    if (canKeep) part = PartOf(session_.Catalogue, *track, run.First, run.Count);
    const bool isFirst = chkKeepPart_->text().isEmpty();
    if (part == part_ && !isFirst) return; // what its user has ticked stays
    part_ = part;
    chkKeepPart_->setEnabled(canKeep);
    QString caption = "The selected pa&rt: ";
    caption += canKeep ? QString::number(run.First) : "none is selected";
    if (canKeep && run.Count > 1) caption += QString(" to %1").arg(run.First + run.Count - 1);
    chkKeepPart_->setText(caption);
    chkKeepPart_->setToolTip(canKeep ? "These elements stay as they are, where they are"
                                     : "Select elements in the drawing: a click, then Shift and a click");
    chkKeepPart_->setChecked(canKeep && run.Count > 1);
    if (!isFirst) Changed();
}

void MustHaveFields::BeginWith(const MustHaves& mustHave) {
    for (std::size_t i = 0; i < Texts.size(); ++i)
        isWanted_[i] = mustHave.*Texts[i].Is;
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
        const bool isHeld = HoldsAll(session_.Catalogue, box, one);
        const char* const lacking = isHeld ? "in no circuit of the box" : Texts[i].Lacking;
        const char* const leftOut = isHeld ? "in no circuit: left out" : "not in the box: left out";
        lacking_[i]->setText(isThere ? "" : isWanted_[i] ? leftOut : lacking);
        lacking_[i]->setToolTip(why);
    }
}

void MustHaveFields::PutInto(BoxWish& wish) const {
    for (std::size_t i = 0; i < Texts.size(); ++i)
        wish.MustHave.*Texts[i].Is = choices_[i]->isChecked();
    if (chkKeepPart_ != nullptr && chkKeepPart_->isChecked()) wish.Kept = part_;
}

} // namespace pistaro
