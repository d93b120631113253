#include "ui/main_menus.h"

#include "ui/named_controls.h"
#include "ui/recent_menu.h"
#include "ui/tip_place.h"

#include <QKeyEvent>
#include <QMenuBar>

#include <algorithm>
#include <initializer_list>

namespace pistaro {

namespace {

/// Keeps letters that an open menu has no entry for from opening another menu, where the next one would choose an
/// entry: a file's name that is typed too early must not change the design.
class OwnLettersOnly : public QObject {
public:
    explicit OwnLettersOnly(QMenu& menu) : QObject(&menu), menu_(menu) { menu.installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool isLetter = !key.text().isEmpty() && key.text().front().isPrint();
        if (!isLetter || key.modifiers() & Qt::AltModifier) return false;
        const QKeySequence letter(static_cast<int>(Qt::ALT) | key.key());
        const QList<QAction*> entries = menu_.actions();
        return key.key() != Qt::Key_Space && std::ranges::none_of(entries, [&](const QAction* entry) {
                   return QKeySequence::mnemonic(entry->text()) == letter;
               });
    }

private:
    const QMenu& menu_;
};

/// A menu of these rows, with a line across it where there is no id.
QMenu& AddMenu(QMainWindow& window, CommandControls& controls, const char* title,
               std::initializer_list<std::string_view> ids) {
    QMenu* const menu = window.menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    KeepTipsBeside(*menu);
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
    QMenu& view = AddMenu(window, controls, "&View",
                          {"surface", "legend", "lanes", "suggest", "", "columns", "checks", "stock and price"});
    view.addSection("Behind the drawing, whatever its zoom");
    for (const char* const id : {"background select", "background clear"})
        controls.AddEntry(view, id);
    view.addSection("Under the track, at its true size");
    for (const char* const id : {"background import", "background place", "background move", "background remove"})
        controls.AddEntry(view, id);
    AddMenu(window, controls, "&Settings", {"draw area", "choose colours", "loose track", "boxed sets"});
    AddMenu(window, controls, "&Reports", {"statistics", "purchase", "guide", "build plan", "save picture"});
    AddMenu(window, controls, "&Help", {"tour", "manual", "about"});
    for (QMenu* const menu : window.menuBar()->findChildren<QMenu*>())
        new OwnLettersOnly(*menu);
}

} // namespace pistaro
