// The shopping list of every sample against the one in lists/, which was counted apart from the program.
#include "stats/shopping_list.h"

#include "storage/circuit_file.h"
#include "storage/settings_file.h"
#include "support/pieces.h"
#include "support/places.h"
#include "support/stock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <set>

namespace pistaro {
namespace {

const std::filesystem::path Samples = SourceFolder() / "samples";
const std::filesystem::path Lists = SourceFolder() / "tests/stats/lists";

/// The names of a folder's files of this ending, without it.
std::set<std::string> NamesIn(const std::filesystem::path& folder, const std::string& ending) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ending) names.insert(entry.path().stem().string());
    }
    return names;
}

/// A shop that has a price for some products.
Project PricedSample(const std::string& name) {
    Project project = StartUp(InitialSettings(Pieces()));
    project.Design.Circuit = ReadCircuit(Samples / (name + ".trk")).Circuit;
    SetStock(project, "C151L", 0, 2.5F);
    SetStock(project, "C153L", 0, 3.25F);
    SetStock(project, "C160", 0, 2);
    SetStock(project, "C8007", 0, 12.5F);
    SetStock(project, "C8010L", 0, 6.5F);
    SetStock(project, "N10102", 0, 4);
    SetStock(project, "N10105L", 0, 5.75F);
    return project;
}

TEST(SampleLists, EverySampleHasOne) { EXPECT_EQ(NamesIn(Lists, ".txt"), NamesIn(Samples, ".trk")); }

TEST(SampleLists, AreTheListsOfTheSamplesPieces) {
    for (const std::string& name : NamesIn(Samples, ".trk")) {
        const Project project = PricedSample(name);

        const Detail all = ShowDetail(Pieces(), project.Stock, project.Design.Circuit, AllTracks, true);
        const std::string list = ShoppingListBytes(Pieces(), project.Stock, project.Preferences.Units, all);

        EXPECT_EQ(list, BytesOf(Lists / (name + ".txt"))) << name;
    }
}

} // namespace
} // namespace pistaro
