#include "checks/mends.h"

#include "checks/balance.h"
#include "checks/check.h"
#include "layout/ground_grid.h"
#include "layout/overlap.h"
#include "layout/room_fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace pistaro {

namespace {

bool IsMissingHere(const Catalogue& catalogue, const Track& track, PieceMarks marks) {
    return std::ranges::none_of(track.ElementCodes, [&](const std::string& code) {
        const CatalogueEntry* const piece = catalogue.Find(code);
        return piece != nullptr && piece->Kind.Marks == marks;
    });
}

/// How many of a product are owned and lie in none of the tracks; below 0 when some must be bought.
std::ptrdiff_t LeftOf(const Catalogue& catalogue, const Design& design, const Stock& stock,
                      const CatalogueEntry& product) {
    std::ptrdiff_t left = stock[product.StockIndex].OwnedCount;
    for (const Track& track : design.Circuit.Tracks)
        left -= std::ranges::count_if(track.ElementCodes, [&](const std::string& code) {
            const CatalogueEntry* const piece = catalogue.Find(code);
            return piece != nullptr && piece->StockIndex == product.StockIndex;
        });
    return left;
}

/// Whether the code is that of a plain straight that a piece fits in the place of.
bool FitsInPlaceOf(const Catalogue& catalogue, const CatalogueEntry& piece, const std::string& code) {
    const CatalogueEntry* const straight = catalogue.Find(code);
    return straight != nullptr && IsPlainStraight(*straight) && straight->System == piece.System &&
           straight->Kind.Length == piece.Kind.Length && straight->Kind.Width == piece.Kind.Width;
}

/// The first element of a track that a piece fits in the place of, or -1.
int PlaceFor(const Catalogue& catalogue, const Track& track, const CatalogueEntry& piece) {
    const auto found = std::ranges::find_if(
        track.ElementCodes, [&](const std::string& code) { return FitsInPlaceOf(catalogue, piece, code); });
    return found == track.ElementCodes.end() ? -1 : static_cast<int>(found - track.ElementCodes.begin());
}

Mend Exchanged(const char* caption, Circuit circuit, PieceAddress place, const CatalogueEntry& piece) {
    std::string& code =
        circuit.Tracks[static_cast<std::size_t>(place.Track)].ElementCodes[static_cast<std::size_t>(place.Element)];
    const std::string text = piece.Code + " in place of " + code + " (" + std::to_string(place.Element) + ")";
    code = piece.Code;
    return {caption, text, std::move(circuit)};
}

std::optional<Mend> PutIn(const Catalogue& catalogue, const Design& design, const Stock& stock, int track,
                          PieceMarks marks) {
    const Track& of = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    if (!IsMissingHere(catalogue, of, marks)) return std::nullopt; // there are several
    const CatalogueEntry* best = nullptr;
    for (const CatalogueEntry& piece : catalogue) {
        if (piece.Kind.Marks != marks || !piece.IsStraight() || PlaceFor(catalogue, of, piece) < 0) continue;
        const bool isOwned = LeftOf(catalogue, design, stock, piece) > 0;
        if (best == nullptr || (isOwned && LeftOf(catalogue, design, stock, *best) <= 0)) best = &piece;
    }
    if (best == nullptr) return std::nullopt;
    return Exchanged("Put One In", design.Circuit, {track, PlaceFor(catalogue, of, *best)}, *best);
}

bool OverlapsAnother(const Catalogue& catalogue, const Design& design, PieceAddress place) {
    return std::ranges::any_of(CheckDesign(catalogue, design, Stock(), {}), [&](const Finding& finding) {
        const std::vector<PieceAddress> places = PiecesOf(finding);
        return finding.Rule == "overlap" && std::ranges::find(places, place) != places.end();
    });
}

/// Of two pieces alone: of more that overlap a bridge leaves some.
std::optional<Mend> PutBridgeIn(const Catalogue& catalogue, const Design& design, const Finding& finding) {
    const auto bridge = std::ranges::find_if(catalogue, [](const CatalogueEntry& piece) { return piece.IsBridge(); });
    const std::vector<PieceAddress> places = PiecesOf(finding);
    if (places.size() != 2) return std::nullopt;
    for (const PieceAddress place : places) {
        const Track& track = design.Circuit.Tracks[static_cast<std::size_t>(place.Track)];
        if (!FitsInPlaceOf(catalogue, *bridge, track.ElementCodes[static_cast<std::size_t>(place.Element)])) continue;
        Mend mend = Exchanged("Put a Bridge In", design.Circuit, place, *bridge);
        Design changed = design;
        changed.Circuit = mend.Circuit;
        if (!OverlapsAnother(catalogue, changed, place)) return mend;
    }
    return std::nullopt;
}

/// A way to move, cm.
struct Move {
    double Right = 0, Up = 0;

    double Length() const { return std::hypot(Right, Up); }
};

Ground Moved(Ground ground, Move move) {
    const auto shift = [&](GroundPoint& point) { point = {point.X + move.Right, point.Y + move.Up}; };
    std::ranges::for_each(ground.Corners, shift);
    shift(ground.Centre);
    ground.Box = {ground.Box.Left + move.Right, ground.Box.Right + move.Right, ground.Box.Bottom + move.Up,
                  ground.Box.Top + move.Up};
    return ground;
}

GroundBox BoxOf(const std::vector<Ground>& grounds) {
    return std::accumulate(grounds.begin() + 1, grounds.end(), grounds.front().Box,
                           [](const GroundBox& box, const Ground& ground) { return box.Joined(ground.Box); });
}

GroundBox BoxOf(const std::vector<Wall>& walls) {
    const auto boxOf = [](const Wall& wall) {
        return GroundBox{std::min(wall.From.X, wall.To.X), std::max(wall.From.X, wall.To.X),
                         std::min(wall.From.Y, wall.To.Y), std::max(wall.From.Y, wall.To.Y)};
    };
    return std::accumulate(walls.begin() + 1, walls.end(), boxOf(walls.front()),
                           [&](const GroundBox& box, const Wall& wall) { return box.Joined(boxOf(wall)); });
}

/// Some of the distances from least to greatest by which something may be moved, whole cm where there are such: the
/// shortest one, and others spread over all. Free of the walls' neighbourhood where there is room. None where least is
/// the greater.
std::vector<double> Distances(double least, double greatest) {
    constexpr double aside = 5; // cm from the walls, at which no check warns of them
    constexpr int parts = 32;
    if (least > greatest) return {};
    if (greatest - least >= 2 * aside) {
        least += aside;
        greatest -= aside;
    }
    if (std::ceil(least) <= std::floor(greatest)) {
        least = std::ceil(least);
        greatest = std::floor(greatest);
    }
    std::vector<double> distances{std::clamp(0.0, least, greatest)};
    const double step = std::max(1.0, std::ceil((greatest - least) / parts));
    distances.reserve(parts + 2);
    for (int i = 0; least + i * step <= greatest; ++i)
        distances.push_back(least + i * step);
    return distances;
}

/// All of them in both directions, the shortest way first.
std::vector<Move> MovesInto(const GroundBox& room, const GroundBox& box) {
    const std::vector<double> rights = Distances(room.Left - box.Left, room.Right - box.Right);
    const std::vector<double> ups = Distances(room.Bottom - box.Bottom, room.Top - box.Top);
    std::vector<Move> moves;
    moves.reserve(rights.size() * ups.size());
    for (const double right : rights) {
        for (const double up : ups)
            moves.push_back({right, up});
    }
    std::ranges::stable_sort(moves, {}, &Move::Length);
    return moves;
}

/// The shortest way found to move what lies outside the room to where all of it lies inside, and over nothing else.
std::optional<Move> WayInside(const RoomFit& room, const std::vector<Ground>& own, const GroundGrid& others) {
    if (own.empty() || room.Walls().empty()) return std::nullopt;
    const auto isFree = [&](Move move) {
        return std::ranges::all_of(own, [&](const Ground& piece) {
            const Ground ground = Moved(piece, move);
            return room.Holds(ground) && others.ForEachMeeting(ground.Box, [&](int, const Ground& other) {
                return !Overlaps(ground, other);
            });
        });
    };
    const std::vector<Move> moves = MovesInto(BoxOf(room.Walls()), BoxOf(own));
    const auto free = std::ranges::find_if(moves, isFree);
    return free == moves.end() ? std::nullopt : std::optional(*free);
}

void Shift(Track& track, Move move) {
    track.TrackStartX = static_cast<float>(track.TrackStartX + move.Right);
    track.TrackStartY = static_cast<float>(track.TrackStartY + move.Up);
}

std::optional<Mend> MoveInside(const Catalogue& catalogue, const Design& design, int track) {
    const RoomFit room(design.Room);
    Circuit moved = design.Circuit;
    Track& own = moved.Tracks[static_cast<std::size_t>(track)];
    const std::vector<Ground> ownGrounds = GroundsOf(catalogue, own);
    const std::vector<Ground> others = GroundsBeside(catalogue, design.Circuit, track);
    if (const auto way = WayInside(room, ownGrounds, GroundGrid(others))) {
        Shift(own, *way);
        return Mend{"Move into the Room", "The whole track moved to where it lies within the room", moved};
    }
    std::vector<Ground> all = ownGrounds;
    all.insert(all.end(), others.begin(), others.end());
    const auto way = WayInside(room, all, GroundGrid(std::vector<Ground>()));
    if (!way) return std::nullopt;
    for (Track& one : moved.Tracks) {
        if (!one.ElementCodes.empty()) Shift(one, *way);
    }
    return Mend{"Move into the Room", "All tracks moved together to where they lie within the room", moved};
}

} // namespace

std::optional<Mend> MendOf(const Catalogue& catalogue, const Design& design, const Stock& stock,
                           const Finding& finding) {
    const bool isOfFormer = std::ranges::any_of(PiecesOf(finding), [&](PieceAddress place) {
        return place.Element > design.Circuit.Tracks[static_cast<std::size_t>(place.Track)].ElementLastIndex();
    });
    if (isOfFormer) return std::nullopt;
    if (finding.Rule == "lap-counter") return PutIn(catalogue, design, stock, finding.Track, PieceMarks::LapCounter);
    if (finding.Rule == "start-section")
        return PutIn(catalogue, design, stock, finding.Track, PieceMarks::ReverseStart);
    if (finding.Rule == "overlap") return PutBridgeIn(catalogue, design, finding);
    if (finding.Rule == "outside-room") return MoveInside(catalogue, design, finding.Track);
    return std::nullopt;
}

} // namespace pistaro
