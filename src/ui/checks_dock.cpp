#include "ui/checks_dock.h"

#include "checks/check.h"
#include "editor/picking.h"
#include "editor/track_editing.h"
#include "editor/view_commands.h"
#include "layout/ground.h"
#include "platform/fault.h"
#include "ui/findings_overlay.h"
#include "ui/named_controls.h"

#include <QHeaderView>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

constexpr const char* Owner = "checks";

/// A round, triangular or square mark, so that it needs no colour to be told by.
QIcon IconOf(Severity severity) {
    constexpr int side = 16;
    constexpr int finest = 3; // pixels that one is wide on the finest screens
    QPixmap drawing(side * finest, side * finest);
    drawing.setDevicePixelRatio(finest);
    drawing.fill(Qt::transparent);
    QPainter painter(&drawing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    switch (severity) {
    case Severity::Error:
        painter.setBrush(QColor(220, 30, 40));
        painter.drawEllipse(1, 1, side - 2, side - 2);
        break;
    case Severity::Warning:
        painter.setBrush(QColor(230, 130, 0));
        painter.drawPolygon(QPolygonF{{side / 2.0, 1}, {side - 1.0, side - 2.0}, {1, side - 2.0}});
        break;
    case Severity::Advice:
        painter.setBrush(QColor(20, 110, 220));
        painter.drawRect(2, 2, side - 4, side - 4);
        break;
    }
    return QIcon(drawing);
}

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

} // namespace

ChecksDock::ChecksDock(Session& session, CircuitView& view)
    : QDockWidget("Checks"), session_(session), view_(view), list_(Named(new PanelList, "lstChecks")),
      summary_(Named(new QLabel, "lblChecks")) {
    setObjectName("fraChecks");
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(summary_);
    column->addWidget(list_);
    list_->setHeaderLabels({"Track", "Finding"});
    list_->setWordWrap(true);
    list_->setTextElideMode(Qt::ElideNone);
    list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setMinimumWidth(240);
    list_->setAccessibleName("Findings");
    setWidget(content);
    connect(list_, &QTreeWidget::currentItemChanged, this, [this] {
        Mark();
        if (const Finding* const finding = Chosen()) Show(*finding);
    });
    connect(list_, &QTreeWidget::itemClicked, this, [this] {
        if (const Finding* const finding = Chosen()) Show(*finding);
    });
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
    QString summary;
    try {
        findings_ = CheckDesign(session_.Catalogue, project.Design, project.Stock, project.Preferences.Units);
        summary = SummaryOf(findings_);
    } catch (const Fault& fault) { // a stock that no count can hold
        findings_.clear();
        summary = Shown(fault.what());
    }
    summary_->setText(summary);
    List();
    Mark();
}

void ChecksDock::List() {
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const Finding& finding : findings_) {
        auto* const item = new QTreeWidgetItem(list_, {QString::number(finding.Track + 1), Shown(finding.Text)});
        item->setIcon(0, IconOf(finding.Severity));
        item->setToolTip(0, Shown(NameOf(finding.Severity)));
        item->setToolTip(1, Shown(finding.Rule));
    }
}

const Finding* ChecksDock::Chosen() const {
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    return row < 0 || row >= static_cast<int>(findings_.size()) ? nullptr : &findings_[static_cast<std::size_t>(row)];
}

void ChecksDock::Mark() {
    if (!isVisible()) return;
    view_.SetOverlay(Owner, FindingsOverlay(session_.Catalogue, session_.Project.Design.Circuit, findings_, Chosen()));
}

void ChecksDock::Show(const Finding& finding) {
    session_.Do([&] {
        Project& project = session_.Project;
        const Track& track = project.Design.Circuit.Tracks[static_cast<std::size_t>(finding.Track)];
        const int first = finding.Pieces.front();
        const int last = finding.Pieces.back();
        if (last > track.ElementLastIndex()) return;
        if (project.EditState.CurrentTrack != finding.Track) ChooseTrack(project.EditState, finding.Track);
        SelectElement(project.Design.Circuit, project.EditState, first);
        const bool isRun = last > first && last - first + 1 == static_cast<int>(finding.Pieces.size());
        if (isRun) project.EditState.RunFrom = last;
        // The first piece comes last, so that it is seen even where not all of them can be.
        if (finding.Other) BringPieceIntoView(*finding.Other);
        for (auto element = finding.Pieces.rbegin(); element != finding.Pieces.rend(); ++element)
            BringPieceIntoView({finding.Track, *element});
    });
}

void ChecksDock::BringPieceIntoView(PieceAddress piece) {
    Design& design = session_.Project.Design;
    const auto placement = PlacementOf(session_.Catalogue, design.Circuit, piece);
    if (!placement) return;
    const GroundPoint middle = MiddleOf(GroundOf(*placement));
    BringIntoView(design.View, middle.X, middle.Y);
}

} // namespace pistaro
