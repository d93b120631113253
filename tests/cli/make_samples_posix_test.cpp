// The sample circuits are what their scripts build; a shell script builds them.
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace pistaro {
namespace {

TEST(Samples, AreRebuiltByTheirScriptsByteForByte) {
    const TemporaryFolder folder;
    const std::string make = "\"" + (SourceFolder() / "samples/make").string() + "\" \"" + Program() + "\" \"" +
                             folder.Path().string() + "\"";
    ASSERT_EQ(std::system(make.c_str()), 0); // NOLINT(cert-env33-c): the program under test is run as a user runs it

    for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / "samples")) {
        const auto& file = entry.path();
        if (file.extension() != ".trk") continue;
        EXPECT_EQ(BytesOf(folder / file.filename().string()), BytesOf(file)) << file;
    }
}

} // namespace
} // namespace pistaro
