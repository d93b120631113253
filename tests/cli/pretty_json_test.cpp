// The reading form in which the cases' expected output is kept.
#include "support/pretty_json.h"

#include <gtest/gtest.h>

namespace pistaro {
namespace {

const std::string Long(90, 'x');

TEST(PrettyJson, LeavesWhatFitsItsLine) {
    EXPECT_EQ(PrettyJson("{\"a\":[1,2],\"b\":{}}\n[]\n"), "{\"a\":[1,2],\"b\":{}}\n[]\n");
}

TEST(PrettyJson, SpreadsWhatDoesNotFitMemberByMember) {
    EXPECT_EQ(PrettyJson("{\"a\":[1,2],\"b\":\"" + Long + "\",\"c\":{\"d\":1.50}}\n"), "{\n"
                                                                                       "  \"a\": [1,2],\n"
                                                                                       "  \"b\": \"" +
                                                                                           Long +
                                                                                           "\",\n"
                                                                                           "  \"c\": {\"d\":1.50}\n"
                                                                                           "}\n");
}

TEST(PrettyJson, LeavesStringsAsTheyAre) {
    const std::string text = R"("a: b, {c} [d] \" \\")";

    EXPECT_EQ(PrettyJson("[" + text + ",\"" + Long + "\"]\n"), "[\n  " + text + ",\n  \"" + Long + "\"\n]\n");
}

TEST(PrettyJson, KeepsDifferentTextsDifferent) {
    const std::string one = PrettyJson("{\"a\":1,\"b\":\"" + Long + "\"}\n");

    EXPECT_NE(PrettyJson("{\"a\":1.0,\"b\":\"" + Long + "\"}\n"), one) << "another number text";
    EXPECT_NE(PrettyJson("{\"b\":\"" + Long + "\",\"a\":1}\n"), one) << "another order";
    EXPECT_NE(PrettyJson("{\"a\":1,\"b\":\"" + Long + "\"}"), one) << "no line feed";
    EXPECT_NE(PrettyJson("{\"a\": 1,\"b\":\"" + Long + "\"}\n"), one) << "a blank";
    EXPECT_NE(PrettyJson(one), one) << "already spread";
}

TEST(PrettyJson, TellsALineWithWhiteSpaceOutsideStrings) {
    EXPECT_EQ(PrettyJson("{\"a\": 1}\n"), "not one line of JSON: {\"a\": 1}\n");
    EXPECT_EQ(PrettyJson("{}\r\n"), "not one line of JSON: {}\r\n");
    EXPECT_EQ(PrettyJson("{}"), "not one line of JSON: {}\n");
}

} // namespace
} // namespace pistaro
