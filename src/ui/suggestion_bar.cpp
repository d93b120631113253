#include "ui/suggestion_bar.h"

#include "editor/view_commands.h"
#include "imaging/overlay.h"
#include "ui/named_controls.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace pistaro {

namespace {

constexpr int Margin = 6;
constexpr QSize IconSize(72, 54);
constexpr Colour FreeGhost = Rgb(0, 130, 60);
constexpr Colour FaultyGhost = Rgb(200, 60, 0);
constexpr Colour TakenOut = Rgb(150, 150, 150);
constexpr Colour Moved = Rgb(150, 190, 165);

constexpr std::array<std::pair<ReplacementWish, const char*>, 5> Wishes{
    {{ReplacementWish::Any, "any pieces"},
     {ReplacementWish::Shorter, "shorter"},
     {ReplacementWish::Longer, "longer"},
     {ReplacementWish::Cheaper, "cheaper"},
     {ReplacementWish::LanesSwapped, "lanes swapped"}}};

Colour ColourOf(const Suggestion& suggestion) { return suggestion.IsFree() ? FreeGhost : FaultyGhost; }

/// What stands before and after a box's number shows whole.
QWidget* RowOf(std::initializer_list<QWidget*> widgets) {
    auto* const strip = new QWidget;
    auto* const row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    for (QWidget* const widget : widgets) {
        widget->setMinimumWidth(widget->sizeHint().width());
        row->addWidget(widget);
    }
    row->addStretch();
    return strip;
}

} // namespace

SuggestionBar::SuggestionBar(Session& session, CircuitView& view)
    : Strip("fraSuggestions", session, view, "suggestion"), lblSuggestion_(Named(new QLabel, "lblSuggestion")),
      lstSuggestions_(Named(new QListWidget, "lstSuggestions")),
      chkOwnedOnly_(Named(new QCheckBox("Only &owned"), "chkOwnedOnly")),
      spnMostPieces_(Named(new QSpinBox, "spnMostPieces")), spnMostRemoved_(Named(new QSpinBox, "spnMostRemoved")),
      spnTolerance_(Named(new QDoubleSpinBox, "spnTolerance")), spnRun_(Named(new QSpinBox, "spnRun")),
      cboWish_(Named(new QComboBox, "cboWish")), cmdLay_(NewButton("cmdLaySuggestion", "La&y")) {
    lblSuggestion_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblSuggestion_->setFixedHeight(2 * lblSuggestion_->fontMetrics().lineSpacing());
    cmdLay_->setToolTip("Lay the selected one, as Enter does");
    lstSuggestions_->setAccessibleName("Suggestions");
    spnMostPieces_->setAccessibleName("Pieces at most");
    spnMostRemoved_->setAccessibleName("Pieces to take out at most");
    spnTolerance_->setAccessibleName("Tolerance");
    spnRun_->setAccessibleName("Elements to replace");
    lstSuggestions_->setFlow(QListView::LeftToRight);
    lstSuggestions_->setViewMode(QListView::ListMode);
    lstSuggestions_->setIconSize(IconSize);
    lstSuggestions_->setFixedHeight(IconSize.height() + 34);
    lstSuggestions_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstSuggestions_->installEventFilter(this);
    lstSuggestions_->viewport()->installEventFilter(this);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->addLayout(Head(*lblSuggestion_, *cmdLay_, *NewButton("cmdLeaveSuggestions", "Cancel")));
    column->addWidget(lstSuggestions_);
    column->addWidget(Replaced());
    column->addWidget(Choices());
    connect(lstSuggestions_, &QListWidget::currentRowChanged, this, [this] { ShowGhost(); });
    connect(lstSuggestions_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
}

/// What other pieces are laid in the place of, and what those for a run shall be.
QWidget* SuggestionBar::Replaced() {
    spnMostRemoved_->setRange(0, 4);
    spnMostRemoved_->setValue(ClosingOptions().MostRemoved);
    spnMostRemoved_->setPrefix("replace up to ");
    spnMostRemoved_->setSpecialValueText("replace if needed");
    spnMostRemoved_->setToolTip("How many neighbouring pieces may be taken out, anywhere in the track; at 0 up to two "
                                "where no closing is free of faults otherwise");
    spnRun_->setPrefix("in place of ");
    spnRun_->setToolTip("How many elements are replaced, from the first selected one on");
    for (const auto& [wish, caption] : Wishes)
        cboWish_->addItem(caption, static_cast<int>(wish));
    cboWish_->setToolTip("What the replacement should be like");
    cboWish_->setAccessibleName(cboWish_->toolTip());
    connect(spnMostRemoved_, &QSpinBox::valueChanged, this, [this] { Find(); });
    connect(spnRun_, &QSpinBox::valueChanged, this, [this] { Find(); });
    connect(cboWish_, &QComboBox::currentIndexChanged, this, [this] { Find(); });
    return RowOf({spnMostRemoved_, spnRun_, cboWish_});
}

QWidget* SuggestionBar::Choices() {
    spnMostPieces_->setRange(1, 8);
    spnMostPieces_->setValue(ClosingOptions().MostPieces);
    spnMostPieces_->setPrefix("at most ");
    spnMostPieces_->setSuffix(" pieces");
    spnMostPieces_->setToolTip("How many pieces may be laid");
    spnTolerance_->setRange(0, 20);
    spnTolerance_->setDecimals(1);
    spnTolerance_->setSingleStep(0.5);
    spnTolerance_->setValue(ClosingOptions().Tolerance * 10);
    spnTolerance_->setPrefix("within ");
    spnTolerance_->setSuffix(" mm");
    spnTolerance_->setToolTip("How far apart the ends may be; all joints share it");
    connect(chkOwnedOnly_, &QCheckBox::toggled, this, [this] { Find(); });
    connect(spnMostPieces_, &QSpinBox::valueChanged, this, [this] { Find(); });
    connect(spnTolerance_, &QDoubleSpinBox::valueChanged, this, [this] { Find(); });
    return RowOf({chkOwnedOnly_, spnMostPieces_, spnTolerance_});
}

void SuggestionBar::ShowClosings() {
    isReplacing_ = false;
    OpenAndFind();
}

void SuggestionBar::ShowReplacements() {
    isReplacing_ = true;
    const Project& project = session_.Project;
    const QSignalBlocker quiet(spnRun_);
    const Track& track = *EditedTrack(project.Design.Circuit, project.EditState);
    const ElementRun run = SelectedRun(session_);
    firstReplaced_ = run.First;
    spnRun_->setRange(1, track.ElementLastIndex() + 1 - run.First);
    spnRun_->setValue(run.Count);
    OpenAndFind();
}

void SuggestionBar::OpenAndFind() {
    spnMostRemoved_->setVisible(!isReplacing_);
    spnRun_->setVisible(isReplacing_);
    cboWish_->setVisible(isReplacing_);
    Open();
    Find();
    lstSuggestions_->setFocus();
}

ClosingOptions SuggestionBar::Options() const {
    ClosingOptions options;
    options.MostPieces = spnMostPieces_->value();
    options.MostRemoved = spnMostRemoved_->value();
    options.Tolerance = spnTolerance_->value() / 10;
    options.OwnedOnly = chkOwnedOnly_->isChecked();
    return options;
}

void SuggestionBar::Find() {
    session_.Do([&] {
        const auto wish = static_cast<ReplacementWish>(cboWish_->currentData().toInt());
        const Closings found = isReplacing_
                                   ? FindReplacements(session_, {firstReplaced_, spnRun_->value()}, wish, Options())
                                   : FindClosings(session_, Options());
        suggestions_ = found.Suggestions;
        lblSuggestion_->setText(Shown(found.WhyNone));
    });
    mendsAtNeed_ = Options().MostRemoved == 0 && std::ranges::any_of(suggestions_, &Suggestion::IsMend);
    const QSignalBlocker quiet(lstSuggestions_);
    lstSuggestions_->clear();
    for (const Suggestion& suggestion : suggestions_) {
        auto* const item =
            new QListWidgetItem(IconOf(suggestion), Shown(CaptionOf(session_, suggestion)), lstSuggestions_);
        item->setToolTip(Shown(TextOf(session_, suggestion)));
    }
    lstSuggestions_->setCurrentRow(0);
    cmdLay_->setEnabled(!suggestions_.empty());
    ShowGhost();
}

void SuggestionBar::ShowGhost() {
    const int row = lstSuggestions_->currentRow();
    if (row < 0) return ShowNothingAbove();
    const Suggestion& suggestion = suggestions_[static_cast<std::size_t>(row)];
    ShowAbove(GhostOf(suggestion));
    const QString why = mendsAtNeed_ ? "No addition fits. " : "";
    lblSuggestion_->setText(why + Shown(TextOf(session_, suggestion)));
    lblSuggestion_->setToolTip(lblSuggestion_->text());
    BringIntoSight(BoxOf(suggestion));
}

Overlay SuggestionBar::GhostOf(const Suggestion& suggestion) const {
    const GhostPlace place = PlaceOf(session_, suggestion);
    Overlay overlay;
    if (!place.Moved.empty()) overlay.emplace_back(OverlayPieces{place.Moved, place.Start, place.CodeBefore, Moved});
    for (const std::vector<WorldPoint>& ground : place.TakenOut)
        overlay.emplace_back(OverlayArea{.Polygon = ground, .InkColour = TakenOut, .Hatched = true});
    overlay.emplace_back(OverlayPieces{suggestion.Edit.Insert, place.Start, place.CodeBefore, ColourOf(suggestion)});
    return overlay;
}

GroundBox SuggestionBar::BoxOf(const Suggestion& suggestion) const {
    const GhostPlace place = PlaceOf(session_, suggestion);
    GroundBox box{place.Start.CursorX, place.Start.CursorX, place.Start.CursorY, place.Start.CursorY};
    Track track{suggestion.Edit.Insert, place.Start.CursorX, place.Start.CursorY, place.Start.CursorHeading};
    WalkTrack(session_.Catalogue, track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr) box = box.Joined(GroundOf(*placement).Box);
    });
    return box;
}

QIcon SuggestionBar::IconOf(const Suggestion& suggestion) const {
    const GhostPlace place = PlaceOf(session_, suggestion);
    const GroundBox box = BoxOf(suggestion);
    constexpr double spare = 1.1;
    const double aspect = static_cast<double>(IconSize.width()) / IconSize.height();
    ViewSettings view;
    view.MidX = static_cast<float>((box.Left + box.Right) / 2);
    view.MidY = static_cast<float>((box.Bottom + box.Top) / 2);
    view.Width = static_cast<float>(spare * std::max({(box.Right - box.Left) / aspect, box.Top - box.Bottom, 20.0}));
    const qreal ratio = devicePixelRatioF();
    QPixmap picture(IconSize * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(palette().color(QPalette::Base)); // that of the chosen one, too, is seen on its own ground
    QPainter painter(&picture);
    const OverlayPieces laid{suggestion.Edit.Insert, place.Start, place.CodeBefore, ColourOf(suggestion)};
    PaintOverlay(suggestion.IsMend ? GhostOf(suggestion) : Overlay{laid}, session_.Catalogue, view,
                 CanvasFrame{IconSize, ratio}, painter);
    painter.end();
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

void SuggestionBar::Accept() {
    const int row = lstSuggestions_->currentRow();
    if (row < 0) return;
    const Suggestion chosen = suggestions_[static_cast<std::size_t>(row)];
    hide();
    session_.Do([&] { LaySuggestion(session_, chosen); });
}

void SuggestionBar::Refresh(const Changes& changes) {
    if (isVisible() && (changes.Circuit || changes.Room || changes.Stock || changes.EditState)) hide();
}

/// The list's.
bool SuggestionBar::eventFilter(QObject*, QEvent* event) {
    const auto goBy = [&](int rows) {
        const int row = lstSuggestions_->currentRow() + rows;
        lstSuggestions_->setCurrentRow(std::clamp(row, 0, std::max(0, lstSuggestions_->count() - 1)));
        return true;
    };
    if (event->type() == QEvent::Wheel) return goBy(static_cast<QWheelEvent*>(event)->angleDelta().y() < 0 ? 1 : -1);
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) return goBy(key == Qt::Key_Up ? -1 : 1);
    return TakesKey(key);
}

} // namespace pistaro
