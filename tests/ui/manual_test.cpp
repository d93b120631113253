// The manual names what the windows show, and what it names is there: entries, keys, colours, pictures, links.
#include "ui/window_fixture.h"

#include "support/places.h"
#include "support/settings_bytes.h"
#include "support/temporary_folder.h"
#include "ui/frmColors.h"

#include <QImage>
#include <QMenuBar>
#include <QShortcut>

#include <gmock/gmock.h>

namespace pistaro {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::filesystem::path Folder = SourceFolder() / "manual";

class Manual : public WindowTest {
protected:
    const std::string Page = BytesOf(Folder / "help.html");
};

/// The values of an attribute wherever a page has it.
std::vector<std::string> ValuesOf(const std::string& attribute, const std::string& page) {
    const std::string opening = " " + attribute + "=\"";
    std::vector<std::string> values;
    for (std::size_t at = page.find(opening); at != std::string::npos; at = page.find(opening, at)) {
        at += opening.size();
        values.push_back(page.substr(at, page.find('"', at) - at));
    }
    return values;
}

/// The pictures that a page shows and that cannot be read.
std::vector<std::string> MissingPictures(const std::string& page) {
    std::vector<std::string> missing = ValuesOf("src", page);
    std::erase_if(missing, [](const std::string& name) {
        return !QImage(QString::fromStdString((Folder / name).string())).isNull();
    });
    return missing;
}

/// The links that lead to no place of the page. It has no others.
std::vector<std::string> BrokenLinks(const std::string& page) {
    const std::vector<std::string> ids = ValuesOf("id", page);
    std::vector<std::string> broken = ValuesOf("href", page);
    std::erase_if(broken, [&](const std::string& link) {
        return link.starts_with('#') && std::ranges::count(ids, link.substr(1)) == 1;
    });
    return broken;
}

std::string WithoutMnemonic(QString caption) { return caption.remove('&').toStdString(); }

/// As the manual writes it: "Ctrl+↑", and nothing for no key.
std::string Shown(const QKeySequence& key) {
    QString text = key.toString(QKeySequence::PortableText);
    for (const auto& [name, arrow] : {std::pair("Up", "↑"), {"Down", "↓"}, {"Left", "←"}, {"Right", "→"}})
        text.replace(QString("+") + name, QString("+") + arrow);
    return text.isEmpty() ? "" : "<kbd>" + text.toStdString() + "</kbd>";
}

TEST_F(Manual, ShowsItsPicturesAndEachOfThemIsThere) {
    // Eight samples, 28 pieces, three steps of the first circuit; the window, in the dark too, its pieces, two panels,
    // the tour, eleven dialogs; closing a track and replacing a run; printing, a build plan, a background and its
    // dialog; twelve circuits from a box; the lanes, tracks as they look, and 17 rules.
    EXPECT_EQ(ValuesOf("src", Page).size(), 83U);
    EXPECT_THAT(MissingPictures(Page), IsEmpty());
}

TEST_F(Manual, ShowsEveryPictureThatWasMadeForIt) {
    for (const auto& file : std::filesystem::directory_iterator(Folder)) {
        const std::string ending = file.path().extension().string();
        if (ending != ".png" && ending != ".gif") continue;
        EXPECT_THAT(ValuesOf("src", Page), Contains(file.path().filename().string()));
    }
}

TEST_F(Manual, LinksOnlyToPlacesOfItsOwn) {
    EXPECT_GT(ValuesOf("href", Page).size(), 40U);
    EXPECT_THAT(BrokenLinks(Page), IsEmpty());
}

TEST_F(Manual, WouldTellAMissingPictureAndABrokenLink) {
    EXPECT_THAT(MissingPictures(Replaced(Page, "src=\"about.png\"", "src=\"gone.png\"")), ElementsAre("gone.png"));
    EXPECT_THAT(MissingPictures(Replaced(Page, "src=\"about.png\"", "src=\"help.html\"")), ElementsAre("help.html"));
    EXPECT_THAT(BrokenLinks(Replaced(Page, "href=\"#menus\"", "href=\"#gone\"")), ElementsAre("#gone"));
    EXPECT_THAT(BrokenLinks(Replaced(Page, "id=\"menus\"", "")), ElementsAre("#menus"));
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
    const frmColors dialog(*Session);
    const auto labels = dialog.findChildren<QLabel*>();
    EXPECT_EQ(labels.size(), 6);
    for (const QLabel* const label : labels)
        EXPECT_THAT(Page, HasSubstr("<tr><td>" + WithoutMnemonic(label->text().remove(':')) + "</td>"));
}

} // namespace
} // namespace pistaro
