// Every window as those meet it who do not see it: each control says what it is, and Tab goes the way that one reads.
#include "commands/bitmaps.h"
#include "commands/recovery.h"
#include "support/temporary_folder.h"
#include "ui/frmAbout.h"
#include "ui/frmBackground.h"
#include "ui/frmBox.h"
#include "ui/frmBuildPlan.h"
#include "ui/frmColorSelection.h"
#include "ui/frmColors.h"
#include "ui/frmDrawArea.h"
#include "ui/frmExport.h"
#include "ui/frmPrint.h"
#include "ui/frmRecovered.h"
#include "ui/frmSamples.h"
#include "ui/frmSets.h"
#include "ui/frmStats.h"
#include "ui/frmStock.h"
#include "ui/window_fixture.h"

#include <QAccessible>
#include <QApplication>
#include <QDockWidget>
#include <QGroupBox>
#include <QMenuBar>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::Gt;
using testing::IsEmpty;

/// What of a window a user can press, type into or choose from.
bool IsControl(QAccessible::Role role) {
    switch (static_cast<int>(role)) {
    case QAccessible::PushButton:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::ComboBox:
    case QAccessible::List:
    case QAccessible::Tree:
    case QAccessible::Table:
    case QAccessible::ScrollBar:
    case QAccessible::Slider:
    case QAccessible::MenuItem:
    case QAccessible::ButtonMenu:
        return true;
    default:
        return false;
    }
}

/// Parts that the toolkit makes and names by what they belong to.
bool IsPartOfAControl(const QAccessibleInterface& control) {
    const QObject* const object = control.object();
    if (object == nullptr) return false;
    const QObject* const parent = object->parent();
    const bool scrolls = parent != nullptr && parent->objectName().startsWith("qt_scrollarea");
    return scrolls || object->objectName().startsWith("qt_") || object->inherits("QComboBoxListView");
}

bool SaysSomething(const QString& name) {
    return std::ranges::any_of(name, [](QChar sign) { return sign.isLetterOrNumber(); });
}

struct Walk {
    int Controls = 0;
    std::vector<std::string> Unnamed;
};

void WalkTree(QAccessibleInterface* item, Walk& walk) {
    if (item == nullptr || !item->isValid()) return;
    if (IsControl(item->role()) && !IsPartOfAControl(*item)) {
        ++walk.Controls;
        const QObject* const object = item->object();
        if (!SaysSomething(item->text(QAccessible::Name)))
            walk.Unnamed.push_back(object == nullptr ? "?"
                                                     : object->objectName().toStdString() + " of " +
                                                           object->metaObject()->className());
    }
    if (item->role() == QAccessible::Tree || item->role() == QAccessible::List) return; // what they list is texts
    for (int child = 0; child < item->childCount(); ++child)
        WalkTree(item->child(child), walk);
}

Walk WalkOf(QWidget& window) {
    QApplication::processEvents();
    Walk walk;
    WalkTree(QAccessible::queryAccessibleInterface(&window), walk);
    return walk;
}

/// The controls that Tab goes through, from the first on.
std::vector<QWidget*> TabOrder(QWidget& window) {
    std::vector<QWidget*> order;
    QWidget* widget = &window;
    while ((widget = widget->nextInFocusChain()) != &window)
        if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) &&
            widget->window() == &window && widget->focusProxy() == nullptr)
            order.push_back(widget);
    return order;
}

/// Where Tab leads to something that lies both above and to the left of where it was: against the way one reads.
std::vector<std::string> StepsBack(QWidget& window) {
    std::vector<std::string> steps;
    const QWidget* before = nullptr;
    for (const QWidget* const widget : TabOrder(window)) {
        const auto place = [&](const QWidget& of) { return QRect(of.mapTo(&window, QPoint(0, 0)), of.size()); };
        if (before != nullptr && place(*widget).bottom() < place(*before).top() &&
            place(*widget).right() < place(*before).left())
            steps.push_back(before->objectName().toStdString() + " to " + widget->objectName().toStdString());
        before = widget;
    }
    return steps;
}

class Accessibility : public WindowTest {
protected:
    void ExpectReadable(QWidget& window, int leastControls) {
        window.show();
        const Walk walk = WalkOf(window);
        EXPECT_THAT(walk.Controls, Gt(leastControls)) << window.objectName().toStdString();
        EXPECT_THAT(walk.Unnamed, IsEmpty()) << window.objectName().toStdString();
        EXPECT_THAT(StepsBack(window), IsEmpty()) << window.objectName().toStdString();
    }

    TemporaryFolder folder_;
};

TEST_F(Accessibility, TheMainWindowNamesAllItsControls) {
    Open(ProjectOf("C160 C151L C154L"));
    ExpectReadable(*Window, 60);
}

TEST_F(Accessibility, TheDocksAndTheBarOfSuggestionsNameTheirControls) {
    Open(ProjectOf("C160 C151L C154L"));
    Choose("mnuChecks");
    Choose("mnuMoney");
    Choose("mnuHistory");
    Choose("mnuCloseLoop");

    const Walk walk = WalkOf(*Window);

    EXPECT_TRUE(Find<QWidget>("fraSuggestions").isVisible());
    EXPECT_THAT(walk.Unnamed, IsEmpty());
}

TEST_F(Accessibility, TheStripOfBalancingChangesNamesItsControls) {
    Open(ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R"));
    Choose("mnuBalance");

    const Walk walk = WalkOf(*Window);

    EXPECT_TRUE(Find<QWidget>("fraBalance").isVisible());
    EXPECT_THAT(walk.Unnamed, IsEmpty());
}

TEST_F(Accessibility, TheStripThatMovesThePictureNamesItsControls) {
    pistaro::Project project = ProjectOf("C160");
    project.Background = std::make_shared<const ScaledBackground>(
        ScaledBackground{.Picture = std::make_shared<const std::string>(Bitmap(40, 32, 0)), .CmPerPixel = 1});
    Open(project);
    Choose("mnuBackgroundMove");

    const Walk walk = WalkOf(*Window);

    EXPECT_TRUE(Find<QWidget>("fraPicture").isVisible());
    EXPECT_THAT(walk.Unnamed, IsEmpty());
}

/// The letters that Alt takes one to in a window: of its menus, buttons, frames and fields that can be seen.
std::vector<std::string> LettersOf(QWidget& window) {
    QStringList texts;
    for (const QMenuBar* const bar : window.findChildren<QMenuBar*>())
        for (const QAction* const menu : bar->actions())
            texts.append(menu->text());
    for (const QWidget* const part : window.findChildren<QWidget*>()) {
        if (!part->isVisible()) continue;
        if (const auto* const button = qobject_cast<const QAbstractButton*>(part)) texts.append(button->text());
        if (const auto* const frame = qobject_cast<const QGroupBox*>(part)) texts.append(frame->title());
        const auto* const label = qobject_cast<const QLabel*>(part);
        if (label != nullptr && label->buddy() != nullptr) texts.append(label->text());
    }
    std::vector<std::string> letters;
    for (const QString& text : texts) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty()) letters.push_back(letter.toStdString());
    }
    std::ranges::sort(letters);
    return letters;
}

std::vector<std::string> DoubledOf(std::vector<std::string> sorted) {
    std::vector<std::string> doubled;
    for (auto letter = std::ranges::adjacent_find(sorted); letter != sorted.end();
         letter = std::adjacent_find(letter + 1, sorted.end()))
        doubled.push_back(*letter);
    return doubled;
}

TEST_F(Accessibility, AltWithALetterMeansOneThingInTheMainWindow) {
    pistaro::Project project = ProjectOf("C160 C151R C151R C151R C151R C160 C151R C151R C151R C151R");
    project.Background = std::make_shared<const ScaledBackground>(
        ScaledBackground{.Picture = std::make_shared<const std::string>(Bitmap(40, 32, 0)), .CmPerPixel = 1});
    Open(project);
    EXPECT_THAT(LettersOf(*Window), testing::IsSupersetOf({"Alt+C", "Alt+F", "Alt+I", "Alt+L", "Alt+M", "Alt+N"}));
    for (const char* const entry : {"mnuReplaceBy", "mnuBalance", "mnuBackgroundMove", "mnuScalextricNinco"}) {
        Choose(entry);
        EXPECT_THAT(DoubledOf(LettersOf(*Window)), IsEmpty()) << entry;
    }
}

TEST_F(Accessibility, ALetterMeansOneThingInEachMenu) {
    Open();
    for (const QMenu* const menu : Window->menuBar()->findChildren<QMenu*>()) {
        std::vector<std::string> letters;
        for (const QAction* const entry : menu->actions()) {
            const QString letter = QKeySequence::mnemonic(entry->text()).toString();
            if (!letter.isEmpty()) letters.push_back(letter.toStdString());
        }
        std::ranges::sort(letters);
        EXPECT_THAT(DoubledOf(letters), IsEmpty()) << menu->title().toStdString();
    }
}

TEST_F(Accessibility, EveryDialogNamesItsControls) {
    Open(ProjectOf("C160 C151L C154L"));
    Colour colour = 0;
    frmAbout about(Pieces(), Window.get());
    ExpectReadable(about, 0);
    frmBackground background(*Session, {.Picture = std::make_shared<const std::string>(Bitmap(40, 32, 0))});
    ExpectReadable(background, 5);
    frmBox box(*Session, std::nullopt);
    ExpectReadable(box, 20);
    frmColors colours(*Session);
    ExpectReadable(colours, 7);
    frmColorSelection selection(colour);
    ExpectReadable(selection, 40);
    frmDrawArea area(*Session);
    ExpectReadable(area, 15);
    frmExport exports(*Session);
    ExpectReadable(exports, 8);
    frmPrint print(*Session);
    ExpectReadable(print, 8);
    frmBuildPlan plan(*Session);
    ExpectReadable(plan, 6);
    const Recovery recovery(*Session, folder_.Path(), [](const std::function<void()>&) {});
    frmRecovered recovered(*Session, frmRecovered::Occasion::Menu);
    ExpectReadable(recovered, 2);
    frmSamples samples(*Session, folder_.Path());
    ExpectReadable(samples, 1);
    frmSets sets(*Session);
    ExpectReadable(sets, 5);
    frmStats statistics(*Session);
    ExpectReadable(statistics, 5);
    frmStock stock(*Session);
    ExpectReadable(stock, 50);
}

TEST_F(Accessibility, AButtonWhoseCaptionIsASignSaysWhatItDoes) {
    Open();

    EXPECT_EQ(Button("cmdMvUpLeft").text(), "↖");
    EXPECT_EQ(Button("cmdMvUpLeft").accessibleName(), "Move up-left");
    EXPECT_EQ(Button("cmdZoomIn").text(), "+");
    EXPECT_EQ(Button("cmdZoomIn").accessibleName(), "Zoom in");
    EXPECT_EQ(Button("cmdRotLeft").accessibleName(), "Rotate left");
}

} // namespace
} // namespace pistaro
