// The rules themselves, on made-up layers.
#include "layers/layer_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pistaro::layers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<Layer> House{{"cellar", {}}, {"hall", {"cellar", "Stone::Stone"}}};

Complaints About(const std::string& file, const std::string& text) {
    // The hall uses the cellar as its list says, whatever else is included.
    return IncludeComplaints(House, {{"hall/door.cpp", "#include \"cellar/wine.h\"\n"}, {file, text}});
}

TEST(LayerRules, AListIsReadOverLinesAndWithoutComments) {
    const std::vector<Layer> layers = LayersOf("# pistaro_layer(attic)\n"
                                               "pistaro_layer(cellar)\n"
                                               "pistaro_layer(hall USES cellar # cold\n"
                                               "    Stone::Stone)\n"
                                               "add_executable(house main.cpp)\n");

    ASSERT_EQ(layers.size(), 2U);
    EXPECT_EQ(layers[0].Name, "cellar");
    EXPECT_THAT(layers[0].Uses, IsEmpty());
    EXPECT_EQ(layers[1].Name, "hall");
    EXPECT_THAT(layers[1].Uses, ElementsAre("cellar", "Stone::Stone"));
}

TEST(LayerRules, AListThatNamesEarlierLayersIsFine) { EXPECT_THAT(ListComplaints(House), IsEmpty()); }

TEST(LayerRules, ALaterLayerItselfAndAMisspeltOneAreNoEarlierLayers) {
    EXPECT_THAT(ListComplaints({{"cellar", {"hall"}}, {"hall", {"hall", "celar"}}}),
                ElementsAre("cellar uses no earlier layer: hall", "hall uses no earlier layer: hall",
                            "hall uses no earlier layer: celar"));
}

TEST(LayerRules, NothingIsListedTwice) {
    EXPECT_THAT(ListComplaints({{"cellar", {}}, {"cellar", {}}, {"hall", {"cellar", "cellar"}}}),
                ElementsAre("listed twice: cellar", "hall lists twice: cellar"));
}

TEST(LayerRules, TheToolkitIsLinkedInItsFoldersAlone) {
    EXPECT_THAT(ListComplaints({{"hall", {"Qt6::Gui"}}, {"imaging", {"Qt6::Gui"}}, {"ui", {"Qt6::Widgets"}}}),
                ElementsAre("hall links the toolkit: Qt6::Gui"));
}

TEST(LayerRules, AListedLayerTheOwnOneTheVersionAndTheStandardLibraryMayBeIncluded) {
    EXPECT_THAT(About("hall/key.h", "#include \"cellar/wine.h\"\n#include \"hall/door.h\"\n#include \"version.h\"\n"
                                    "#include <cellar>\n"),
                IsEmpty());
}

TEST(LayerRules, AnIncludeOfALayerThatIsNotListedIsFound) {
    EXPECT_THAT(About("cellar/wine.cpp", "// red\n  #  include \"hall/door.h\" // upward\n"),
                ElementsAre("cellar/wine.cpp: hall/door.h is of a layer that is not listed"));
    EXPECT_THAT(About("hall/key.h", "#include \"attic/box.h\"\n"),
                ElementsAre("hall/key.h: attic/box.h is of a layer that is not listed"));
}

TEST(LayerRules, AnIncludeThatIsNotWrittenFromTheTopIsFound) {
    EXPECT_THAT(About("hall/key.h", "#include \"door.h\"\n"),
                ElementsAre("hall/key.h: door.h is not written from src/"));
}

TEST(LayerRules, AListedLayerThatNoFileIncludesIsFound) {
    EXPECT_THAT(IncludeComplaints(House, {{"hall/door.cpp", "// #include \"cellar/wine.h\"\n"}}),
                ElementsAre("hall lists what no file of it includes: cellar"));
}

TEST(LayerRules, AToolkitHeaderOutsideItsFoldersIsFound) {
    EXPECT_THAT(
        About("hall/key.h", "#include <QString>\n#include <QtGui>\n#include <QtCore/QFile>\n#include <qwidget.h>\n"),
        ElementsAre("hall/key.h: QString is the toolkit's", "hall/key.h: QtGui is the toolkit's",
                    "hall/key.h: QtCore/QFile is the toolkit's", "hall/key.h: qwidget.h is the toolkit's"));
    EXPECT_THAT(IncludeComplaints({{"imaging", {}}, {"ui", {}}}, {{"imaging/a.cpp", "#include <QImage>\n"},
                                                                  {"ui/b.cpp", "#include <QWidget>\n"},
                                                                  {"main.cpp", "#include <QWidget>\n"}}),
                IsEmpty());
}

TEST(LayerRules, MainMayIncludeEveryLayerAndNoOther) {
    EXPECT_THAT(About("main.cpp", "#include \"hall/door.h\"\n#include \"cellar/wine.h\"\n#include \"attic/box.h\"\n"),
                ElementsAre("main.cpp: attic/box.h is of a layer that is not listed"));
}

TEST(LayerRules, AFileInNoLayerIsFound) {
    EXPECT_THAT(About("attic/box.cpp", ""), ElementsAre("attic/box.cpp stands in no layer"));
    EXPECT_THAT(About("other.cpp", ""), ElementsAre("other.cpp stands in no layer"));
}

} // namespace
} // namespace pistaro::layers
