// What is told of a circuit that was found.
#include "commands/found_figures.h"

#include "commands/laying_commands.h"
#include "support/chain.h"
#include "support/scripted_prompts.h"
#include "support/stock.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pistaro {
namespace {

class FoundFigures : public testing::Test {
protected:
    std::string Value(const LaidCircuit& circuit, const char* name) {
        const std::vector<CircuitFigure> figures = FiguresOf(session_, BoxOf(Pieces(), "C160=1"), room_, circuit);
        const auto figure = std::ranges::find(figures, name, &CircuitFigure::Name);
        return figure == figures.end() ? "" : figure->Value;
    }

    ScriptedPrompts prompts_;
    Session session_{Pieces(), prompts_, ProjectOf(""), ""};
    Design room_ = EmptyArea({240, 160});
};

TEST_F(FoundFigures, TellInAFewWordsWhatACardHasRoomFor) {
    LaidCircuit circuit;
    circuit.Track = Chain("C160 C160 C160");
    circuit.Used = 0.956;
    circuit.Length = 1234.5;
    session_.Project.Preferences.Units.Currency = "EUR";

    EXPECT_EQ(UseAndLengthText(circuit), "96 % of the box, 12.35 m");
    EXPECT_EQ(PiecesAndPriceText(session_, circuit), "3 pieces") << "the box is what there is";
    SetStock(session_.Project, "C160", 1, 0);
    EXPECT_EQ(PiecesAndPriceText(session_, circuit), "3 pieces, 2 to buy");
    SetStock(session_.Project, "C160", 1, 2.5F);
    EXPECT_EQ(PiecesAndPriceText(session_, circuit), "3 pieces, 5.00 €");
}

TEST_F(FoundFigures, TellTheShapeOfACircuit) {
    LaidCircuit circuit;
    circuit.Track = Chain("C160 C151L C151L C151L C151L C160 C160 C151L C151L C151L C151L C160");

    // Four curves of 45 degrees turn round on twice 29.725 cm, the outer radius of which is 37.4.
    EXPECT_EQ(Value(circuit, "Ground"), "75 × 145 cm");
    EXPECT_EQ(Value(circuit, "Straight"), "0.70 m the longest");
    EXPECT_EQ(Value(circuit, "Corners"), "2 left, 0 right");
    // Lanes that lie 7.9 cm apart differ by 2 pi times that, once round.
    EXPECT_TRUE(Value(circuit, "Lanes").ends_with(", difference 49.6 cm")) << Value(circuit, "Lanes");
}

TEST_F(FoundFigures, WarnOfALapCounterWhoseBoxStandsInAWall) {
    LaidCircuit circuit;
    circuit.Track = Chain("C277");
    EXPECT_EQ(WallWarning(session_, room_, circuit), "");
    EXPECT_EQ(Value(circuit, "Mind"), "");

    circuit.Track.TrackStartX = -110; // its box reaches 12.4 cm beyond that, and the wall is at -120

    EXPECT_EQ(WallWarning(session_, room_, circuit), "box of C277 in a wall");
    EXPECT_EQ(Value(circuit, "Mind"), "The box of C277 in a wall: only its track bed lies inside the room.");
}

TEST_F(FoundFigures, TellTheFiguresOfACircuit) {
    SetStock(session_.Project, "C160", 1, 2.5F);
    session_.Project.Preferences.Units.Currency = "EUR";
    LaidCircuit circuit;
    circuit.Track = Chain("C160 C160 C160");
    circuit.Used = 0.6;
    circuit.Length = 105;

    const std::vector<CircuitFigure> figures = FiguresOf(session_, BoxOf(Pieces(), "C160=3,C151=2"), room_, circuit);

    EXPECT_EQ(figures, (std::vector<CircuitFigure>{{"Box used", "60 %, 3 of 5 pieces"},
                                                   {"Left over", "2 × C151"},
                                                   {"Lap", "1.05 m"},
                                                   {"Lanes", "1.05 m and 1.05 m, difference 0.0 cm"},
                                                   {"Ground", "16 × 105 cm"},
                                                   {"Straight", "1.05 m the longest"},
                                                   {"Corners", "0 left, 0 right"},
                                                   {"To buy", "2 × C160; 5.00 €"}}));
}

TEST_F(FoundFigures, TellWhatLacksAndHasNoPrice) {
    session_.Project.Preferences.Units.Currency = "EUR";
    SetStock(session_.Project, "C160", 3, 2.5F);
    SetStock(session_.Project, "C151L", 0, 0);
    LaidCircuit circuit;
    circuit.Track = Chain("C160 C151L C151R");
    const PieceBox box = BoxOf(Pieces(), "C160=1,C151=2");

    EXPECT_EQ(FiguresOf(session_, box, room_, circuit).back(),
              (CircuitFigure{"To buy", "2 × C151; 0.00 € + 2 without a price"}));
    SetStock(session_.Project, "C151L", 2, 0);
    EXPECT_EQ(FiguresOf(session_, box, room_, circuit).back(), (CircuitFigure{"To buy", "nothing"}));
}

TEST_F(FoundFigures, TellNoSumWhereNothingHasAPrice) {
    LaidCircuit circuit;
    circuit.Track = Chain("C160 C151L C151R");
    const PieceBox box = BoxOf(Pieces(), "C160=1,C151=2");

    EXPECT_EQ(FiguresOf(session_, box, room_, circuit).back(), (CircuitFigure{"To buy", "nothing, if you own the box"}))
        << "nobody has told what he owns";
    SetStock(session_.Project, "C159", 1, 0);
    EXPECT_EQ(FiguresOf(session_, box, room_, circuit).back(),
              (CircuitFigure{"To buy", "2 × C151, C160; price unknown"}));
}

TEST_F(FoundFigures, PriceOnlyWhatIsNotOwned) {
    SetStock(session_.Project, "C160", 3, 2.5F);
    SetStock(session_.Project, "C151L", 4, 4);
    const Track track = Chain("C160 C160 C160 C160 C160 C151L C151R");

    EXPECT_EQ(PriceOfMissing(session_, track), 500);
}

} // namespace
} // namespace pistaro
