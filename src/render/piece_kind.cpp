// The table of kinds, in the order in which codes are compared.
#include "render/piece_kind.h"

#include "catalogue/track_geometry.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

using G = TrackGeometry;
constexpr double Pi = PiValue;
constexpr auto L = PieceShape::LeftCurve;
constexpr auto R = PieceShape::RightCurve;

struct Radii {
    double Inner, Outer;
};
constexpr Radii Std{G::StandardCurveInner, G::StandardCurveOuter};
constexpr Radii Inner{G::InnerCurveInner, G::InnerCurveOuter};
constexpr Radii Outer{G::OuterCurveInner, G::OuterCurveOuter};
constexpr Radii Banked{G::BankedCurveInner, G::BankedCurveOuter};
constexpr Radii NinStd{G::NincoStandardCurveInner, G::NincoStandardCurveOuter};
constexpr Radii NinInner{G::NincoInnerCurveInner, G::NincoInnerCurveOuter};
constexpr Radii NinOuter{G::NincoOuterCurveInner, G::NincoOuterCurveOuter};
constexpr Radii NinOutmost{G::NincoOutmostCurveInner, G::NincoOutmostCurveOuter};

struct System {
    double Width, LaneInset;
};
constexpr System Scx{G::ScalextricWidth, G::ScalextricLaneInset};
constexpr System ScxChicane{G::ScalextricWidth, G::ChicaneLaneInset};
constexpr System Nin{G::NincoWidth, G::NincoLaneInset};

constexpr PieceKind Curve(std::string_view code, PieceShape hand, Radii radii, double turn, double firstArcAngle,
                          double swapThreshold, System system) {
    return {
        code, hand, 0, radii.Inner, radii.Outer, turn, firstArcAngle, swapThreshold, system.Width, system.LaneInset};
}

constexpr PieceKind Straight(std::string_view code, double length, System system, PieceMarks marks = PieceMarks::None) {
    return {code, PieceShape::Straight, length, 0, 0, 0, 0, 0, system.Width, system.LaneInset, marks};
}

// clang-format off
constexpr std::array Kinds{
    //    code      hand radii      turn      first arc angle  swap threshold  system
    Curve("C151R",   R,  Std,        Pi / 4,   3 * Pi / 4,      Pi / 2,         Scx),
    Curve("C151L",   L,  Std,        Pi / 4,   Pi / 4,          Pi / 2,         Scx),
    Curve("C152R",   R,  Inner,      Pi / 4,   3 * Pi / 4,      Pi / 2,         Scx),
    Curve("C152L",   L,  Inner,      Pi / 4,   Pi / 4,          Pi / 2,         Scx),
    Curve("C153R",   R,  Outer,      Pi / 8,   7 * Pi / 8,      Pi / 2,         Scx),
    Curve("C153L",   L,  Outer,      Pi / 8,   Pi / 8,          Pi / 2,         Scx),
    Curve("C154R",   R,  Std,        Pi / 8,   7 * Pi / 8,      Pi / 2,         Scx),
    Curve("C154L",   L,  Std,        Pi / 8,   Pi / 8,          Pi / 2,         Scx),
    // A quarter circle exceeds the usual threshold itself.
    Curve("C156R",   R,  Inner,      Pi / 2,   Pi / 2,          Pi / 1.8,       Scx),
    Curve("C156L",   L,  Inner,      Pi / 2,   Pi / 2,          Pi / 1.8,       Scx),
    // The banked curve's name says 60 degrees. Designs were saved with 56.25, and with a slightly shorter arc to the
    // right; both stay.
    Curve("C187R",   R,  Banked,     Pi / 3.2, 2 * Pi / 2.9,    Pi / 2,         Scx),
    Curve("C187L",   L,  Banked,     Pi / 3.2, Pi / 3.2,        Pi / 3.2,       Scx),
    Curve("C8010R",  R,  Std,        Pi / 4,   3 * Pi / 4,      Pi / 2,         ScxChicane),
    Curve("C8010L",  L,  Std,        Pi / 4,   Pi / 4,          Pi / 2,         ScxChicane),
    Curve("N10105R", R,  NinStd,     Pi / 4,   3 * Pi / 4,      Pi / 2,         Nin),
    Curve("N10105L", L,  NinStd,     Pi / 4,   Pi / 4,          Pi / 2,         Nin),
    Curve("N10106R", R,  NinInner,   Pi / 4,   3 * Pi / 4,      Pi / 2,         Nin),
    Curve("N10106L", L,  NinInner,   Pi / 4,   Pi / 4,          Pi / 2,         Nin),
    Curve("N10107R", R,  NinOuter,   Pi / 8,   7 * Pi / 8,      Pi / 2,         Nin),
    Curve("N10107L", L,  NinOuter,   Pi / 8,   Pi / 8,          Pi / 2,         Nin),
    Curve("N10108R", R,  NinOutmost, Pi / 8,   7 * Pi / 8,      Pi / 2,         Nin),
    Curve("N10108L", L,  NinOutmost, Pi / 8,   Pi / 8,          Pi / 2,         Nin),

    //       code      length                     system      marks
    Straight("C157",   G::ShortStraight,          Scx),
    Straight("C158",   G::QuarterStraight,        Scx),
    Straight("C159",   G::HalfStraight,           Scx),
    Straight("C160",   G::StandardStraight,       Scx),
    Straight("C8006",  G::StandardStraight,       Scx,        PieceMarks::CrossedLanes),
    Straight("N10102", G::NincoStandardStraight,  Nin),
    Straight("N10103", G::NincoHalfStraight,      Nin),
    Straight("N10104", G::NincoQuarterStraight,   Nin),
    Straight("N10111", G::NincoStandardStraight,  Nin,        PieceMarks::CrossedLanes),
    Straight("C164",   G::StandardStraight,       Scx,        PieceMarks::RoughTerrain),
    Straight("C248",   G::StandardStraight,       Scx,        PieceMarks::HumpBackBridge),
    Straight("C8005",  G::StandardStraight,       Scx,        PieceMarks::SkidChicane),
    Straight("C8007",  G::StandardStraight,       Scx,        PieceMarks::NarrowingLanes),
    Straight("C8009",  G::StandardStraight,       ScxChicane),
    Straight("C277",   G::HalfStraight,           Scx,        PieceMarks::LapCounter),
    Straight("C367",   G::HalfStraight,           Scx,        PieceMarks::ReverseStart),
    Straight("N10110", G::NincoHalfStraight,      Scx,        PieceMarks::Adapter),
};
// clang-format on

} // namespace

const PieceKind* FindPieceKind(std::string_view code) {
    const auto* const found = std::ranges::find(Kinds, code, &PieceKind::Code);
    return found == Kinds.end() ? nullptr : found;
}

} // namespace pistaro
