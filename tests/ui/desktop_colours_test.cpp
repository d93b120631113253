// Windows on a dark desktop, and on one of high contrast.
#include "ui/desktop_colours.h"

#include "model/colour_scheme.h"
#include "ui/canvas_colours.h"
#include "ui/contrast_style.h"
#include "ui/line_icon.h"
#include "ui/window_fixture.h"

#include <QApplication>
#include <QMenuBar>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>

#include <cmath>

namespace pistaro {
namespace {

/// How much two colours contrast, 1 to 21, by the formula of the web's guidelines.
double Contrast(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double channel) {
            return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const double light = std::max(luminance(one), luminance(other));
    const double dark = std::min(luminance(one), luminance(other));
    return (light + 0.05) / (dark + 0.05);
}

class DesktopColours : public WindowTest {
protected:
    DesktopColours() : before_(QApplication::palette()) {}
    ~DesktopColours() override {
        Window.reset();
        QApplication::setStyle(QStyleFactory::create(style_));
        QApplication::setPalette(before_);
    }

    QColor Pixel(int x, int y) { return Picture().grab().toImage().pixelColor(x, y); }

    const QPalette before_;
    const QString style_ = QApplication::style()->name();
};

TEST_F(DesktopColours, AreReadableInEachAnswer) {
    for (const DesktopPreference wish :
         {DesktopPreference{true, false}, DesktopPreference{true, true}, DesktopPreference{false, true}}) {
        const QPalette palette = PaletteFor(wish);
        const double least = wish.HighContrast ? 15 : 7;
        EXPECT_GT(Contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), least);
        EXPECT_GT(Contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), least);
        EXPECT_GT(Contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), least);
        EXPECT_GT(Contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)), 7);
        EXPECT_GT(Contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 4.5);
        EXPECT_GT(Contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)), 4.5);
        EXPECT_GT(Contrast(palette.color(QPalette::Disabled, QPalette::ButtonText),
                           palette.color(QPalette::Disabled, QPalette::Button)),
                  3);
        EXPECT_EQ(IsDark(palette), wish.Dark);
        EXPECT_EQ(HasHighContrast(palette), wish.HighContrast);
    }
}

TEST_F(DesktopColours, StayTheToolkitsWhereThatIsWished) {
    ShowAsWished({}, before_);
    EXPECT_EQ(QApplication::palette(), before_);

    const QPalette dark = PaletteFor({.Dark = true});
    ShowAsWished({.Dark = true}, dark);
    EXPECT_EQ(QApplication::palette(), dark) << "the toolkit follows by itself";
}

TEST_F(DesktopColours, FollowTheWishAndComeBack) {
    ShowAsWished({.Dark = true}, before_);
    EXPECT_TRUE(IsDark(QApplication::palette()));

    ShowAsWished({}, before_);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), before_.color(QPalette::Window));
}

TEST_F(DesktopColours, TheDrawingFollowsWhileItsColoursAreTheInitialOnes) {
    Open(ProjectOf("C160"));
    EXPECT_EQ(Pixel(3, 3), QColor(Qt::white));
    const ColourScheme set = Project.Preferences.Colours;

    ShowAsWished({.Dark = true}, before_);
    QApplication::processEvents();

    EXPECT_EQ(Pixel(3, 3), QColor(0x1E, 0x20, 0x23));
    EXPECT_EQ(Project.Preferences.Colours, set) << "the settings do not";
}

TEST_F(DesktopColours, TheDrawingKeepsColoursThatItsUserChose) {
    pistaro::Project project = ProjectOf("C160");
    project.Preferences.Colours.Background = Rgb(250, 245, 230);
    Open(project);

    ShowAsWished({.Dark = true}, before_);
    QApplication::processEvents();

    EXPECT_EQ(Pixel(3, 3), QColor(250, 245, 230));
}

TEST_F(DesktopColours, OfTheDrawingCanBeToldFromADarkGround) {
    const ColourScheme initial = InitialSettings(Pieces()).Preferences.Colours;
    for (const bool highContrast : {false, true}) {
        const QPalette desktop = PaletteFor({.Dark = true, .HighContrast = highContrast});
        const ColourScheme shown = CanvasColours(initial, initial, desktop);
        const QColor ground = desktop.color(QPalette::Base);
        for (const Colour colour : {shown.Inactive, shown.Rail, shown.NonOwned, shown.Owned, shown.Active, shown.Room})
            EXPECT_GT(Contrast(QColor(Red(colour), Green(colour), Blue(colour)), ground), 4.5) << colour;
    }
    EXPECT_EQ(CanvasColours(initial, initial, before_), initial) << "on a light desktop";
}

TEST_F(DesktopColours, FramesOfHighContrastCanBeSeen) {
    ShowAsWished({.Dark = true, .HighContrast = true}, before_);
    QPushButton button("Press");
    button.resize(100, 40);
    const QImage image = button.grab().toImage();

    EXPECT_EQ(image.pixelColor(50, 0), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(0, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(5, 20), QColor(Qt::black));
}

TEST_F(DesktopColours, LinesAcrossMenusCanBeSeenOnADarkGround) {
    for (const DesktopPreference wish : {DesktopPreference{true, false}, DesktopPreference{true, true}}) {
        ShowAsWished(wish, before_);
        Open();
        for (const char* const neighbour : {"mnuSurface", "mnuC151"}) { // below a line, and below a heading
            for (QMenu* const menu : Window->menuBar()->findChildren<QMenu*>()) {
                const auto entries = menu->actions();
                const auto below = entries.indexOf(&Entry(neighbour));
                if (below < 1) continue;
                menu->popup(QPoint(0, 0));
                const QPoint middle = menu->actionGeometry(entries[below - 1]).center();
                const QImage shown = menu->grab().toImage();
                const QColor line = shown.pixelColor(menu->width() - 20, middle.y());
                const QColor ground = shown.pixelColor(menu->width() - 20, middle.y() - 3);
                EXPECT_GT(Contrast(line, ground), 2) << neighbour;
                menu->close();
            }
        }
    }
}

TEST_F(DesktopColours, TheDotOfWhatIsChosenIsAsPlainAsWords) {
    for (const DesktopPreference wish :
         {DesktopPreference{true, false}, DesktopPreference{true, true}, DesktopPreference{false, true}}) {
        ShowAsWished(wish, before_);
        Open();
        QAbstractButton& chosen = Button("optTrack", "1");
        QStyleOptionButton option;
        option.initFrom(&chosen);
        const QRect ring = chosen.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &chosen);
        const QColor dot = chosen.grab().toImage().pixelColor(ring.center());
        EXPECT_GT(Contrast(dot, chosen.palette().color(QPalette::Base)), wish.HighContrast ? 15 : 7);
    }
}

TEST_F(DesktopColours, AMenusHeadingHasRoomAroundItsWords) {
    ShowAsWished({}, before_);
    QApplication::setStyle(new ContrastStyle(QStyleFactory::create("Fusion")));
    QMenu menu;
    QAction* const heading = menu.addSection("C160 · element 0 of track 1");
    menu.addAction("Delete");

    EXPECT_GE(menu.actionGeometry(heading).height(), QFontMetrics(menu.font()).height() + 10);
    EXPECT_GE(menu.actionGeometry(heading).top(), 4);
}

TEST_F(DesktopColours, IconsHaveTheColourOfTheWords) {
    const auto inks = [] {
        const QImage image = LineIcon("arrow-up").pixmap(40, 40).toImage();
        QColor darkest;
        int most = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).alpha() > most) {
                    darkest = image.pixelColor(x, y);
                    most = darkest.alpha();
                }
        return darkest.rgb();
    };
    EXPECT_EQ(inks(), before_.color(QPalette::ButtonText).rgb());

    ShowAsWished({.Dark = true}, before_);
    EXPECT_EQ(inks(), qRgb(0xE8, 0xE9, 0xEB));
}

TEST_F(DesktopColours, AButtonOfASignShowsItsIconAndKeepsItsCaption) {
    Open();
    for (const char* const name : {"cmdMvUp", "cmdRotRight", "cmdZoomOut", "cmdFit", "cmdRefresh"}) {
        EXPECT_FALSE(Button(name).icon().pixmap(20, 20).toImage().isNull()) << name;
        EXPECT_FALSE(Button(name).text().isEmpty()) << name;
    }
}

} // namespace
} // namespace pistaro
