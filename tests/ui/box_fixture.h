// The window of circuits from a box, and its controls.
#pragma once

#include "support/stock.h"
#include "ui/frmBox.h"
#include "ui/window_fixture.h"

namespace pistaro {

class MyBox : public WindowTest {
protected:
    /// Shows all that will be found, also those that look alike.
    void OpenBox(pistaro::Project project = ProjectOf("")) {
        Open(std::move(project));
        Session->Habits.BoxShapes = "all";
        Choose("mnuFromBox");
    }

    /// The program of another day, which knows what its user chose last.
    void ComeBack() {
        const Habits habits = Session->Habits;
        Open(ProjectOf(""));
        Session->Habits = habits;
        Choose("mnuFromBox");
    }

    frmBox& Dialog() {
        for (frmBox* const dialog : Window->findChildren<frmBox*>()) {
            if (dialog->isVisible()) return *dialog;
        }
        throw std::logic_error("no window of circuits is open");
    }
    QListWidget& Circuits() { return Find<QListWidget>("lstCircuits"); }
    PieceCounts& Box() { return *Dialog().findChild<PieceCounts*>("lstBox"); }

    /// A control of an array by its place.
    template <typename Control>
    Control& At(const char* name, int index) {
        for (Control* const control : Dialog().findChildren<Control*>(name)) {
            if (control->property("Index").toInt() == index) return *control;
        }
        throw std::logic_error(name);
    }

    /// Of which no circuit uses all, so that the search looks for larger ones until its effort is spent.
    void PutInMoreThanFits() {
        Find<QSpinBox>("spnRoomWidth").setValue(240);
        Find<QSpinBox>("spnRoomDepth").setValue(160);
        Box().Show(BoxOf(Pieces(), "C151=24,C160=24,C159=8,C158=4,C153=8,C152=8,C157=4"));
    }

    void PressHere(const char* name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }

    /// Has the window come back with the circuits that it found, and opens one of them.
    void OpenCircuit(int row, const char* entry = "mnuFromBox") {
        Choose(entry); // brings it up where it is open
        ClickCircuit(row);
        PressHere("cmdOpenCircuit");
    }

    /// Looks for circuits of these pieces, and waits for the end.
    void Search(const char* box) {
        Box().Show(BoxOf(Pieces(), box));
        PressHere("cmdSearch");
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Find<QPushButton>("cmdCancelSearch").isEnabled(); }, 60'000));
    }

    void ClickCircuit(int row, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(Circuits().viewport(), Qt::LeftButton, keys,
                          Circuits().visualItemRect(Circuits().item(row)).center());
    }
};

} // namespace pistaro
