#include "ui/main_menus.h"

#include "ui/named_controls.h"
#include "ui/recent_menu.h"

#include <QMenuBar>

#include <initializer_list>

namespace pistaro {

namespace {

/// A menu of these rows, with a line across it where there is no id.
QMenu& AddMenu(QMainWindow& window, CommandControls& controls, const char* title,
               std::initializer_list<std::string_view> ids) {
    QMenu* const menu = window.menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    for (const std::string_view id : ids) {
        if (id.empty())
            menu->addSeparator();
        else
            controls.AddEntry(*menu, id);
    }
    return *menu;
}

} // namespace

void AddMainMenus(QMainWindow& window, CommandControls& controls, Session& session,
                  const std::function<void()>& close) {
    QMenu& circuit = AddMenu(window, controls, "&Circuit", {"new", "load"});
    circuit.addMenu(new RecentMenu(session, &circuit));
    controls.AddEntry(circuit, "samples");
    for (const char* const id : {"plain save", "save"})
        controls.AddEntry(circuit, id);
    circuit.addSeparator();
    controls.AddEntry(circuit, "from my box");
    circuit.addSeparator();
    controls.AddEntry(circuit, "export");
    controls.AddEntry(circuit, "print");
    circuit.addSeparator();
    controls.AddEntry(circuit, "recovered work");
    circuit.addSeparator();
    controls.AddEntry(circuit, "quit", close);
    AddMenu(window, controls, "&Edit", {"undo", "redo", "history", "copy", "paste", "select rest"});
    AddMenu(window, controls, "&Track",
            {"mirror", "invert", "mirror rest", "start here", "close loop", "other pieces", "variations", "balance"});
    QMenu& pieces = AddMenu(window, controls, "&Pieces", {"system", "find piece"});
    pieces.addSection("Replace the selected piece by");
    for (const int row : session.Catalogue.VariantRows())
        controls.AddEntry(pieces, "replace " + std::string(ProductCode(session.Catalogue[row].Code)));
    AddMenu(window, controls, "&View",
            {"surface", "legend", "lanes", "suggest", "", "columns", "checks", "stock and price", "",
             "background select", "background clear", "background import", "background place", "background remove"});
    AddMenu(window, controls, "&Settings", {"draw area", "choose colours", "loose track", "boxed sets"});
    AddMenu(window, controls, "&Reports", {"statistics", "purchase", "guide", "build plan", "save picture"});
    AddMenu(window, controls, "&Help", {"tour", "manual", "about"});
}

} // namespace pistaro
