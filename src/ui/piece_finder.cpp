#include "ui/piece_finder.h"

#include "editor/building.h"
#include "editor/palette_pieces.h"
#include "ui/named_controls.h"
#include "ui/piece_badge.h"
#include "ui/piece_icon.h"
#include "ui/tip_place.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

QString LineOf(const CatalogueEntry& piece) {
    const char hand = Hand(piece.Code);
    const char* const side = hand == 'L' ? ", left" : hand == 'R' ? ", right" : "";
    return Shown(std::string(ProductCode(piece.Code)) + "\n" + PieceName(piece) + side);
}

bool IsUndoOrRedo(const QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

} // namespace

PieceFinder::PieceFinder(Session& session, QWidget& palette, std::function<void()> turned,
                         std::function<void(const std::string&)> pointedAt,
                         std::function<void(const std::string&)> takenUp)
    : QObject(&palette), session_(session), turned_(std::move(turned)), pointedAt_(std::move(pointedAt)),
      takenUp_(std::move(takenUp)), txtFindPiece_(Named(new QLineEdit, "txtFindPiece")),
      lstFoundPieces_(Named(new QListWidget, "lstFoundPieces")) {
    txtFindPiece_->setPlaceholderText("Find: chic, C80, 45 … (Ctrl+F)");
    txtFindPiece_->setAccessibleName("Find a piece");
    txtFindPiece_->setToolTip("Some of a piece's code, name or angle; Enter adds the chosen one, Esc ends the search");
    txtFindPiece_->installEventFilter(this);
    lstFoundPieces_->setAccessibleName("Pieces found");
    lstFoundPieces_->setIconSize(QSize(PieceIconSide, PieceIconSide));
    lstFoundPieces_->setUniformItemSizes(true);
    lstFoundPieces_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstFoundPieces_->setTextElideMode(Qt::ElideRight);
    lstFoundPieces_->hide();
    connect(txtFindPiece_, &QLineEdit::textChanged, this, [this] { Find(); });
    connect(lstFoundPieces_, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) { Lay(item); });
    connect(txtFindPiece_, &QLineEdit::returnPressed, this, [this] { Lay(lstFoundPieces_->currentItem()); });
    lstFoundPieces_->installEventFilter(this);
    lstFoundPieces_->setMouseTracking(true);
    lstFoundPieces_->viewport()->installEventFilter(this);
    connect(lstFoundPieces_, &QListWidget::itemEntered, this, &PieceFinder::PointAt);
    connect(lstFoundPieces_, &QListWidget::viewportEntered, this, [this] { pointedAt_(""); });
}

void PieceFinder::Begin() {
    txtFindPiece_->setFocus(Qt::ShortcutFocusReason);
    txtFindPiece_->selectAll();
}

void PieceFinder::Find() {
    lstFoundPieces_->clear();
    pointedAt_("");
    const std::vector<int> rows =
        FindPieces(session_.Catalogue, txtFindPiece_->text().toStdString(), session_.Project.EditState.System);
    for (const int row : rows) {
        auto* const item = new QListWidgetItem(LineOf(session_.Catalogue[row]), lstFoundPieces_);
        item->setData(Qt::UserRole, row);
        item->setToolTip(Shown(session_.Catalogue[row].LongName));
    }
    if (rows.empty()) (new QListWidgetItem("No piece matches.", lstFoundPieces_))->setFlags(Qt::NoItemFlags);
    lstFoundPieces_->setCurrentRow(rows.empty() ? -1 : 0);
    Refresh();
    turned_();
}

void PieceFinder::Refresh() {
    if (!IsOn()) return;
    const Project& project = session_.Project;
    const UsedCounts used = CountUsed(session_.Catalogue, project.Design.Circuit);
    for (int line = 0; line < lstFoundPieces_->count(); ++line) {
        QListWidgetItem& item = *lstFoundPieces_->item(line);
        const CatalogueEntry* const piece = PieceOf(&item);
        if (piece == nullptr) continue;
        const int left = LeftInBox(session_.Catalogue, used, project.Stock, *piece);
        item.setIcon(BadgedPieceIcon(*piece, session_.Catalogue, left, *lstFoundPieces_));
        item.setData(Qt::AccessibleDescriptionRole, Shown(LeftText(project.Stock, left)));
    }
}

bool PieceFinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstFoundPieces_->viewport()) return OnMouse(*event);
    if (event->type() == QEvent::FocusOut) pointedAt_("");
    if (event->type() == QEvent::ShortcutOverride && IsUndoOrRedo(*event)) {
        event->ignore(); // these are of the circuit
        return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(*event).key();
    if (key == Qt::Key_Escape) {
        txtFindPiece_->clear();
        // Digits and keys of commands belong to the drawing.
        txtFindPiece_->window()->findChild<QWidget*>("picCircuit")->setFocus();
        return true;
    }
    if (watched == lstFoundPieces_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Lay(lstFoundPieces_->currentItem());
        return true;
    }
    if (!IsOn() || (key != Qt::Key_Down && key != Qt::Key_Up)) return false;
    const int row = lstFoundPieces_->currentRow() + (key == Qt::Key_Down ? 1 : -1);
    lstFoundPieces_->setCurrentRow(std::clamp(row, 0, lstFoundPieces_->count() - 1));
    PointAt(lstFoundPieces_->currentItem());
    return true;
}

void PieceFinder::PointAt(const QListWidgetItem* item) {
    const CatalogueEntry* const piece = PieceOf(item);
    pointedAt_(piece == nullptr ? "" : piece->Code);
}

bool PieceFinder::OnMouse(const QEvent& event) {
    if (event.type() == QEvent::Leave) pointedAt_("");
    if (event.type() != QEvent::ToolTip) return DragsOut(event);
    QWidget& lines = *lstFoundPieces_->viewport();
    const QListWidgetItem* const item = lstFoundPieces_->itemAt(static_cast<const QHelpEvent&>(event).pos());
    const QRect line = item == nullptr ? lines.rect() : lstFoundPieces_->visualItemRect(item);
    ShowTipBeside(RowOfColumn(lines, line), item == nullptr ? "" : item->toolTip(), lines);
    return true;
}

/// The mouse takes the piece that its button went down on out of the list.
bool PieceFinder::DragsOut(const QEvent& event) {
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseMove) return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QPoint place = mouse.position().toPoint();
    if (event.type() == QEvent::MouseButtonPress) {
        const CatalogueEntry* const piece = PieceOf(lstFoundPieces_->itemAt(place));
        pressed_ = piece != nullptr && mouse.button() == Qt::LeftButton ? piece->Code : "";
        return false;
    }
    const bool out = !lstFoundPieces_->viewport()->rect().contains(place);
    if (!(mouse.buttons() & Qt::LeftButton) || !out || pressed_.empty() || session_.Project.EditState.ShowsAllTracks())
        return false;
    takenUp_(std::exchange(pressed_, ""));
    return true;
}

void PieceFinder::Lay(const QListWidgetItem* item) {
    const CatalogueEntry* const piece = PieceOf(item);
    if (piece == nullptr) return;
    session_.Do([&] {
        EditState& edit = session_.Project.EditState;
        if (piece->IsBasic()) edit.System = piece->System;
        session_.Run(*session_.Commands.Find((piece->IsBasic() ? "add " : "special ") + piece->Code));
    });
}

const CatalogueEntry* PieceFinder::PieceOf(const QListWidgetItem* item) const {
    if (item == nullptr || !item->data(Qt::UserRole).isValid()) return nullptr;
    return &session_.Catalogue[item->data(Qt::UserRole).toInt()];
}

} // namespace pistaro
