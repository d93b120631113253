// The manual names what the windows show: entries, keys, colours.
#include "ui/window_fixture.h"

#include "support/temporary_folder.h"
#include "ui/frmColors.h"

#include <QMenuBar>
#include <QShortcut>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::HasSubstr;

class Manual : public WindowTest {
protected:
    const std::string Page = BytesOf(std::filesystem::path(SOURCE_FOLDER) / "manual" / "help.html");
};

std::string WithoutMnemonic(QString caption) { return caption.remove('&').toStdString(); }

/// As the manual writes it: "Ctrl+↑", and nothing for no key.
std::string Shown(const QKeySequence& key) {
    QString text = key.toString(QKeySequence::PortableText);
    for (const auto& [name, arrow] : {std::pair("Up", "↑"), {"Down", "↓"}, {"Left", "←"}, {"Right", "→"}})
        text.replace(QString("+") + name, QString("+") + arrow);
    return text.isEmpty() ? "" : "<kbd>" + text.toStdString() + "</kbd>";
}

TEST_F(Manual, ListsEveryMenuEntryWithItsKey) {
    Open();
    int entries = 0;
    for (const QAction* const menu : Window->menuBar()->actions()) {
        for (const QAction* const entry : menu->menu()->actions()) {
            const bool variant = !entry->isEnabled() && menu->text() == "&Pieces";
            if (entry->isSeparator() || variant) continue;
            const std::string name = WithoutMnemonic(menu->text()) + " ▸ " + WithoutMnemonic(entry->text());
            const std::string row = "<tr><td>" + name;
            ASSERT_THAT(Page, HasSubstr(row));
            const std::size_t at = Page.find(row);
            EXPECT_THAT(Page.substr(at, Page.find('\n', at) - at),
                        HasSubstr("</td><td>" + Shown(entry->shortcut()) + "</td>"))
                << name;
            ++entries;
        }
    }
    EXPECT_GT(entries, 15);
}

TEST_F(Manual, TellsTheKeyOfEveryButton) {
    Open();
    const auto shortcuts = Window->findChildren<QShortcut*>();
    EXPECT_GT(shortcuts.size(), 15);
    for (const QShortcut* const shortcut : shortcuts)
        EXPECT_THAT(Page, HasSubstr(Shown(shortcut->key())));
}

TEST_F(Manual, NamesTheColoursAsTheirDialogDoes) {
    const frmColors dialog(Design, Prompts);
    const auto labels = dialog.findChildren<QLabel*>();
    EXPECT_EQ(labels.size(), 6);
    for (const QLabel* const label : labels)
        EXPECT_THAT(Page, HasSubstr("<tr><td>" + WithoutMnemonic(label->text().remove(':')) + "</td>"));
}

} // namespace
} // namespace pistaro
