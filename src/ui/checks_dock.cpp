#include "ui/checks_dock.h"

#include "checks/check.h"
#include "checks/crossings.h"
#include "checks/rules.h"
#include "commands/money_commands.h"
#include "editor/picking.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "layout/ground.h"
#include "layout/placement.h"
#include "platform/fault.h"
#include "ui/findings_overlay.h"
#include "ui/named_controls.h"
#include "ui/wrapped_lines.h"

#include <QHeaderView>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <map>

namespace pistaro {

namespace {

constexpr const char* Owner = "checks";

/// A command that mends what a rule finds.
struct CommandFor {
    std::string_view Rule;
    std::string_view Command;
};

constexpr CommandFor Cures[] = {{"open-track", "close loop"},
                                {"lanes-differ", "balance"},
                                {"odd-change-overs", "balance"},
                                {"not-owned", "purchase"}};

QString SummaryOf(const std::vector<Finding>& findings) {
    if (findings.empty()) return "No problems found.";
    const auto count = [&](Severity severity) { return std::ranges::count(findings, severity, &Finding::Severity); };
    const auto text = [](auto number, const char* one, const char* several) {
        return QString::number(number) + " " + (number == 1 ? one : several);
    };
    return text(count(Severity::Error), "error", "errors") + ", " +
           text(count(Severity::Warning), "warning", "warnings") + ", " +
           text(count(Severity::Advice), "piece of advice", "pieces of advice");
}

const Rule& RuleOf(const Finding& finding) {
    return *std::ranges::find_if(Rules(), [&](const Rule& rule) { return rule.Id == finding.Rule; });
}

constexpr int HeadingRole = Qt::UserRole + 1;

/// Whether it stands for all findings of a rule.
bool IsHeading(const QTreeWidgetItem& line) { return line.data(0, HeadingRole).toBool(); }

/// Where a piece is missing the track is open, and its lanes are those of half a track: what is told of them stands
/// below the one thing to mend.
bool FollowsFrom(const Finding& one, const Finding& other) {
    return other.Rule == "open-track" && other.Severity == Severity::Error && one.Track == other.Track &&
           (one.Rule == "lanes-differ" || one.Rule == "odd-change-overs");
}

/// Its place among the findings; of a heading that of the first below it.
std::size_t FindingOf(const QTreeWidgetItem& line) { return line.data(0, Qt::UserRole).value<std::size_t>(); }

} // namespace

ChecksDock::ChecksDock(Session& session, CircuitView& view)
    : QDockWidget("Checks"), session_(session), view_(view), list_(Named(new PanelList, "lstChecks")),
      summary_(Named(new QLabel, "lblChecks")), cmdCure_(NewButton("cmdCure", "Mend")) {
    setObjectName("fraChecks");
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(4, 0, 4, 2); // its height is the lines'
    column->setSpacing(2);
    auto* const head = new QHBoxLayout;
    head->addWidget(summary_, 1);
    head->addWidget(cmdCure_);
    column->addLayout(head);
    column->addWidget(list_);
    summary_->setWordWrap(true);
    cmdCure_->setFocusPolicy(Qt::TabFocus);
    QSizePolicy keepsItsPlace = cmdCure_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    cmdCure_->setSizePolicy(keepsItsPlace);
    cmdCure_->hide();
    connect(cmdCure_, &QPushButton::clicked, this, [this] { Cure(); });
    setWidget(content);
    SetUpList();
}

void ChecksDock::SetUpList() {
    list_->setHeaderLabels({"Track", "Finding"});
    list_->setWordWrap(true);
    list_->setTextElideMode(Qt::ElideNone);
    list_->setItemDelegate(new WrappedLines(*list_));
    list_->setIconSize(QSize(MarkSide, MarkSide));
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setExpandsOnDoubleClick(false); // a click does
    list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setMinimumWidth(240);
    list_->setAccessibleName("Findings");
    connect(list_, &QTreeWidget::currentItemChanged, this, [this] {
        Mark();
        ShowChosen();
    });
    connect(list_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* line) {
        ShowChosen();
        line->setExpanded(true);
    });
    const auto ruleOf = [this](const QTreeWidgetItem& line) { return findings_[FindingOf(line)].Rule; };
    connect(list_, &QTreeWidget::itemExpanded, this,
            [this, ruleOf](QTreeWidgetItem* line) { unfolded_.insert(ruleOf(*line)); });
    connect(list_, &QTreeWidget::itemCollapsed, this,
            [this, ruleOf](QTreeWidgetItem* line) { unfolded_.erase(ruleOf(*line)); });
}

void ChecksDock::Refresh(const Changes& changes) {
    const bool matters = changes.Circuit || changes.Room || changes.Stock || changes.Preferences;
    if (matters && isVisible()) CheckLater();
}

void ChecksDock::showEvent(QShowEvent* event) {
    QDockWidget::showEvent(event);
    CheckLater();
}

void ChecksDock::hideEvent(QHideEvent* event) {
    QDockWidget::hideEvent(event);
    view_.ClearOverlay(Owner);
}

void ChecksDock::CheckLater() {
    if (waiting_) return;
    waiting_ = true;
    QTimer::singleShot(0, this, [this] {
        waiting_ = false;
        if (isVisible()) Check();
    });
}

void ChecksDock::Check() {
    const Project& project = session_.Project;
    const std::optional<Finding> chosen = Chosen() == nullptr ? std::nullopt : std::optional(*Chosen());
    const bool wasHeading = chosen && IsHeading(*list_->currentItem());
    QString summary;
    try {
        all_ = CheckDesign(session_.Catalogue, project.Design, project.Stock, project.Preferences.Units,
                           session_.MoneyMarks);
        findings_ = CrossingsTogether(project.Design.Circuit, all_, project.Preferences.Units);
        summary = SummaryOf(findings_);
    } catch (const Fault& fault) { // a stock that no count can hold
        all_.clear();
        findings_.clear();
        summary = Shown(fault.what());
    }
    summary_->setText(summary);
    List();
    if (chosen) Choose(*chosen, wasHeading);
    Mark();
    OfferCure();
}

/// Many findings of a rule stand below a heading, folded at first, so that they hide no others.
void ChecksDock::List() {
    constexpr std::ptrdiff_t mostUnfolded = 5;
    const QSignalBlocker quiet(list_);
    list_->clear();
    std::map<std::string_view, std::ptrdiff_t> counts;
    for (const Finding& finding : findings_)
        ++counts[finding.Rule];
    std::map<std::string_view, QTreeWidgetItem*> headings;
    for (std::size_t at = 0; at < findings_.size(); ++at) {
        const std::string_view rule = findings_[at].Rule;
        if (counts[rule] <= mostUnfolded) {
            list_->addTopLevelItem(NewLine(at));
            continue;
        }
        QTreeWidgetItem*& heading = headings[rule];
        if (heading == nullptr) list_->addTopLevelItem(heading = NewHeading(at, counts[rule]));
        heading->addChild(NewLine(at));
    }
    ListConsequences();
    bool areAnyBelow = false;
    for (int at = 0; at < list_->topLevelItemCount(); ++at) {
        QTreeWidgetItem& line = *list_->topLevelItem(at);
        areAnyBelow = areAnyBelow || line.childCount() > 0;
        line.setExpanded(unfolded_.contains(findings_[FindingOf(line)].Rule));
    }
    list_->setRootIsDecorated(areAnyBelow);
    list_->viewport()->update(); // all of it: of itself the toolkit may paint no more than the line that was chosen
}

/// Puts what follows from an open track below it.
void ChecksDock::ListConsequences() {
    for (int at = 0; at < list_->topLevelItemCount(); ++at) {
        QTreeWidgetItem& cause = *list_->topLevelItem(at);
        for (int next = list_->topLevelItemCount() - 1; next > at; --next) {
            if (FollowsFrom(findings_[FindingOf(*list_->topLevelItem(next))], findings_[FindingOf(cause)]))
                cause.insertChild(0, list_->takeTopLevelItem(next));
        }
        if (cause.childCount() == 0 || IsHeading(cause)) continue;
        const int count = cause.childCount();
        cause.setText(1, cause.text(1) + " " + QString::number(count) +
                             (count == 1 ? " more finding may come from this." : " more findings may come from this."));
    }
}

QTreeWidgetItem* ChecksDock::NewLine(std::size_t at) const {
    const Finding& finding = findings_[at];
    auto* const line = new QTreeWidgetItem(QStringList{QString::number(finding.Track + 1), Shown(finding.Text)});
    line->setData(0, Qt::UserRole, QVariant::fromValue(at));
    line->setIcon(0, IconOf(finding.Severity));
    line->setToolTip(0, Shown(NameOf(finding.Severity)));
    line->setToolTip(1, "<p>" + Shown(RuleOf(finding).Why).toHtmlEscaped() + "</p>"); // which may take several lines
    return line;
}

QTreeWidgetItem* ChecksDock::NewHeading(std::size_t first, std::ptrdiff_t count) const {
    QTreeWidgetItem* const heading = NewLine(first);
    heading->setData(0, HeadingRole, true);
    heading->setText(0, TracksOf(findings_[first].Rule));
    heading->setText(1, Shown(RuleOf(findings_[first]).Text) + " (" + QString::number(count) + ")");
    QFont bold = list_->font();
    bold.setBold(true);
    heading->setFont(1, bold);
    return heading;
}

/// "1, 3": on which tracks a rule has found something.
QString ChecksDock::TracksOf(std::string_view rule) const {
    std::set<int> tracks;
    for (const Finding& finding : findings_) {
        if (finding.Rule == rule) tracks.insert(finding.Track + 1);
    }
    QStringList texts;
    for (const int track : tracks)
        texts += QString::number(track);
    return texts.join(", ");
}

/// The line of that finding, if it is found still, or the heading of its rule.
void ChecksDock::Choose(const Finding& finding, bool heading) {
    const QSignalBlocker quiet(list_);
    for (QTreeWidgetItemIterator line(list_); *line != nullptr; ++line) {
        const bool isHeading = IsHeading(**line);
        const Finding& of = findings_[FindingOf(**line)];
        const bool isSeen = (*line)->parent() == nullptr || (*line)->parent()->isExpanded();
        if (isHeading != heading || !isSeen || !(heading ? of.Rule == finding.Rule : of == finding)) continue;
        return list_->setCurrentItem(*line);
    }
}

const Finding* ChecksDock::Chosen() const {
    const QTreeWidgetItem* const line = list_->currentItem();
    return line == nullptr ? nullptr : &findings_[FindingOf(*line)];
}

/// A heading stands for many findings, of which none is shown more than the others.
void ChecksDock::ShowChosen() {
    const Finding* const finding = Chosen();
    if (finding != nullptr && !IsHeading(*list_->currentItem())) Show(*finding);
    OfferCure();
}

/// Null where none is known.
const Command* ChecksDock::CureOfChosen() const {
    const Finding* const finding = Chosen();
    const auto cure =
        std::ranges::find_if(Cures, [&](const auto& one) { return finding != nullptr && one.Rule == finding->Rule; });
    return cure == std::end(Cures) ? nullptr : session_.Commands.Find(cure->Command);
}

/// What a heading stands for is not mended at once.
std::optional<Mend> ChecksDock::MendOfChosen() const {
    const Finding* const finding = Chosen();
    if (finding == nullptr || IsHeading(*list_->currentItem())) return std::nullopt;
    return MendOf(session_.Catalogue, session_.Project.Design, session_.Project.Stock, *finding);
}

void ChecksDock::Cure() {
    if (const Command* const cure = CureOfChosen()) {
        session_.TryRun(*cure);
        return;
    }
    if (const std::optional<Mend> mend = MendOfChosen()) session_.Do([&] { MendCircuit(session_, *mend); });
}

void ChecksDock::OfferCure() {
    const Command* const cure = CureOfChosen();
    const std::optional<Mend> mend = cure == nullptr ? MendOfChosen() : std::nullopt;
    cmdCure_->setVisible(cure != nullptr || mend);
    if (mend) {
        cmdCure_->setText(Shown(mend->Caption));
        cmdCure_->setEnabled(true);
        cmdCure_->setToolTip(Shown(mend->Text));
    }
    if (cure == nullptr) return;
    const std::string whyNot = cure->WhyNot(session_);
    cmdCure_->setText(Shown(cure->Caption));
    cmdCure_->setEnabled(whyNot.empty());
    cmdCure_->setToolTip(Shown(whyNot.empty() ? cure->Tip : whyNot));
}

void ChecksDock::Mark() {
    if (!isVisible()) return;
    const Finding* const current = Chosen();
    const bool isHeading = current != nullptr && IsHeading(*list_->currentItem()); // it stands for all below it
    std::vector<const Finding*> chosen;
    for (const Finding& finding : findings_) {
        if (&finding == current || (isHeading && finding.Rule == current->Rule)) chosen.push_back(&finding);
    }
    view_.SetOverlay(Owner, FindingsOverlay(session_.Catalogue, session_.Project.Design.Circuit, all_, chosen));
}

void ChecksDock::Show(const Finding& finding) {
    session_.Do([&] {
        Project& project = session_.Project;
        const Track& track = project.Design.Circuit.Tracks[static_cast<std::size_t>(finding.Track)];
        if (finding.Pieces.back() > track.ElementLastIndex()) return;
        if (project.EditState.CurrentTrack != finding.Track) ChooseTrack(project.EditState, finding.Track);
        const std::vector<int> run = RunsOf(finding.Pieces).front(); // no more can be selected
        SelectElement(project.Design.Circuit, project.EditState, run.front());
        if (run.size() > 1) project.EditState.RunFrom = run.back();
        if (finding.Rule == "open-track") return BringEndsIntoView(finding.Track);
        if (finding.Rule == "lanes-differ") return ShowCurves(finding);
        // The first piece comes last, so that it is seen even where not all of them can be.
        for (const PieceAddress other : finding.Others)
            BringPieceIntoView(other);
        for (auto element = finding.Pieces.rbegin(); element != finding.Pieces.rend(); ++element)
            BringPieceIntoView({finding.Track, *element});
    });
}

/// All that make one lane longer than the other, the first of them selected.
void ChecksDock::ShowCurves(const Finding& finding) {
    Project& project = session_.Project;
    const std::vector<PieceAddress> curves = PiecesOf(session_.Catalogue, project.Design.Circuit, finding);
    if (curves.empty()) return;
    SelectElement(project.Design.Circuit, project.EditState, curves.front().Element);
    std::optional<GroundBox> box;
    for (const PieceAddress curve : curves) {
        const auto placement = PlacementOf(session_.Catalogue, project.Design.Circuit, curve);
        if (!placement) continue;
        const GroundBox ground = GroundOf(*placement).Box;
        box = box ? box->Joined(ground) : ground;
    }
    if (box) project.Design.View = view_.ViewWith(*box, project.Design.View);
}

void ChecksDock::BringEndsIntoView(int track) {
    Design& design = session_.Project.Design;
    const Track& open = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    const auto boxAt = [](const BuildCursor& cursor) {
        return GroundBox{cursor.CursorX, cursor.CursorX, cursor.CursorY, cursor.CursorY};
    };
    const BuildCursor end = WalkTrack(session_.Catalogue, open, [](int, const PiecePlacement*, const BuildCursor&) {});
    GroundBox box = boxAt(open.Start()).Joined(boxAt(end));
    for (const int element : {0, open.ElementLastIndex()}) {
        if (const auto placement = PlacementOf(session_.Catalogue, design.Circuit, {track, element}))
            box = box.Joined(GroundOf(*placement).Box);
    }
    design.View = view_.ViewWith(box, design.View);
}

void ChecksDock::BringPieceIntoView(PieceAddress piece) {
    Design& design = session_.Project.Design;
    const auto placement = PlacementOf(session_.Catalogue, design.Circuit, piece);
    if (!placement) return;
    const GroundPoint middle = MiddleOf(GroundOf(*placement));
    BringIntoView(design.View, middle.X, middle.Y);
}

} // namespace pistaro
