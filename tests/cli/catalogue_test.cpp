// The catalogue document of the built program.
#include "support/run_program.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace pistaro {

using testing::HasSubstr;
using testing::StartsWith;

TEST(CatalogueVerb, PrintsEachRowsKeysInTheirOrder) {
    const Finished finished = ProgramFolder().Run({"catalogue", "--json"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(finished.Errors, "");
    // Lanes of the first row: 25.6 and 33.5 times an eighth turn of the constant, as the nearest singles.
    EXPECT_THAT(finished.Output, StartsWith(R"({"rows":[{"row":0,"code":"C151L","system":1,"shortName":"std left crv",)"
                                            R"("longName":"standard curve 45°","shape":0,"stock":0,"lane1":20.10619,)"
                                            R"("lane2":26.310835,"laneChange":false},{"row":1,"code":"C151R",)"));
    EXPECT_THAT(finished.Output,
                HasSubstr(R"({"row":10,"code":"C157","system":1,"shortName":"short strght",)"
                          R"("longName":"short straight","shape":10,"stock":10,"lane1":7.65625,"lane2":7.65625,)"
                          R"("laneChange":false})"));
    EXPECT_THAT(finished.Output,
                testing::EndsWith(R"({"row":38,"code":"N10111","system":2,"shortName":"change over section",)"
                                  R"("longName":"Ninco change-over","shape":16,"stock":38,"lane1":42.5,"lane2":42.5,)"
                                  R"("laneChange":true}]})"
                                  "\n"));
}

TEST(CatalogueVerb, PrintsThirtyNineRows) {
    const auto catalogue = nlohmann::json::parse(ProgramFolder().Run({"catalogue", "--json"}).Output);

    EXPECT_EQ(catalogue["rows"].size(), 39U);
}

TEST(CatalogueVerb, PrintsATableForAPerson) {
    const Finished finished = ProgramFolder().Run({"catalogue"});

    EXPECT_EQ(finished.ExitStatus, 0);
    EXPECT_EQ(std::ranges::count(finished.Output, '\n'), 40);
    EXPECT_THAT(finished.Output, HasSubstr("C151L     Scalextric  20.106   26.311   standard curve 45°\n"));
    EXPECT_THAT(finished.Output,
                HasSubstr("C8006     Scalextric  37.000   37.000   change over track, lanes change\n"));
}

} // namespace pistaro
