#include "ui/fold_out.h"

#include "editor/palette_pieces.h"
#include "ui/named_controls.h"
#include "ui/piece_badge.h"
#include "ui/piece_menu_style.h"
#include "ui/tip_place.h"

#include <QApplication>
#include <QMouseEvent>

#include <cmath>
#include <utility>

namespace pistaro {

FoldOut::FoldOut(Session& session, CommandControls& controls, const std::string& basic, const std::vector<int>& rows,
                 QWidget* parent)
    : QMenu(parent), session_(session), rows_(rows) {
    setObjectName("mnuFoldOut");
    setProperty("Tag", Shown(basic));
    setAccessibleName("Special pieces");
    setToolTipsVisible(true);
    KeepTipsBeside(*this);
    ShowLargeIcons(*this);
    for (const int row : rows_)
        controls.AddEntry(*this, "special " + session_.Catalogue[row].Code);
    connect(this, &QMenu::aboutToShow, this, [this] { ShowPieces(); });
}

void FoldOut::mousePressEvent(QMouseEvent* event) {
    const QAction* const entry = actionAt(event->position().toPoint());
    const bool takes = entry != nullptr && entry->isEnabled() && event->button() == Qt::LeftButton;
    pressed_ = takes ? TagOf(*entry) : "";
    pressedAt_ = event->position();
    QMenu::mousePressEvent(event);
}

/// Along the menu the mouse chooses an entry; sideways it drags one out.
void FoldOut::mouseMoveEvent(QMouseEvent* event) {
    const int farSideways = 3 * QApplication::startDragDistance();
    const bool dragged = !rect().contains(event->position().toPoint()) ||
                         std::fabs(event->position().x() - pressedAt_.x()) > farSideways;
    if (pressed_.empty() || !dragged || !(event->buttons() & Qt::LeftButton)) return QMenu::mouseMoveEvent(event);
    const std::string code = std::exchange(pressed_, "");
    hide();
    TakenUp(code);
}

void FoldOut::ShowPieces() {
    const Project& project = session_.Project;
    const UsedCounts used = CountUsed(session_.Catalogue, project.Design.Circuit);
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        const CatalogueEntry& piece = session_.Catalogue[rows_[at]];
        const int left = LeftInBox(session_.Catalogue, used, project.Stock, piece);
        actions()
            .at(static_cast<qsizetype>(at))
            ->setIcon(BadgedPieceIcon(piece, session_.Catalogue, left, *parentWidget()));
    }
}

} // namespace pistaro
