// A second, independent account of where a piece lies, for tests: the formulas in long double, named values as singles.
#pragma once

#include "model/circuit.h"

#include <array>
#include <cmath>
#include <string>

namespace pistaro::oracle {

using Real = long double;

inline constexpr Real Pi = 3.14159235358979L;

struct Kind {
    const char* Code;
    char Shape;               ///< 'L', 'R' or 'S'
    Real LengthOrInnerRadius; ///< cm
    Real OuterRadius;         ///< cm
    Real Turn;                ///< radians
    Real Arc;                 ///< drawn, radians
    Real Width, Inset;        ///< cm; where the piece's ends differ, of a plain one
};

// clang-format off
inline constexpr std::array Kinds{
    Kind{"C151R",   'R', 21.8L,     37.3L, Pi / 4,    Pi / 4,              15.5L, 3.8L},
    Kind{"C151L",   'L', 21.8L,     37.3L, Pi / 4,    Pi / 4,              15.5L, 3.8L},
    Kind{"C152R",   'R', 6.299999L, 21.8L, Pi / 4,    Pi / 4,              15.5L, 3.8L},
    Kind{"C152L",   'L', 6.299999L, 21.8L, Pi / 4,    Pi / 4,              15.5L, 3.8L},
    Kind{"C153R",   'R', 37.3L,     52.8L, Pi / 8,    Pi / 8,              15.5L, 3.8L},
    Kind{"C153L",   'L', 37.3L,     52.8L, Pi / 8,    Pi / 8,              15.5L, 3.8L},
    Kind{"C154R",   'R', 21.8L,     37.3L, Pi / 8,    Pi / 8,              15.5L, 3.8L},
    Kind{"C154L",   'L', 21.8L,     37.3L, Pi / 8,    Pi / 8,              15.5L, 3.8L},
    Kind{"C156R",   'R', 6.299999L, 21.8L, Pi / 2,    Pi / 2,              15.5L, 3.8L},
    Kind{"C156L",   'L', 6.299999L, 21.8L, Pi / 2,    Pi / 2,              15.5L, 3.8L},
    Kind{"C187R",   'R', 21.1L,     36.6L, Pi / 3.2L, Pi - 2 * Pi / 2.9L,  15.5L, 3.8L},
    Kind{"C187L",   'L', 21.1L,     36.6L, Pi / 3.2L, Pi / 3.2L,           15.5L, 3.8L},
    Kind{"C8010R",  'R', 21.8L,     37.3L, Pi / 4,    Pi / 4,              15.5L, 6.5L},
    Kind{"C8010L",  'L', 21.8L,     37.3L, Pi / 4,    Pi / 4,              15.5L, 6.5L},
    Kind{"N10105R", 'R', 24.0L,     41.5L, Pi / 4,    Pi / 4,              17.5L, 4.0L},
    Kind{"N10105L", 'L', 24.0L,     41.5L, Pi / 4,    Pi / 4,              17.5L, 4.0L},
    Kind{"N10106R", 'R', 6.5L,      24.0L, Pi / 4,    Pi / 4,              17.5L, 4.0L},
    Kind{"N10106L", 'L', 6.5L,      24.0L, Pi / 4,    Pi / 4,              17.5L, 4.0L},
    Kind{"N10107R", 'R', 41.5L,     59.0L, Pi / 8,    Pi / 8,              17.5L, 4.0L},
    Kind{"N10107L", 'L', 41.5L,     59.0L, Pi / 8,    Pi / 8,              17.5L, 4.0L},
    Kind{"N10108R", 'R', 59.0L,     76.5L, Pi / 8,    Pi / 8,              17.5L, 4.0L},
    Kind{"N10108L", 'L', 59.0L,     76.5L, Pi / 8,    Pi / 8,              17.5L, 4.0L},
    Kind{"C157",    'S', 7.65625L,  0,     0,         0,                   15.5L, 3.8L},
    Kind{"C158",    'S', 8.75L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C159",    'S', 17.5L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C160",    'S', 35.0L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C8006",   'S', 35.0L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"N10102",  'S', 40.0L,     0,     0,         0,                   17.5L, 4.0L},
    Kind{"N10103",  'S', 20.0L,     0,     0,         0,                   17.5L, 4.0L},
    Kind{"N10104",  'S', 10.0L,     0,     0,         0,                   17.5L, 4.0L},
    Kind{"N10111",  'S', 40.0L,     0,     0,         0,                   17.5L, 4.0L},
    Kind{"C164",    'S', 35.0L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C248",    'S', 35.0L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C8005",   'S', 35.0L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C8007",   'S', 35.0L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C8009",   'S', 35.0L,     0,     0,         0,                   15.5L, 6.5L},
    Kind{"C277",    'S', 17.5L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"C367",    'S', 17.5L,     0,     0,         0,                   15.5L, 3.8L},
    Kind{"N10110",  'S', 20.0L,     0,     0,         0,                   15.5L, 3.8L},
};
// clang-format on
static_assert(Kinds.size() == 39, "every code of the catalogue; two of them are laid in two ways");

struct Point {
    Real X, Y;
};

struct Placed {
    std::array<Point, 4> Corners;
    Point Label;
    BuildCursor Exit;
};

inline float Once(Real angle) {
    const auto single = static_cast<float>(angle);
    if (single > static_cast<float>(2 * Pi)) return static_cast<float>(single - 2 * Pi);
    return single < 0 ? static_cast<float>(single + 2 * Pi) : single;
}

inline Point Along(Point from, Real distance, Real heading) {
    return {from.X + distance * std::cos(heading), from.Y + distance * std::sin(heading)};
}

/// From `from`, so far straight on and so far across.
inline Point OnAndAcross(Point from, Real on, Real across, Real heading) {
    return {from.X - on * std::sin(heading) + across * std::cos(heading),
            from.Y + on * std::cos(heading) + across * std::sin(heading)};
}

inline Placed Place(const Kind& kind, const BuildCursor& cursor, const std::string& previous) {
    const Point entry{cursor.CursorX, cursor.CursorY};
    const Real h = cursor.CursorHeading;
    Placed placed{};
    float exitHeading = cursor.CursorHeading;
    if (kind.Shape == 'S') {
        Real entryWidth = kind.Width;
        Real exitWidth = kind.Width;
        if (std::string(kind.Code) == "N10110") {
            const bool fromNinco = !previous.empty() && previous[0] == 'N';
            entryWidth = fromNinco ? 17.5L : 15.5L;
            exitWidth = fromNinco ? 15.5L : 17.5L;
        }
        const Real length = kind.LengthOrInnerRadius;
        placed.Corners = {entry, OnAndAcross(entry, length, 0, h), OnAndAcross(entry, length, exitWidth, h),
                          OnAndAcross(entry, 0, entryWidth, h)};
    } else {
        const bool right = kind.Shape == 'R';
        const Real inner = kind.LengthOrInnerRadius;
        const Point centre = right ? Along(entry, kind.OuterRadius, h) : Along(entry, -inner, h);
        exitHeading = Once(right ? h - kind.Turn : h + kind.Turn);
        const Real first = right ? -kind.OuterRadius : inner;
        const Real second = right ? -inner : kind.OuterRadius;
        placed.Corners = {entry, Along(centre, first, exitHeading), Along(centre, second, exitHeading),
                          Along(entry, kind.Width, h)};
    }
    const auto& corners = placed.Corners;
    placed.Label = {(corners[1].X + corners[3].X) / 2 - 5, (corners[1].Y + corners[3].Y) / 2 + 4};
    placed.Exit = {static_cast<float>(corners[1].X), static_cast<float>(corners[1].Y), exitHeading};
    return placed;
}

} // namespace pistaro::oracle
