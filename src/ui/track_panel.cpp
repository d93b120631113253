#include "ui/track_panel.h"

#include "editor/track_editing.h"
#include "ui/line_icon.h"
#include "ui/named_controls.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int LeastWidth = 190;
constexpr int LeastArrowSide = 34;
constexpr int ArrowMargin = 8;

/// A label's width for the longest name of a piece, so that the column's width does not follow the selection.
int WidestName(QLabel& label, const Catalogue& pieces) {
    int widest = 0;
    for (const CatalogueEntry& piece : pieces) {
        label.setText(Shown(piece.LongName));
        widest = std::max(widest, label.sizeHint().width());
    }
    return widest;
}

QString ListLine(int index, const std::string& code) { return QString::number(index) + "  " + Shown(code); }

} // namespace

TrackPanel::TrackPanel(Session& session, CommandControls& controls)
    : session_(session), controls_(controls), lstTrack_(new QListWidget), lblselected_(new QLabel),
      lblElType_(new QLabel) {
    setMinimumWidth(LeastWidth);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(TrackSelector());
    column->addWidget(ArrowPad());
    column->addWidget(Elements(), 1);
}

QWidget* TrackPanel::TrackSelector() {
    auto* const box = new QGroupBox("Track");
    auto* const row = new QHBoxLayout(box);
    for (const char* const id : {"track 1", "track 2", "track 3", "track all"}) {
        auto* const button = new QRadioButton;
        controls_.Bind(*button, id);
        row->addWidget(button);
    }
    return box;
}

QWidget* TrackPanel::ArrowPad() {
    auto* const box = new QGroupBox("Move and rotate");
    auto* const grid = new QGridLayout(box);
    grid->setSpacing(2);
    const int side = std::max(LeastArrowSide, fontMetrics().height() + 2 * ArrowMargin);
    QButtonGroup* const keyField = NewKeyField(box);
    const auto add = [&](const char* id, const char* icon, int row, int column) {
        auto* const button = new QToolButton;
        controls_.Bind(*button, id);
        ShowIcon(*button, icon, Qt::ToolButtonIconOnly);
        button->setFixedSize(side, side);
        button->setFocusPolicy(Qt::StrongFocus);
        grid->addWidget(button, row, column);
        keyField->addButton(button);
    };
    add("move up-left", "arrow-up-left", 0, 0);
    add("move up", "arrow-up", 0, 1);
    add("move up-right", "arrow-up-right", 0, 2);
    add("move left", "arrow-left", 1, 0);
    add("move right", "arrow-right", 1, 2);
    add("move down-left", "arrow-down-left", 2, 0);
    add("move down", "arrow-down", 2, 1);
    add("move down-right", "arrow-down-right", 2, 2);
    add("rotate left", "rotate-left", 0, 4);
    add("rotate right", "rotate-right", 2, 4);
    grid->setColumnStretch(3, 1);
    return box;
}

QWidget* TrackPanel::Elements() {
    auto* const box = new QGroupBox("E&lements");
    auto* const column = new QVBoxLayout(box);
    lstTrack_->setObjectName("lstTrack");
    lstTrack_->setUniformItemSizes(true);
    lstTrack_->setAccessibleName("Elements");
    lstTrack_->installEventFilter(this);
    lstTrack_->viewport()->installEventFilter(this);
    connect(lstTrack_, &QListWidget::itemSelectionChanged, this, [this] {
        if (lstTrack_->selectedItems().isEmpty()) return RefreshList(); // Ctrl takes a selection away
        session_.Do([&] {
            SelectElement(session_.Project.Design.Circuit, session_.Project.EditState, lstTrack_->currentRow());
        });
    });
    lstTrack_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lstTrack_, &QWidget::customContextMenuRequested, this,
            [this](QPoint place) { MenuWanted(lstTrack_->viewport()->mapToGlobal(place)); });
    column->addWidget(lstTrack_, 1);
    lblselected_->setObjectName("lblselected");
    lblselected_->setTextFormat(Qt::PlainText); // a file may hold any text as an element
    lblselected_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblElType_->setObjectName("lblElType");
    lblElType_->setMinimumWidth(WidestName(*lblElType_, session_.Catalogue));
    column->addWidget(lblselected_);
    column->addWidget(lblElType_);
    auto* const row = new QHBoxLayout;
    auto* const cmdDelete = new QPushButton;
    controls_.Bind(*cmdDelete, "delete");
    row->addWidget(cmdDelete);
    row->addStretch();
    auto* const chkNumbers = new QCheckBox;
    controls_.Bind(*chkNumbers, "numbers");
    row->addWidget(chkNumbers);
    column->addLayout(row);
    return box;
}

bool TrackPanel::ExtendTo(int row) {
    if (row < 0 || row >= lstTrack_->count()) return false;
    return session_.Do([&] {
        EditState& edit = session_.Project.EditState;
        const EditState before = edit;
        SelectElement(session_.Project.Design.Circuit, edit, row);
        ExtendSelection(edit, before);
    });
}

bool TrackPanel::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& click = static_cast<QMouseEvent&>(*event);
        if (!(click.modifiers() & Qt::ShiftModifier)) return false;
        lstTrack_->setFocus();
        return ExtendTo(lstTrack_->indexAt(click.position().toPoint()).row());
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<QKeyEvent&>(*event);
    const bool goesUp = key.key() == Qt::Key_Up;
    if (!(key.modifiers() & Qt::ShiftModifier) || (!goesUp && key.key() != Qt::Key_Down)) return false;
    return ExtendTo(session_.Project.EditState.SelectedElement() + (goesUp ? -1 : 1));
}

/// Tints the elements of a run.
void TrackPanel::ShowRun(const ElementRun& run) {
    QColor tint = palette().color(QPalette::Highlight);
    constexpr int faint = 70;
    tint.setAlpha(faint);
    for (int row = 0; row < lstTrack_->count(); ++row) {
        const bool isInRun = run.Count > 1 && row >= run.First && row < run.First + run.Count;
        lstTrack_->item(row)->setBackground(isInRun ? QBrush(tint) : QBrush());
    }
}

void TrackPanel::Refresh() {
    RefreshList();
    RefreshSelection();
}

void TrackPanel::RefreshList() {
    const QSignalBlocker quiet(lstTrack_);
    const Track* const track = EditedTrack(session_.Project.Design.Circuit, session_.Project.EditState);
    const int count = track == nullptr ? 0 : track->ElementLastIndex() + 1;
    while (lstTrack_->count() > count)
        delete lstTrack_->takeItem(lstTrack_->count() - 1);
    for (int index = 0; index < count; ++index) {
        const QString line = ListLine(index, track->ElementCodes[static_cast<std::size_t>(index)]);
        if (index == lstTrack_->count()) {
            lstTrack_->addItem(line);
        } else if (lstTrack_->item(index)->text() != line) {
            lstTrack_->item(index)->setText(line);
        }
    }
    const int selected = session_.Project.EditState.SelectedElement();
    lstTrack_->setCurrentRow(selected);
    if (selected < 0) lstTrack_->clearSelection();
    ShowRun(session_.Project.EditState.SelectedRun(count - 1));
}

void TrackPanel::RefreshSelection() {
    const EditState& edit = session_.Project.EditState;
    const std::string code = SelectedCode(session_.Project.Design.Circuit, edit);
    lblselected_->setText(code.empty() ? "Nothing selected" : ListLine(edit.SelectedElement(), code));
    const CatalogueEntry* const piece = session_.Catalogue.Find(code);
    lblElType_->setText(piece == nullptr ? QString() : Shown(piece->LongName));
}

} // namespace pistaro
