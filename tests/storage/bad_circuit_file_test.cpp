// Circuit files that are refused, each with its line and the reason.
#include "storage/circuit_file.h"

#include "storage/circuit_file_texts.h"
#include "support/fault_of.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pistaro {
namespace {

std::string FaultIn(const std::string& bytes) {
    return FaultOf([&] { ParseCircuit(bytes, "x.trk"); });
}

TEST(BadCircuitFile, ThatEndsEarlyNamesTheLineThatIsMissing) {
    const std::vector<std::string> lines = LinesOf(EmptyFile);
    const std::vector<std::string> missing{"[Settings]",
                                           "the centre X",
                                           "the centre Y",
                                           "the current X",
                                           "the current Y",
                                           "the window width",
                                           "the largest displacement",
                                           "[Room]",
                                           "the number of room points",
                                           "the room angle",
                                           "[Track 0]",
                                           "the start X of track 1",
                                           "the start Y of track 1",
                                           "the start angle of track 1",
                                           "the start X of track 2",
                                           "the start X of track 2",
                                           "the start Y of track 2",
                                           "the start angle of track 2",
                                           "the start X of track 3",
                                           "the start X of track 3",
                                           "the start Y of track 3",
                                           "the start angle of track 3"};
    ASSERT_EQ(missing.size(), lines.size());
    for (std::size_t kept = 0; kept < lines.size(); ++kept) {
        const std::string bytes = Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)});

        EXPECT_EQ(FaultIn(bytes), "Input past end of file: x.trk, line " + std::to_string(kept + 1) + ": " +
                                      missing[kept] + " is missing");
    }
}

TEST(BadCircuitFile, ThatEndsAmongTheRoomPointsNamesThePoint) {
    const std::vector<std::string> lines = LinesOf(FullFile);

    EXPECT_EQ(FaultIn(Joined({lines.begin(), lines.begin() + 11})),
              "Input past end of file: x.trk, line 12: room point 3 is missing");
}

TEST(BadCircuitFile, ThatIsBinaryIsToldSo) {
    EXPECT_EQ(FaultIn(std::string("\x89PNG\r\n\x1A\n\0\0", 10)),
              "Bad file format: x.trk, line 2: this is not a text file");
    EXPECT_EQ(FaultIn(std::string("\x7F"
                                  "ELF\x02\x01\x01\0",
                                  8)),
              "Bad file format: x.trk, line 1: this is not a text file");
    EXPECT_EQ(FaultIn(FullFile + std::string(1, '\0')), "Bad file format: x.trk, line 31: this is not a text file");
}

TEST(BadCircuitFile, WithA502ndElementIsRefusedAtIt) {
    std::string bytes = EmptyFile;
    std::string elements;
    for (int i = 0; i < 502; ++i)
        elements += "C160\r\n";
    bytes.insert(bytes.find("[Track 1]"), elements);

    EXPECT_EQ(FaultIn(bytes), "Subscript out of range: x.trk, line 516: a track holds at most 501 elements");
}

TEST(BadCircuitFile, WithTooManyOrTooFewRoomPointsIsRefused) {
    EXPECT_EQ(FaultIn(FullFileWith(9, " 21 ")),
              "Subscript out of range: x.trk, line 9: a room has 0 to 20 points, not 21");
    EXPECT_EQ(FaultIn(FullFileWith(9, "-1 ")),
              "Subscript out of range: x.trk, line 9: a room has 0 to 20 points, not -1");
    EXPECT_EQ(FaultIn(FullFileWith(9, "1E300")),
              "Subscript out of range: x.trk, line 9: a room has 0 to 20 points, not 1E+300");
}

TEST(BadCircuitFile, WithARoomValueBeyond16BitsIsRefused) {
    EXPECT_EQ(FaultIn(FullFileWith(10, "     32768         0    1")),
              "Overflow: x.trk, line 10: 32768 is outside 16 bits");
    EXPECT_EQ(FaultIn(FullFileWith(11, "         0    -32769    1")),
              "Overflow: x.trk, line 11: -32769 is outside 16 bits");
    EXPECT_EQ(FaultIn(FullFileWith(12, "         0         099999")),
              "Overflow: x.trk, line 12: 99999 is outside 16 bits");
}

TEST(BadCircuitFile, WithANumberThatIsNotFiniteIsRefused) {
    EXPECT_EQ(FaultIn(FullFileWith(2, "1E999")), "Overflow: x.trk, line 2: the number is too large");
    EXPECT_EQ(FaultIn(FullFileWith(6, "-1D39")), "Overflow: x.trk, line 6: the number is too large");
    EXPECT_EQ(FaultIn(FullFileWith(9, "1E999")), "Overflow: x.trk, line 9: the number is too large");
    EXPECT_EQ(FaultIn(FullFileWith(15, "1E39")), "Overflow: x.trk, line 15: the number is too large");
}

TEST(BadCircuitFile, WithAViewBeyondTheScrollBarsIsRefusedAtItsLine) {
    for (const std::size_t line : {2U, 3U, 4U, 5U, 7U}) {
        EXPECT_EQ(FaultIn(FullFileWith(line, "2E9")),
                  "Overflow: x.trk, line " + std::to_string(line) + ": a scroll bar cannot stand at 2E+09");
    }
}

TEST(BadCircuitFile, OnDiskIsNamedByItsPath) {
    const TemporaryFolder folder;
    WriteBytes(folder / "empty.trk", "");
    WriteBytes(folder / "large.trk", EmptyFile + std::string(4 << 20, ' '));

    EXPECT_EQ(FaultOf([&] { ReadCircuit(folder / "empty.trk"); }),
              "Input past end of file: " + (folder / "empty.trk").string() + ", line 1: [Settings] is missing");
    EXPECT_EQ(FaultOf([&] { ReadCircuit(folder / "large.trk"); }),
              "File too large: " + (folder / "large.trk").string());
    EXPECT_EQ(FaultOf([&] { ReadCircuit(folder / "none.trk"); }), "File not found: " + (folder / "none.trk").string());
}

} // namespace
} // namespace pistaro
