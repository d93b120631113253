// What can be done with the selected piece, opened by a right click on the drawing.
#pragma once

#include "ui/command_controls.h"

#include <QMenu>

#include <string>

namespace pistaro {

class PieceMenu : public QMenu {
public:
    PieceMenu(Session& session, const CommandControls& controls, QWidget* parent);

private:
    void AddTitle();
    void AddReplacements();
    void AddInsertions();
    QMenu& AddPieces(const char* name, const char* title);
    void AddInsertion(QMenu& menu, const CatalogueEntry& piece);
    void Insert(const std::string& code);
    void Show(QAction& entry, const CatalogueEntry& piece) const;

    Session& session_;
    const CommandControls& controls_;
    const std::string selected_; ///< the piece's code; empty where none is selected
};

} // namespace pistaro
