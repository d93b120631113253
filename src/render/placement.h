// Where a piece lies: its corners, its strokes, its label and the cursor behind it, from the cursor before it alone.
#pragma once

#include "model/circuit.h"
#include "render/piece_kind.h"

#include <array>
#include <optional>
#include <string_view>
#include <variant>

namespace pistaro {

/// A point in world coordinates, cm, y upwards.
struct WorldPoint {
    float X = 0;
    float Y = 0;
};

enum class Ink { Rail, Outline };

struct LineStroke {
    WorldPoint From, To;
};

/// Drawn anticlockwise from start to end; where start is the greater, through angle 0.
struct ArcStroke {
    WorldPoint Centre;
    double Radius;    ///< cm
    float Start, End; ///< radians
};

/// A circle squeezed to `Aspect` of its height, its axes along the picture's.
struct EllipseStroke {
    WorldPoint Centre;
    double Radius; ///< half the width, cm
    double Aspect;
};

struct Stroke {
    Ink StrokeInk = Ink::Rail;
    std::variant<LineStroke, ArcStroke, EllipseStroke> Shape;
};

/// The strokes of one piece in the order of drawing: lane lines lie under the outline.
class Strokes {
public:
    void Add(Ink ink, const std::variant<LineStroke, ArcStroke, EllipseStroke>& shape);

    const Stroke* begin() const { return strokes_.data(); }
    const Stroke* end() const { return strokes_.data() + count_; }

private:
    static constexpr std::size_t MostOfAnyPiece = 11;
    std::array<Stroke, MostOfAnyPiece> strokes_;
    std::size_t count_ = 0;
};

struct PiecePlacement {
    /// Corners 1 to 4: entry on the reference edge, exit on the reference edge, exit and entry on the other edge.
    std::array<WorldPoint, 4> Corners;
    Strokes Drawing;
    WorldPoint Label; ///< 5 cm left and 4 cm above the middle of the diagonal from corner 2 to corner 4
    BuildCursor Exit;
};

/// Lays a piece of this kind at the cursor. `previousCode` is the code of the element before it in its track, empty for
/// the first one: the standard chicane and the adapter turn round behind certain pieces.
PiecePlacement PlacePiece(const PieceKind& kind, const BuildCursor& cursor, std::string_view previousCode);

/// The same by code; nothing for an unknown code, which leaves the cursor where it was.
std::optional<PiecePlacement> PlacePiece(std::string_view code, const BuildCursor& cursor,
                                         std::string_view previousCode);

/// Calls visit(index, placement, entry) for each element of a track in order, where placement is null for an unknown
/// code and entry the cursor before the element; gives the cursor behind the last.
template <typename Visit>
BuildCursor WalkTrack(const Track& track, Visit visit) {
    BuildCursor cursor = track.Start();
    std::string_view previous;
    for (int index = 0; index <= track.ElementLastIndex(); ++index) {
        const std::string& code = track.ElementCodes[static_cast<std::size_t>(index)];
        if (const PieceKind* const kind = FindPieceKind(code)) {
            const PiecePlacement placement = PlacePiece(*kind, cursor, previous);
            visit(index, &placement, cursor);
            cursor = placement.Exit;
        } else {
            visit(index, static_cast<const PiecePlacement*>(nullptr), cursor);
        }
        previous = code;
    }
    return cursor;
}

} // namespace pistaro
