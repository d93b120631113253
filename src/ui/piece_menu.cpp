#include "ui/piece_menu.h"

#include "commands/building_commands.h"
#include "commands/row_parts.h"
#include "editor/building.h"
#include "editor/palette_pieces.h"
#include "ui/named_controls.h"
#include "ui/piece_badge.h"
#include "ui/piece_menu_style.h"
#include "ui/tip_place.h"

namespace pistaro {

PieceMenu::PieceMenu(Session& session, const CommandControls& controls, QWidget* parent)
    : QMenu(parent), session_(session), controls_(controls),
      selected_(SelectedCode(session.Project.Design.Circuit, session.Project.EditState)) {
    setObjectName("mnuPiece");
    setAccessibleName("Piece");
    setAttribute(Qt::WA_DeleteOnClose);
    setToolTipsVisible(true);
    KeepTipsBeside(*this);
    AddTitle();
    AddReplacements();
    AddInsertions();
    addSeparator();
    for (const char* const id : {"delete", "select rest"})
        controls_.AddTransient(*this, id);
    addSeparator();
    for (const char* const id : {"start here", "mirror rest"})
        controls_.AddTransient(*this, id);
    addSeparator();
    for (const char* const id : {"paste", "fit"})
        controls_.AddTransient(*this, id);
}

void PieceMenu::AddTitle() {
    const EditState& edit = session_.Project.EditState;
    if (selected_.empty()) return;
    addSection(QString("%1 · element %2 of track %3")
                   .arg(Shown(ProductCode(selected_)))
                   .arg(edit.SelectedElement())
                   .arg(edit.CurrentTrack + 1));
}

QMenu& PieceMenu::AddPieces(const char* name, const char* title, bool replaces) {
    QMenu* const pieces = addMenu(title);
    pieces->setObjectName(name);
    pieces->setToolTipsVisible(true);
    KeepTipsBeside(*pieces);
    ShowLargeIcons(*pieces);
    connect(pieces, &QMenu::hovered, this,
            [this, replaces](const QAction* entry) { PointedAt(TagOf(*entry), replaces); });
    connect(pieces, &QMenu::aboutToHide, this, [this, replaces] { PointedAt("", replaces); });
    return *pieces;
}

void PieceMenu::Show(QAction& entry, const CatalogueEntry& piece) const {
    const Project& project = session_.Project;
    const UsedCounts used = CountUsed(session_.Catalogue, project.Design.Circuit);
    entry.setProperty("Tag", Shown(piece.Code));
    entry.setIcon(
        BadgedPieceIcon(piece, session_.Catalogue, LeftInBox(session_.Catalogue, used, project.Stock, piece), *this));
}

void PieceMenu::AddReplacements() {
    QMenu& pieces = AddPieces("mnuReplacements", "&Replace by", true);
    for (const int row : session_.Catalogue.VariantRows()) {
        const std::string product(ProductCode(session_.Catalogue[row].Code));
        const bool fits = IsVariantOfSelected(session_.Catalogue, session_.Project.Design.Circuit,
                                              session_.Project.EditState, product);
        if (!fits || product == ProductCode(selected_)) continue;
        const CatalogueEntry* const sameHand = session_.Catalogue.Find(product + selected_.back());
        Show(*controls_.AddTransient(pieces, "replace " + product),
             sameHand != nullptr ? *sameHand : session_.Catalogue[row]);
    }
    if (!pieces.isEmpty()) return;
    pieces.menuAction()->setEnabled(false);
    pieces.menuAction()->setToolTip(selected_.empty() ? Shown(ElementSelected(session_))
                                                      : "No other piece has this one's shape.");
}

void PieceMenu::AddInsertions() {
    QMenu& pieces = AddPieces("mnuInsertions", "&Insert Before", false);
    const CatalogueEntry* const selected = session_.Catalogue.Find(selected_);
    if (selected == nullptr) {
        pieces.menuAction()->setEnabled(false);
        pieces.menuAction()->setToolTip(selected_.empty() ? Shown(ElementSelected(session_))
                                                          : "The catalogue has no such piece.");
        return;
    }
    for (const CatalogueEntry& piece : session_.Catalogue)
        if (piece.ShapeIndex == selected->ShapeIndex && Hand(piece.Code) == Hand(selected_))
            AddInsertion(pieces, piece);
    pieces.addSeparator();
    controls_.AddTransient(pieces, "insert")->setText("Pieces of the &Palette, from Now On");
}

void PieceMenu::AddInsertion(QMenu& menu, const CatalogueEntry& piece) {
    QAction* const entry = menu.addAction(Shown(std::string(ProductCode(piece.Code)) + "  " + piece.LongName));
    entry->setObjectName("mnuInsertBefore");
    entry->setToolTip("Put this one in front of the selected piece");
    connect(entry, &QAction::triggered, this,
            [this, code = piece.Code] { session_.Do([&] { InsertBeforeCommand(session_, code); }); });
    Show(*entry, piece);
}

} // namespace pistaro
