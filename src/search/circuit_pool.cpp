#include "search/circuit_pool.h"

#include "layout/built_lanes.h"
#include "layout/exit.h"
#include "search/same_circuit.h"
#include "search/special_pieces.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr int QuarterTurn = HeadingCount / 4; ///< in headings

/// The place at which a circuit begins best: on a straight, the start's own piece or the first of the longest stretch.
std::size_t BestBeginning(const Catalogue& catalogue, const Rows& rows) {
    const auto startPiece =
        std::ranges::find_if(rows, [&](int row) { return catalogue[row].Kind.Marks == PieceMarks::ReverseStart; });
    if (startPiece != rows.end()) return static_cast<std::size_t>(startPiece - rows.begin());
    const std::size_t count = rows.size();
    std::size_t best = 0;
    double longest = -1;
    for (std::size_t first = 0; first < count; ++first) {
        const auto at = [&](std::size_t place) -> const CatalogueEntry& { return catalogue[rows[place % count]]; };
        const auto isPlain = [&](std::size_t place) { return at(place).IsStraight() && !at(place).JoinsSystems(); };
        if (!isPlain(first) || isPlain(first + count - 1)) continue;
        double length = 0;
        for (std::size_t place = first; place < first + count && isPlain(place); ++place)
            length += at(place).Kind.Length;
        if (length > longest) {
            longest = length;
            best = first;
        }
    }
    // Without straights: not on an adapter, whose way round the piece before it decides.
    while (catalogue[rows[best]].JoinsSystems())
        ++best;
    return best;
}

/// The heading within a quarter turn, seen from the first piece's, that the longest straights have or are across to.
int MainDirection(const Catalogue& catalogue, const Rows& rows) {
    std::array<double, QuarterTurn> lengths{};
    Pose pose;
    for (const int row : rows) {
        if (catalogue[row].IsStraight())
            lengths[static_cast<std::size_t>(NearestPose(pose).Heading % QuarterTurn)] += catalogue[row].Kind.Length;
        pose = ExitOf(catalogue[row].Kind, pose);
    }
    return static_cast<int>(std::ranges::max_element(lengths) - lengths.begin());
}

/// Where the first `count` of the pieces lead to.
SearchPose PoseBehind(const Catalogue& catalogue, const Rows& rows, std::size_t count, const BuildCursor& start) {
    Pose pose = start;
    for (std::size_t place = 0; place < count; ++place)
        pose = ExitOf(catalogue[rows[place]].Kind, pose);
    return NearestPose(pose);
}

/// Rotates the circuit to begin with the part that is kept, which it holds.
void BeginOnKept(const std::vector<int>& kept, Rows& rows) {
    const std::size_t count = rows.size();
    for (std::size_t first = 0; first < count; ++first) {
        const auto isThere = [&] {
            for (std::size_t i = 0; i < kept.size(); ++i) {
                if (rows[(first + i) % count] != kept[i]) return false;
            }
            return true;
        };
        if (!isThere()) continue;
        std::rotate(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(first), rows.end());
        return;
    }
}

} // namespace

CircuitPool::CircuitPool(const Catalogue& catalogue, const LayingTask& task, const LoopRoom& room)
    : catalogue_(catalogue), task_(task), room_(room) {
    for (const Rows& rows : task.LeftOut)
        keys_.insert(CircuitKey(catalogue, rows));
    if (task.Varied) varied_ = LookOf(catalogue, task.Varied->Rows);
}

bool CircuitPool::Add(const Rows& loopRows, const SearchPose& start, double tolerance) {
    std::vector<int> key = CircuitKey(catalogue_, loopRows);
    if (keys_.contains(key) || loopRows.size() > MaxElements) return false;
    Rows plain = loopRows;
    if (task_.Kept) BeginOnKept(task_.Kept->Rows, plain);
    auto rows = WithSpecialPieces(catalogue_, task_.Box, plain, task_.Kept ? task_.Kept->Rows.size() : 0);
    if (!rows || !HasAll(catalogue_, *rows, task_.MustHave)) return false;
    const auto laid = LaidInRoom(std::move(*rows), start, tolerance);
    if (!laid) return false;
    keys_.insert(std::move(key));
    found_.push_back(CircuitOf(*laid));
    CountWhole(found_.back());
    return true;
}

void CircuitPool::CountWhole(const FoundCircuit& found) {
    if (found.Circuit.Used < 1) return;
    ++whole_;
    const auto isLike = [&](const CircuitLook& known) { return LookAlike(known, found.Look); };
    if (std::ranges::none_of(looksOfWhole_, isLike)) looksOfWhole_.push_back(found.Look);
}

bool CircuitPool::HasWhole(int wanted) const {
    return static_cast<int>(looksOfWhole_.size()) >= wanted || HasManyWhole(wanted);
}

bool CircuitPool::HasManyWhole(int wanted) const {
    constexpr int many = 8;
    return whole_ >= many * wanted;
}

/// The circuit as it lies, free of faults, where there is a place for it.
std::optional<CircuitPool::Laid> CircuitPool::LaidInRoom(Rows rows, const SearchPose& start, double tolerance) const {
    const auto cursor = task_.Kept ? std::optional(task_.Kept->At) : Placed(rows, start);
    if (!cursor) return std::nullopt;
    LaidLoop laid = LayLoop(catalogue_, rows, *cursor);
    if (!IsClosed(laid, tolerance) || OverlapsItself(laid, {}) || !room_.Holds(laid)) return std::nullopt;
    return Laid{std::move(rows), *cursor, std::move(laid)};
}

/// Begins the circuit where it begins best, and gives its place in the room: along the walls where it fits so.
std::optional<BuildCursor> CircuitPool::Placed(Rows& rows, const SearchPose& start) const {
    const std::size_t first = BestBeginning(catalogue_, rows);
    const SearchPose grown = PoseBehind(catalogue_, rows, first, Loop{{}, start}.Cursor());
    std::rotate(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(first), rows.end());
    const int along = HeadingCount - MainDirection(catalogue_, rows); // by which most straights lie along the walls
    const int aslant = (grown.Heading - along + HeadingCount + QuarterTurn / 2) % QuarterTurn - QuarterTurn / 2;
    const int nearest = (grown.Heading - aslant + HeadingCount) % HeadingCount;
    const int next = (nearest + QuarterTurn) % HeadingCount;
    for (const int heading : {nearest, next}) {
        if (const auto cursor = PlacedBy(rows, {grown.X, grown.Y, heading})) return cursor;
    }
    return aslant == 0 ? std::nullopt : PlacedBy(rows, grown);
}

/// Its place in the room by this heading: in the middle where there is room around it.
std::optional<BuildCursor> CircuitPool::PlacedBy(const Rows& rows, const SearchPose& start) const {
    Loop loop{{}, start};
    const auto lay = [&] { return LayLoop(catalogue_, rows, loop.Cursor()); };
    const auto move = [&](GroundPoint shift) {
        loop.Start.X += shift.X;
        loop.Start.Y += shift.Y;
    };
    Random random(task_.Seed);
    const auto shift = room_.ShiftInto(lay(), random);
    if (!shift) return std::nullopt;
    move(*shift);
    move(room_.ShiftToMiddle(lay()));
    return loop.Cursor();
}

/// Who wants a variation does not want to see the same again, such as with the start elsewhere.
double CircuitPool::LikenessToVaried(const CircuitLook& look) const {
    constexpr double same = 0.98;
    const double likeness = Likeness(look, *varied_);
    return likeness < same ? likeness : 0;
}

FoundCircuit CircuitPool::CircuitOf(const Laid& laid) const {
    FoundCircuit found{{}, LookOf(catalogue_, laid.Rows)};
    LaidCircuit& circuit = found.Circuit;
    circuit.Track = {{}, laid.Start.CursorX, laid.Start.CursorY, laid.Start.CursorHeading};
    circuit.Track.ElementCodes.reserve(laid.Rows.size());
    for (const int row : laid.Rows)
        circuit.Track.ElementCodes.push_back(catalogue_[row].Code);
    const BuiltLanes lanes = LanesAsBuilt(catalogue_, circuit.Track);
    circuit.Length = (lanes.Lengths[0] + lanes.Lengths[1]) / 2;
    circuit.Gap = laid.Loop.Gap;
    circuit.Parts = ScorePartsOf(catalogue_, laid.Rows, laid.Loop, room_, task_.Box, circuit.Length,
                                 lanes.Lengths[0] - lanes.Lengths[1]);
    if (varied_) circuit.Parts.Likeness = LikenessToVaried(found.Look);
    circuit.Used = circuit.Parts.Used;
    circuit.Score = Score(circuit.Parts, task_.Weights);
    return found;
}

} // namespace pistaro
