#include "support/closed_circuits.h"

#include "layout/track_gap.h"
#include "support/pieces.h"
#include "support/plain_closing.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pistaro {

namespace {

constexpr std::array Scalextric{"C160",  "C160",  "C159",  "C158",  "C157",  "C151L", "C151R", "C152L", "C152R",
                                "C153L", "C153R", "C154L", "C154R", "C156L", "C156R", "C187L", "C187R"};
constexpr std::array Ninco{"N10102",  "N10102",  "N10103",  "N10104",  "N10105L", "N10105R",
                           "N10106L", "N10106R", "N10107L", "N10107R", "N10108L", "N10108R"};

template <std::size_t Count>
std::string OneOf(SeededNumbers& numbers, const std::array<const char*, Count>& codes) {
    return codes[static_cast<std::size_t>(numbers.Below(Count))];
}

std::vector<std::string> RandomPieces(SeededNumbers& numbers, Systems systems) {
    std::vector<std::string> codes;
    bool isNinco = systems == Systems::Ninco;
    const int count = 5 + numbers.Below(10);
    while (static_cast<int>(codes.size()) < count) {
        const bool mayChange = systems == Systems::Both && !codes.empty() && codes.back() != "N10110";
        if (mayChange && numbers.Below(4) == 0) {
            codes.push_back("N10110");
            isNinco = !isNinco;
            continue;
        }
        std::string code = isNinco ? OneOf(numbers, Ninco) : OneOf(numbers, Scalextric);
        if (code.back() == 'R' && numbers.Below(3) != 0) code.back() = 'L';
        codes.push_back(std::move(code));
    }
    return codes;
}

bool IsHalfALap(const std::vector<std::string>& codes, Systems systems) {
    double turn = 0;
    for (const std::string& code : codes) {
        const PieceKind& kind = Pieces().Find(code)->Kind;
        if (kind.Shape != PieceShape::Straight) turn += kind.Shape == PieceShape::LeftCurve ? kind.Turn : -kind.Turn;
    }
    const auto adapters = std::ranges::count(codes, "N10110");
    const bool changes = adapters > 0 && adapters % 2 == 0 && codes.back() != "N10110";
    return std::fabs(std::fabs(turn) - 3.14159) < 0.01 && (systems != Systems::Both || changes);
}

BuildCursor CursorBefore(const Track& track, int element) {
    BuildCursor cursor;
    WalkTrack(Pieces(), track, [&](int index, const PiecePlacement*, const BuildCursor& entry) {
        if (index == element) cursor = entry;
    });
    return cursor;
}

/// A rectangle around a track, with so much to spare on each side.
std::vector<RoomPoint> RoomAround(const Track& track, int spare) {
    double left = 1e9;
    double right = -1e9;
    double bottom = 1e9;
    double top = -1e9;
    for (const Ground& ground : GroundsOf(track)) {
        left = std::min(left, ground.Box.Left);
        right = std::max(right, ground.Box.Right);
        bottom = std::min(bottom, ground.Box.Bottom);
        top = std::max(top, ground.Box.Top);
    }
    const auto down = [&](double x) { return static_cast<std::int16_t>(std::floor(x) - spare); };
    const auto up = [&](double x) { return static_cast<std::int16_t>(std::ceil(x) + spare); };
    return {{down(left), down(bottom), 0},
            {up(right), down(bottom), 1},
            {up(right), up(top), 1},
            {down(left), up(top), 1},
            {down(left), down(bottom), 1}};
}

} // namespace

Track ClosedTrack(SeededNumbers& numbers, Systems systems) {
    for (;;) {
        Track track;
        track.ElementCodes = RandomPieces(numbers, systems);
        if (!IsHalfALap(track.ElementCodes, systems)) continue;
        const std::vector<std::string> half = track.ElementCodes;
        track.ElementCodes.insert(track.ElementCodes.end(), half.begin(), half.end());
        track.TrackStartX = static_cast<float>(numbers.Below(200) - 100);
        track.TrackStartY = static_cast<float>(numbers.Below(200) - 100);
        track.TrackStartHeading = static_cast<float>(numbers.Below(32)) * 0.19634953F;
        if (GapOf(Pieces(), track).Distance < 0.02F && IsFreeOfOverlaps(track)) return track;
    }
}

Track CutOpen(const Track& closed, int at, int count) {
    const int size = closed.ElementLastIndex() + 1;
    const BuildCursor start = CursorBefore(closed, (at + count) % size);
    Track open;
    for (int i = 0; i < size - count; ++i)
        open.ElementCodes.push_back(closed.ElementCodes[static_cast<std::size_t>((at + count + i) % size)]);
    open.TrackStartX = start.CursorX;
    open.TrackStartY = start.CursorY;
    open.TrackStartHeading = start.CursorHeading;
    return open;
}

CutCircuit RandomCut(SeededNumbers& numbers, int most) {
    for (;;) {
        const auto systems = static_cast<Systems>(numbers.Below(3));
        const Track closed = ClosedTrack(numbers, systems);
        const int size = closed.ElementLastIndex() + 1;
        const int cut = 1 + numbers.Below(std::min(most, size - 2));
        const Track open = CutOpen(closed, numbers.Below(size), cut);
        // Begun with an adapter, a track takes it for one that leads to Ninco.
        if (open.ElementCodes.front() == "N10110") continue;
        CutCircuit circuit;
        circuit.Cut = cut;
        circuit.Open.Design.Circuit.Tracks[0] = open;
        if (numbers.Below(2) == 0) circuit.Open.Design.Room.Points = RoomAround(closed, numbers.Below(40));
        for (const int row : Pieces().ProductRows())
            circuit.Open.Stock.Of(row) = {static_cast<std::int16_t>(numbers.Below(12)),
                                          static_cast<float>(numbers.Below(80)) / 4};
        return circuit;
    }
}

} // namespace pistaro
