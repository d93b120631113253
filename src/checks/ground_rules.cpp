// Where pieces lie in a heap, a few of the findings are enough: each rule stops after so many, so that its cost stays
// that of a design which could be built.
#include "checks/ground_rules.h"

#include "checks/crossings.h"
#include "layout/clearance.h"
#include "layout/overlap.h"
#include "model/length_text.h"

#include <algorithm>
#include <limits>
#include <map>

namespace pistaro {

namespace {

constexpr std::size_t MostOfATrack = 100; ///< overlaps, and curves near other tracks, that are told
constexpr int MostOfAPiece = 8;
constexpr int MostBesideACurve = 24; ///< of other tracks' pieces are looked at, in a heap the first ones

/// "C160 (3)", or "C160 (3) to C151L (5)" for several
std::string RunText(const CheckedCircuit& circuit, int track, const std::vector<int>& run) {
    const std::string first = circuit.NameOf({track, run.front()});
    return run.size() == 1 ? first : first + " to " + circuit.NameOf({track, run.back()});
}

const CheckedTrack& TrackOf(const CheckedCircuit& circuit, std::size_t ground) {
    return circuit.Tracks[static_cast<std::size_t>(circuit.PlaceOf[ground].Track)];
}

/// Whether one of two grounds, the second of which comes later, follows the other on its track.
bool AreNeighbours(const CheckedCircuit& circuit, std::size_t first, std::size_t second) {
    const CheckedTrack& track = TrackOf(circuit, first);
    if (&TrackOf(circuit, second) != &track) return false;
    const bool closes = first == track.FirstGround && second == track.FirstGround + track.Pieces.size() - 1;
    return second == first + 1 || (closes && track.IsRound());
}

struct Overlap {
    std::size_t First, Second; ///< grounds
    double Area;               ///< cm²
};

/// Those of a track's pieces with later ones.
std::vector<Overlap> OverlapsOf(const CheckedCircuit& circuit, const CheckedTrack& track) {
    const std::vector<Ground>& grounds = circuit.Grounds.Grounds();
    const std::size_t end = track.FirstGround + track.Pieces.size();
    std::vector<Overlap> overlaps;
    for (std::size_t first = track.FirstGround; first < end && overlaps.size() < MostOfATrack; ++first) {
        int found = 0;
        circuit.Grounds.ForEachMeeting(grounds[first].Box, [&](int other, const Ground& ground) {
            const auto second = static_cast<std::size_t>(other);
            if (second <= first || AreNeighbours(circuit, first, second)) return true;
            const double area = SharedArea(grounds[first], ground);
            if (area <= OverlapTolerance) return true;
            overlaps.push_back({first, second, area});
            return ++found < MostOfAPiece && overlaps.size() < MostOfATrack;
        });
    }
    return overlaps;
}

/// Takes out what may be: the straight that lies deepest under each bridge.
void AllowBridges(const CheckedCircuit& circuit, std::vector<Overlap>& overlaps) {
    const std::vector<Ground>& grounds = circuit.Grounds.Grounds();
    std::map<std::size_t, std::pair<double, std::size_t>> under; // by bridge: the area, and which overlap it is
    for (std::size_t i = 0; i < overlaps.size(); ++i) {
        const auto [first, second, area] = overlaps[i];
        const CatalogueEntry& a = circuit.PieceOf(first);
        const CatalogueEntry& b = circuit.PieceOf(second);
        if (!PassesUnder(a, grounds[first], b, grounds[second])) continue;
        auto& deepest = under[a.IsBridge() ? first : second];
        if (area > deepest.first) deepest = {area, i};
    }
    std::vector<std::size_t> allowed;
    allowed.reserve(under.size());
    for (const auto& [bridge, deepest] : under)
        allowed.push_back(deepest.second);
    std::ranges::sort(allowed, std::greater());
    for (const std::size_t i : allowed)
        overlaps.erase(overlaps.begin() + static_cast<std::ptrdiff_t>(i));
}

Finding FindingOf(const CheckedCircuit& circuit, const Overlap& overlap) {
    const PieceAddress first = circuit.PlaceOf[overlap.First];
    const PieceAddress second = circuit.PlaceOf[overlap.Second];
    Finding finding{"", Severity::Error, first.Track, {first.Element}, ""};
    if (first.Track == second.Track)
        finding.Pieces.push_back(second.Element);
    else
        finding.Others = {second};
    finding.SharedArea = overlap.Area;
    finding.Text = OverlapText(circuit.NameOf(first), circuit.NameOf(second), finding, circuit.Shown);
    return finding;
}

/// How far a piece that the room does not hold reaches out of it or into a pillar, as its corners tell; 0 where only a
/// wall runs through.
double ReachOutside(const RoomFit& room, const Ground& ground) {
    double farthest = 0;
    for (const GroundPoint corner : ground.Corners) {
        if (room.Holds(corner)) continue;
        double nearest = std::numeric_limits<double>::max();
        for (const Wall& wall : room.Walls())
            nearest = std::min(nearest, DistanceFrom(corner, wall));
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

/// A figure of an element.
struct Measured {
    int Element;
    double Figure;
};

/// Elements beside each other are told of together, with the least or greatest of their figures.
template <typename Choose, typename Tell>
void TellRuns(const std::vector<Measured>& measured, Choose choose, Tell tell) {
    std::vector<int> run;
    double figure = 0;
    for (std::size_t i = 0; i < measured.size(); ++i) {
        figure = run.empty() ? measured[i].Figure : choose(figure, measured[i].Figure);
        run.push_back(measured[i].Element);
        if (i + 1 < measured.size() && measured[i + 1].Element == measured[i].Element + 1) continue;
        tell(run, figure);
        run.clear();
    }
}

/// Calls measure(ground) for each piece of a track; those for which it gives a figure.
template <typename Measure>
std::vector<Measured> MeasuredPieces(const CheckedTrack& track, Measure measure) {
    std::vector<Measured> measured;
    for (std::size_t i = 0; i < track.Pieces.size(); ++i) {
        if (const std::optional<double> figure = measure(track.FirstGround + i))
            measured.push_back({track.Pieces[i].Element, *figure});
    }
    return measured;
}

/// The nearest piece of another track into which a car may slide.
struct Slide {
    double Distance;
    std::size_t Ground;
};

/// The outlines of the pieces that were asked for.
class Outlines {
public:
    explicit Outlines(const std::vector<Ground>& grounds) : grounds_(grounds), edges_(grounds.size()) {}

    const std::vector<Edge>& Of(std::size_t ground) {
        std::vector<Edge>& edges = edges_[ground];
        if (edges.empty()) edges = EdgesOf(grounds_[ground]);
        return edges;
    }

private:
    const std::vector<Ground>& grounds_;
    std::vector<std::vector<Edge>> edges_;
};

std::optional<Slide> NearestSlide(const CheckedCircuit& circuit, Outlines& outlines, std::size_t curve) {
    constexpr double room = 10; // cm
    const std::vector<Ground>& grounds = circuit.Grounds.Grounds();
    std::optional<Slide> nearest;
    int others = 0;
    circuit.Grounds.ForEachMeeting(grounds[curve].Box.Grown(room), [&](int other, const Ground& ground) {
        const auto at = static_cast<std::size_t>(other);
        if (circuit.PlaceOf[at].Track == circuit.PlaceOf[curve].Track) return true;
        const double reach = nearest ? nearest->Distance : room;
        const std::optional<double> distance = SlideClearance(grounds[curve], ground.Box, outlines.Of(at), reach);
        if (distance) nearest = Slide{*distance, at};
        return ++others < MostBesideACurve;
    });
    return nearest;
}

/// What becomes of one piece, or of several, where something is in their way into which they reach so far.
std::string ObstacleText(Obstacle obstacle, bool isOne, double reach, const Units& units) {
    switch (obstacle) {
    case Obstacle::Pillar:
        return (isOne ? " stands in a pillar" : " stand in a pillar") +
               (reach > 0 ? ", " + LengthText(reach, units) + " deep." : std::string("."));
    case Obstacle::InnerWall:
        return isOne ? " runs through an inner wall." : " run through an inner wall.";
    case Obstacle::Room:
    case Obstacle::None:
        break;
    }
    return (isOne ? " leaves the room" : " leave the room") +
           (reach > 0 ? " by " + LengthText(reach, units) + "." : std::string(": a wall runs through."));
}

/// What is in the way of a track's pieces, and how far each reaches into it.
std::map<Obstacle, std::vector<Measured>> ObstaclesOf(const CheckedCircuit& circuit, const CheckedTrack& track) {
    std::map<Obstacle, std::vector<Measured>> met;
    for (std::size_t i = 0; i < track.Pieces.size(); ++i) {
        const Ground& piece = circuit.Grounds.Grounds()[track.FirstGround + i];
        const Obstacle obstacle = circuit.Room.ObstacleOf(piece);
        if (obstacle != Obstacle::None)
            met[obstacle].push_back({track.Pieces[i].Element, ReachOutside(circuit.Room, piece)});
    }
    return met;
}

} // namespace

std::vector<Finding> FindOverlaps(const CheckedCircuit& circuit) {
    std::vector<Overlap> overlaps;
    std::array<bool, TrackCount> hasMore{};
    for (const CheckedTrack& track : circuit.Tracks) {
        const std::vector<Overlap> ofTrack = OverlapsOf(circuit, track);
        overlaps.insert(overlaps.end(), ofTrack.begin(), ofTrack.end());
        hasMore[static_cast<std::size_t>(track.Index)] = ofTrack.size() == MostOfATrack;
    }
    AllowBridges(circuit, overlaps);
    std::vector<Finding> findings;
    findings.reserve(overlaps.size());
    for (const Overlap& overlap : overlaps)
        findings.push_back(FindingOf(circuit, overlap));
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const bool isLast = i + 1 == findings.size() || findings[i + 1].Track != findings[i].Track;
        if (isLast && hasMore[static_cast<std::size_t>(findings[i].Track)]) findings[i].Text += MoreOverlaps;
    }
    return findings;
}

std::vector<Finding> FindPiecesOutside(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        for (const auto& [obstacle, pieces] : ObstaclesOf(circuit, track)) {
            const auto greater = [](double one, double other) { return std::max(one, other); };
            TellRuns(pieces, greater, [&, obstacle = obstacle](const std::vector<int>& run, double reach) {
                findings.push_back({"", Severity::Error, track.Index, run,
                                    RunText(circuit, track.Index, run) +
                                        ObstacleText(obstacle, run.size() == 1, reach, circuit.Shown)});
            });
        }
    }
    return findings;
}

std::vector<Finding> FindPiecesNearWalls(const CheckedCircuit& circuit) {
    constexpr double room = 5; // cm
    std::vector<Finding> findings;
    for (const CheckedTrack& track : circuit.Tracks) {
        const auto near = MeasuredPieces(track, [&](std::size_t ground) {
            const Ground& piece = circuit.Grounds.Grounds()[ground];
            std::optional<double> nearest;
            for (const Wall& wall : circuit.Room.Walls()) {
                if (const auto distance = WallClearance(piece, wall, nearest.value_or(room))) nearest = distance;
            }
            return nearest && circuit.Room.Holds(piece) ? nearest : std::nullopt;
        });
        const auto less = [](double a, double b) { return std::min(a, b); };
        TellRuns(near, less, [&](const std::vector<int>& run, double distance) {
            findings.push_back({"", Severity::Advice, track.Index, run,
                                RunText(circuit, track.Index, run) + " within " + LengthText(room, circuit.Shown) +
                                    " of a wall: " + LengthText(distance, circuit.Shown) + "."});
        });
    }
    return findings;
}

std::vector<Finding> FindSlidesIntoTracks(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    Outlines outlines(circuit.Grounds.Grounds());
    for (const CheckedTrack& track : circuit.Tracks) {
        std::size_t curves = 0;
        std::map<int, std::size_t> meets; // by element: the piece that is met
        const auto near = MeasuredPieces(track, [&](std::size_t ground) -> std::optional<double> {
            if (!circuit.Grounds.Grounds()[ground].IsCurved || curves == MostOfATrack) return std::nullopt;
            const std::optional<Slide> slide = NearestSlide(circuit, outlines, ground);
            if (!slide) return std::nullopt;
            ++curves;
            meets[circuit.PlaceOf[ground].Element] = slide->Ground;
            return slide->Distance;
        });
        const auto less = [](double a, double b) { return std::min(a, b); };
        TellRuns(near, less, [&](const std::vector<int>& run, double distance) {
            const PieceAddress other = circuit.PlaceOf[meets.at(run.front())];
            findings.push_back({"",
                                Severity::Advice,
                                track.Index,
                                run,
                                RunText(circuit, track.Index, run) + ": a car that slides out meets track " +
                                    std::to_string(other.Track + 1) + " after " + LengthText(distance, circuit.Shown) +
                                    ".",
                                {other}});
        });
    }
    return findings;
}

} // namespace pistaro
