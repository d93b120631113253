#include "support/plain_closing.h"

#include "layout/overlap.h"
#include "layout/track_gap.h"
#include "support/pieces.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

bool AreNeighbours(int a, int b, int count) { return std::abs(a - b) <= 1 || std::abs(a - b) == count - 1; }

/// The rooms of these tests are rectangles along the axes.
bool LeavesRoom(const Ground& ground, const RoomPolygon& room) {
    if (room.Points.size() < 2) return false;
    const auto [left, right] = std::ranges::minmax_element(room.Points, {}, &RoomPoint::X);
    const auto [bottom, top] = std::ranges::minmax_element(room.Points, {}, &RoomPoint::Y);
    constexpr double touch = 0.01;
    return ground.Box.Left < left->X - touch || ground.Box.Right > right->X + touch ||
           ground.Box.Bottom < bottom->Y - touch || ground.Box.Top > top->Y + touch;
}

bool IsSuggested(const std::string& code) {
    constexpr std::string_view never[]{"C8007", "C8009", "C8010L", "C8010R", "C8006", "N10111"};
    return std::ranges::find(never, code) == std::end(never);
}

/// Which system's track a code's piece is entered from and leads to, behind track of a system; nothing where it does
/// not fit.
std::optional<int> SystemAfter(const std::string& code, int system, const std::string& before) {
    if (code == "N10110") return before == "N10110" ? std::nullopt : std::optional(1 - system);
    const int own = code[0] == 'N' ? 1 : 0;
    return own == system ? std::optional(own) : std::nullopt;
}

class Trying {
public:
    Trying(const Project& project, int most)
        : project_(project), track_(project.Design.Circuit.Tracks[0]), most_(most) {
        std::string before;
        int system = track_.ElementCodes.front()[0] == 'N' ? 1 : 0;
        for (const std::string& code : track_.ElementCodes) {
            system = SystemAfter(code, system, before).value();
            before = code;
        }
        goalSystem_ = track_.ElementCodes.front()[0] == 'N' ? 1 : 0;
        size_ = track_.ElementLastIndex() + 1;
        Pose end = track_.Start();
        for (const std::string& code : track_.ElementCodes)
            end = ExitOf(Pieces().Find(code)->Kind, end);
        for (int count = 1; count <= most_ && !answer_.Best; ++count)
            Try(end, system, before, count);
    }

    PlainAnswer Answer() const { return answer_; }

private:
    void Try(const Pose& pose, int system, const std::string& before, int left) {
        const TrackGap gap = GapBetween(track_.Start(), pose);
        if (left == 0) {
            if (system == goalSystem_ && gap.Distance <= 0.05F && std::fabs(gap.Angle) <= 0.001F) Take();
            return;
        }
        constexpr float longest = 40; // cm from end to end
        if (gap.Distance > longest * static_cast<float>(left) + 1) return;
        for (int row = 0; row < Pieces().Count(); ++row) {
            const CatalogueEntry& piece = Pieces()[row];
            if (!piece.IsBasic()) continue; // its shape is tried with the plain piece
            const auto after = SystemAfter(piece.Code, system, before);
            if (!after) continue;
            track_.ElementCodes.push_back(piece.Code);
            Try(ExitOf(piece.Kind, pose), *after, piece.Code, left - 1);
            track_.ElementCodes.pop_back();
        }
    }

    void Take() {
        const int count = track_.ElementLastIndex() + 1 - size_;
        if (answer_.FewestAtAll == 0) answer_.FewestAtAll = count;
        Design closed = project_.Design;
        closed.Circuit.Tracks[0] = track_;
        double price = 0;
        for (int i = size_; i <= track_.ElementLastIndex(); ++i)
            price += CheapestOf(*Pieces().Find(track_.ElementCodes[static_cast<std::size_t>(i)]));
        if (answer_.Best && answer_.Best->Price <= price) return;
        const PlainFaults faults = FaultsFrom(closed, 0, size_);
        if (faults.IsUnsure) answer_.IsUnsure = true;
        if (!faults.Overlaps && !faults.Outside) answer_.Best = PlainClosing{count, price};
    }

    double CheapestOf(const CatalogueEntry& piece) const {
        double least = 1e9;
        for (int row = 0; row < Pieces().Count(); ++row) {
            if (Pieces()[row].ShapeIndex != piece.ShapeIndex || !IsSuggested(Pieces()[row].Code)) continue;
            least = std::min(least, double{project_.Stock[Pieces()[row].StockIndex].Price});
        }
        return least;
    }

    const Project& project_;
    Track track_;
    int most_;
    int goalSystem_ = 0, size_ = 0;
    PlainAnswer answer_;
};

} // namespace

std::vector<Ground> GroundsOf(const Track& track) {
    std::vector<Ground> grounds;
    WalkTrack(Pieces(), track, [&](int, const PiecePlacement* placement, const BuildCursor&) {
        if (placement != nullptr) grounds.push_back(GroundOf(*placement));
    });
    return grounds;
}

bool IsFreeOfOverlaps(const Track& track) {
    const std::vector<Ground> grounds = GroundsOf(track);
    const int count = static_cast<int>(grounds.size());
    for (int a = 0; a < count; ++a) {
        for (int b = a + 1; b < count; ++b) {
            if (!AreNeighbours(a, b, count) &&
                Overlaps(grounds[static_cast<std::size_t>(a)], grounds[static_cast<std::size_t>(b)]))
                return false;
        }
    }
    return true;
}

double CountedOverlap(const Ground& a, const Ground& b) {
    constexpr double spacing = 0.25;
    if (!a.Box.Meets(b.Box)) return 0;
    int points = 0;
    for (double x = std::max(a.Box.Left, b.Box.Left) + spacing / 2; x < std::min(a.Box.Right, b.Box.Right);
         x += spacing) {
        for (double y = std::max(a.Box.Bottom, b.Box.Bottom) + spacing / 2; y < std::min(a.Box.Top, b.Box.Top);
             y += spacing)
            points += Covers(a, {x, y}) && Covers(b, {x, y}) ? 1 : 0;
    }
    return points * spacing * spacing;
}

PlainFaults FaultsFrom(const Design& design, int track, int first) {
    PlainFaults faults;
    const std::vector<Ground> own = GroundsOf(design.Circuit.Tracks[static_cast<std::size_t>(track)]);
    const int count = static_cast<int>(own.size());
    const auto compare = [&](const Ground& a, const Ground& b) {
        const double area = CountedOverlap(a, b);
        if (area > 1) faults.Overlaps = true;
        if (area > 0.5 && area < 2) faults.IsUnsure = true;
    };
    for (int piece = first; piece < count; ++piece) {
        const Ground& ground = own[static_cast<std::size_t>(piece)];
        if (LeavesRoom(ground, design.Room)) faults.Outside = true;
        for (int other = 0; other < count; ++other) {
            if (!AreNeighbours(piece, other, count)) compare(ground, own[static_cast<std::size_t>(other)]);
        }
        for (int each = 0; each < TrackCount; ++each) {
            if (each == track) continue;
            for (const Ground& other : GroundsOf(design.Circuit.Tracks[static_cast<std::size_t>(each)]))
                compare(ground, other);
        }
    }
    return faults;
}

PlainAnswer CloseByTrying(const Project& project, int most) { return Trying(project, most).Answer(); }

} // namespace pistaro
