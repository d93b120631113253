#include "checks/mends.h"

#include "checks/balance.h"
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

/// The first plain straight of a track that a piece fits in the place of, or -1.
int PlaceFor(const Catalogue& catalogue, const Track& track, const CatalogueEntry& piece) {
    const auto found = std::ranges::find_if(track.ElementCodes, [&](const std::string& code) {
        const CatalogueEntry* const straight = catalogue.Find(code);
        return straight != nullptr && IsPlainStraight(*straight) && straight->System == piece.System &&
               straight->Kind.Length == piece.Kind.Length && straight->Kind.Width == piece.Kind.Width;
    });
    return found == track.ElementCodes.end() ? -1 : static_cast<int>(found - track.ElementCodes.begin());
}

std::optional<Mend> PutIn(const Catalogue& catalogue, const Design& design, const Stock& stock, int track,
                          PieceMarks marks) {
    Track changed = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    if (!IsMissingHere(catalogue, changed, marks)) return std::nullopt; // there are several
    const CatalogueEntry* best = nullptr;
    for (const CatalogueEntry& piece : catalogue) {
        if (piece.Kind.Marks != marks || !piece.IsStraight() || PlaceFor(catalogue, changed, piece) < 0) continue;
        const bool isOwned = LeftOf(catalogue, design, stock, piece) > 0;
        if (best == nullptr || (isOwned && LeftOf(catalogue, design, stock, *best) <= 0)) best = &piece;
    }
    if (best == nullptr) return std::nullopt;
    const int place = PlaceFor(catalogue, changed, *best);
    std::string& code = changed.ElementCodes[static_cast<std::size_t>(place)];
    const std::string text = best->Code + " in place of " + code + " (" + std::to_string(place) + ")";
    code = best->Code;
    return Mend{"Put One In", text, changed};
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
    constexpr int parts = 24;
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

std::optional<Mend> MoveInside(const Catalogue& catalogue, const Design& design, int track) {
    Track moved = design.Circuit.Tracks[static_cast<std::size_t>(track)];
    const RoomFit room(design.Room);
    const std::vector<Ground> own = GroundsOf(catalogue, moved);
    if (own.empty() || room.Walls().empty()) return std::nullopt;
    const std::vector<Ground> others = GroundsBeside(catalogue, design.Circuit, track);
    const auto isFree = [&](Move move) {
        return std::ranges::all_of(own, [&](const Ground& piece) {
            const Ground ground = Moved(piece, move);
            return room.Holds(ground) &&
                   std::ranges::none_of(others, [&](const Ground& other) { return Overlaps(ground, other); });
        });
    };
    const std::vector<Move> moves = MovesInto(BoxOf(room.Walls()), BoxOf(own));
    const auto free = std::ranges::find_if(moves, isFree);
    if (free == moves.end()) return std::nullopt;
    moved.TrackStartX = static_cast<float>(moved.TrackStartX + free->Right);
    moved.TrackStartY = static_cast<float>(moved.TrackStartY + free->Up);
    return Mend{"Move into the Room", "The whole track moved to where it lies within the room", moved};
}

} // namespace

std::optional<Mend> MendOf(const Catalogue& catalogue, const Design& design, const Stock& stock,
                           const Finding& finding) {
    if (finding.Rule == "lap-counter") return PutIn(catalogue, design, stock, finding.Track, PieceMarks::LapCounter);
    if (finding.Rule == "start-section")
        return PutIn(catalogue, design, stock, finding.Track, PieceMarks::ReverseStart);
    if (finding.Rule == "outside-room") return MoveInside(catalogue, design, finding.Track);
    return std::nullopt;
}

} // namespace pistaro
