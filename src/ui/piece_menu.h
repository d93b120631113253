// What can be done with the selected piece, opened by a right click on the drawing.
#pragma once

#include "ui/command_controls.h"

#include <QMenu>

#include <functional>
#include <string>

namespace pistaro {

class PieceMenu : public QMenu {
public:
    PieceMenu(Session& session, const CommandControls& controls, QWidget* parent);

    /// Called with the code of the piece that the mouse is on, and whether it would replace the selected one or stand
    /// before it; with no code when the mouse leaves.
    std::function<void(const std::string& code, bool replaces)> PointedAt = [](const std::string&, bool) {};

private:
    void AddTitle();
    void AddReplacements();
    void AddInsertions();
    QMenu& AddPieces(const char* name, const char* title, bool replaces);
    void AddInsertion(QMenu& menu, const CatalogueEntry& piece);
    void Show(QAction& entry, const CatalogueEntry& piece) const;

    Session& session_;
    const CommandControls& controls_;
    const std::string selected_; ///< the piece's code; empty where none is selected
};

} // namespace pistaro
