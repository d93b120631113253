// The folders of src/ against the lists of src/CMakeLists.txt.
#include "layers/layer_rules.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace pistaro::layers {
namespace {

namespace fs = std::filesystem;

const fs::path Source = SourceFolder() / "src";

std::vector<Layer> Layers() { return LayersOf(BytesOf(Source / "CMakeLists.txt")); }

std::vector<SourceFile> SourceFiles() {
    std::vector<SourceFile> files;
    for (const auto& entry : fs::recursive_directory_iterator(Source)) {
        const std::string ending = entry.path().extension().string();
        if (ending != ".h" && ending != ".cpp") continue;
        files.push_back({entry.path().lexically_relative(Source).generic_string(), BytesOf(entry.path())});
    }
    return files;
}

TEST(Layers, AreListedFromTheLowestUp) {
    ASSERT_GT(Layers().size(), 9U);
    EXPECT_THAT(ListComplaints(Layers()), testing::IsEmpty());
}

TEST(Layers, IncludeWhatTheyListAndListWhatTheyInclude) {
    ASSERT_GT(SourceFiles().size(), 60U);
    EXPECT_THAT(IncludeComplaints(Layers(), SourceFiles()), testing::IsEmpty());
}

TEST(Layers, EachHasItsFolder) {
    for (const Layer& layer : Layers())
        EXPECT_TRUE(fs::is_directory(Source / layer.Name)) << layer.Name;
}

TEST(Layers, EveryHeaderOpensByTellingWhatItIsForAndASourceFileWhereThereIsMoreToTell) {
    for (const SourceFile& file : SourceFiles()) {
        std::istringstream text(file.Text);
        std::size_t comments = 0;
        for (std::string line; std::getline(text, line) && line.starts_with("// ");)
            ++comments;
        EXPECT_GE(comments, file.Name.ends_with(".h") ? 1U : 0U) << file.Name;
        EXPECT_LE(comments, 3U) << file.Name;
    }
}

} // namespace
} // namespace pistaro::layers
