#include "soak/random_user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr int LongestStay = 30; ///< acts in one dialog; then it is cancelled

const std::array Letters{Qt::Key_0,     Qt::Key_1,      Qt::Key_5, Qt::Key_9,
                         Qt::Key_Minus, Qt::Key_Period, Qt::Key_E, Qt::Key_X};
const std::array Others{Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backspace, Qt::Key_Delete,
                        Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Home,
                        Qt::Key_End,    Qt::Key_PageUp, Qt::Key_Space,  Qt::Key_PageDown,  Qt::Key_Plus,
                        Qt::Key_F1,     Qt::Key_F5,     Qt::Key_Insert, Qt::Key_Backtab};
const std::array WithControl{Qt::Key_Z, Qt::Key_Y, Qt::Key_S, Qt::Key_O, Qt::Key_N, Qt::Key_A,    Qt::Key_C,
                             Qt::Key_V, Qt::Key_X, Qt::Key_D, Qt::Key_F, Qt::Key_P, Qt::Key_Plus, Qt::Key_Minus};

/// The window that takes all input now, or null.
QWidget* InFront() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
    return QApplication::activeModalWidget();
}

/// Whether a control is there to be pressed or typed into, rather than to show or to hold others.
bool TakesInput(const QWidget& control) {
    constexpr std::array kinds{"QAbstractButton", "QLineEdit",   "QAbstractItemView", "QAbstractSlider",
                               "QComboBox",       "QMenuBar",    "QAbstractSpinBox",  "QTextEdit",
                               "QTabBar",         "QHeaderView", "QPlainTextEdit"};
    const auto is = [&](const char* kind) { return control.inherits(kind); };
    return std::ranges::any_of(kinds, is) || control.objectName() == "picCircuit";
}

} // namespace

void RandomUser::Act() {
    ++acts_;
    QWidget* const front = InFront();
    if (front != nullptr && front != lastDialog_) {
        ++dialogs_;
        const QString name = front->objectName();
        met_.insert(name.isEmpty() ? front->metaObject()->className() : name.toStdString());
    }
    actsInDialog_ = front == lastDialog_ ? actsInDialog_ + 1 : 0;
    lastDialog_ = front;
    if (front != nullptr && actsInDialog_ > LongestStay) {
        actsInDialog_ = 0;
        front->close();
    } else if (auto* const files = qobject_cast<QFileDialog*>(front)) {
        ChooseFile(*files);
    } else if (front != nullptr) {
        ActIn(*front);
    } else {
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
        if (!windows.isEmpty()) ActIn(*windows[Below(static_cast<int>(windows.size()))]);
    }
}

QWidget* RandomUser::AnyControl(const QWidget& window) {
    QWidgetList controls = window.findChildren<QWidget*>();
    controls.removeIf([&](const QWidget* control) {
        return !control->isVisible() || !control->isEnabled() || control->window() != &window;
    });
    const bool onlyThoseThatAct = Below(5) > 0;
    if (onlyThoseThatAct) controls.removeIf([](const QWidget* control) { return !TakesInput(*control); });
    return controls.isEmpty() ? nullptr : controls[Below(static_cast<int>(controls.size()))];
}

template <typename Menu>
void RandomUser::ClickEntry(Menu& menu) {
    const QList<QAction*> entries = menu.actions();
    if (entries.isEmpty()) return;
    QAction* const entry = entries[Below(static_cast<int>(entries.size()))];
    const bool ends = entry->objectName() == "mnuQuit";
    if (ends && Below(10) > 0) return;
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(entry).center());
}

void RandomUser::ActIn(QWidget& window) {
    if (auto* const menu = qobject_cast<QMenu*>(&window); menu != nullptr && Below(3) > 0) return ClickEntry(*menu);
    auto* const bar = window.findChild<QMenuBar*>();
    if (bar != nullptr && Below(12) == 0) return ClickEntry(*bar);
    QWidget* const control = AnyControl(window);
    QWidget& target = control != nullptr ? *control : window;
    const int dice = Below(3000);
    if (dice < 2100) {
        Press(target);
    } else if (dice < 2960) {
        Type(target);
    } else if (dice < 2998) {
        window.resize(window.width() + Below(201) - 100, window.height() + Below(201) - 100);
    } else {
        window.close();
    }
}

void RandomUser::Press(QWidget& control) {
    const QPoint place(Below(std::max(1, control.width())), Below(std::max(1, control.height())));
    const QPointer<QWidget> alive(&control);
    const Qt::MouseButton button = Below(10) == 0 ? Qt::RightButton : Qt::LeftButton;
    const int dice = Below(20);
    if (dice == 0) return QTest::mouseDClick(&control, button, {}, place);
    if (dice == 1) return QTest::mouseMove(&control, place);
    if (dice < 4) {
        QWheelEvent wheel(place, control.mapToGlobal(place), {}, {0, Below(2) == 0 ? 120 : -120}, Qt::NoButton,
                          Below(3) == 0 ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&control, &wheel);
        return;
    }
    QTest::mousePress(&control, button, {}, place);
    // What the press opens may have ended what was pressed.
    if (dice < 7 && alive) QTest::mouseMove(&control, {Below(600), Below(600)});
    if (alive) QTest::mouseRelease(&control, button, {}, dice < 7 ? QPoint(Below(600), Below(600)) : place);
}

void RandomUser::Type(QWidget& control) {
    const int dice = Below(10);
    if (dice < 4) {
        QTest::keyClick(&control, Letters[random_() % Letters.size()]);
    } else if (dice < 8) {
        const Qt::KeyboardModifiers modifiers = Below(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
        QTest::keyClick(&control, Others[random_() % Others.size()], modifiers);
    } else {
        const Qt::KeyboardModifiers shift = Below(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
        QTest::keyClick(&control, WithControl[random_() % WithControl.size()], Qt::ControlModifier | shift);
    }
}

void RandomUser::ChooseFile(QWidget& dialog) {
    constexpr std::array names{"one.trk",     "two.trk",     "three",     "picture.png",
                               "picture.bmp", "missing.trk", "folder.trk"};
    auto* const box = dialog.findChild<QLineEdit*>("fileNameEdit");
    const bool gives = box != nullptr && Below(3) > 0;
    if (gives) box->setText(QString::fromStdString((folder_ / names[random_() % names.size()]).string()));
    QTest::keyClick(gives ? static_cast<QWidget*>(box) : &dialog, gives ? Qt::Key_Return : Qt::Key_Escape);
}

} // namespace pistaro
