// The one table of pieces. Sizes and lane lengths are written as the formulas they come from. It is long because each
// piece stands here and nowhere else.
#include "catalogue/catalogue.h"

#include "catalogue/track_geometry.h"

#include <limits>
#include <optional>

namespace pistaro {

namespace {

using G = TrackGeometry;
constexpr double Pi = PiValue;

struct Radii {
    double Inner, Outer; ///< of the track's edges, cm
};
constexpr Radii Std{G::StandardCurveInner, G::StandardCurveOuter};
constexpr Radii Inner{G::InnerCurveInner, G::InnerCurveOuter};
constexpr Radii Outer{G::OuterCurveInner, G::OuterCurveOuter};
constexpr Radii Banked{G::BankedCurveInner, G::BankedCurveOuter};
constexpr Radii NinStd{G::NincoStandardCurveInner, G::NincoStandardCurveOuter};
constexpr Radii NinInner{G::NincoInnerCurveInner, G::NincoInnerCurveOuter};
constexpr Radii NinOuter{G::NincoOuterCurveInner, G::NincoOuterCurveOuter};
constexpr Radii NinOutmost{G::NincoOutmostCurveInner, G::NincoOutmostCurveOuter};

/// Width and lane inset of a system's track.
struct Profile {
    TrackSystem System;
    double Width, LaneInset;
};
constexpr Profile Scx{TrackSystem::Scalextric, G::ScalextricWidth, G::ScalextricLaneInset};
constexpr Profile ScxChicane{TrackSystem::Scalextric, G::ScalextricWidth, G::ChicaneLaneInset};
constexpr Profile Nin{TrackSystem::Ninco, G::NincoWidth, G::NincoLaneInset};

/// Which of the left hand's lanes comes first; the right hand has the two swapped.
enum class FirstLane { InnerEdge, OuterEdge };
constexpr auto InnerFirst = FirstLane::InnerEdge;
constexpr auto OuterFirst = FirstLane::OuterEdge;

/// How far a curve turns, and by which angles its arc is drawn: the right hand's from `RightArc` beyond the heading.
struct Bend {
    double Turn, RightArc;
    double RightThreshold = Pi / 2, LeftThreshold = Pi / 2;
};
constexpr Bend Deg45{Pi / 4, 3 * Pi / 4};
constexpr Bend Deg22{Pi / 8, 7 * Pi / 8};
/// A quarter circle exceeds the usual threshold itself.
constexpr Bend Deg90{Pi / 2, Pi / 2, Pi / 1.8, Pi / 1.8};
/// The banked curve's name says 60 degrees. Designs were saved with 56.25, and with a slightly shorter arc to the
/// right; both stay.
constexpr Bend Deg60{Pi / 3.2, 2 * Pi / 2.9, Pi / 2, Pi / 3.2};

constexpr int Last = std::numeric_limits<int>::max(); ///< after all that have a place

/// What only some pieces have.
struct More {
    const char* ShapeOf = "";   ///< the basic piece whose outline a special one borrows
    const char* CountName = ""; ///< where it is not the name in the loose-track dialog
    int Variant = Last;
    const char* Specials = "";
    int SpecialsPlace = Last;
    bool LaneChange = false, Banked = false;
    /// The Ninco change-over's place in the statistics' list was one after the last that their searches looked at: no
    /// statistics have ever counted it.
    bool Counted = true;
    bool EachHandAProduct = false;
    double ExtraLength = 0; ///< of the lanes of a straight beyond its own, cm
};

/// A curve as it is sold, for either hand.
struct Curve {
    const char* Product;
    const char* ShortName; ///< followed by the hand's
    const char* LongName;
    const char* BoxName;
    int Place;
    Profile Track;
    Radii Edges;
    Bend Arc;
    FirstLane First;
    int LanePart; ///< the lanes are arcs of pi / LanePart
    More Rest{};
};

struct Straight {
    const char* Code;
    const char* ShortName;
    const char* LongName;
    const char* BoxName;
    int Place;
    Profile Track;
    double Length; ///< cm
    PieceMarks Marks = PieceMarks::None;
    More Rest{};
};

class Table {
public:
    Table& operator<<(const Curve& curve) {
        const std::string product = curve.Product;
        const double inner = (curve.Edges.Inner + curve.Track.LaneInset) * Pi / curve.LanePart;
        const double outer = (curve.Edges.Outer - curve.Track.LaneInset) * Pi / curve.LanePart;
        const bool innerFirst = curve.First == FirstLane::InnerEdge;
        const auto add = [&](const char* hand, const char* handName, PieceShape shape, bool swapped) {
            CatalogueEntry entry = EntryOf(curve, product + hand, product);
            entry.ShortName += handName;
            entry.LaneLength1 = static_cast<float>(innerFirst != swapped ? inner : outer);
            entry.LaneLength2 = static_cast<float>(innerFirst != swapped ? outer : inner);
            const bool right = shape == PieceShape::RightCurve;
            entry.Kind = {.Shape = shape,
                          .InnerRadius = curve.Edges.Inner,
                          .OuterRadius = curve.Edges.Outer,
                          .Turn = curve.Arc.Turn,
                          .FirstArcAngle = right ? curve.Arc.RightArc : curve.Arc.Turn,
                          .SwapThreshold = right ? curve.Arc.RightThreshold : curve.Arc.LeftThreshold,
                          .Width = curve.Track.Width,
                          .LaneInset = curve.Track.LaneInset};
            rows_.push_back(std::move(entry));
        };
        add("L", " left crv", PieceShape::LeftCurve, false);
        add("R", " rght crv", PieceShape::RightCurve, true);
        return *this;
    }

    Table& operator<<(const Straight& straight) {
        CatalogueEntry entry = EntryOf(straight, straight.Code, straight.Code);
        entry.LaneLength1 = entry.LaneLength2 = static_cast<float>(straight.Length + straight.Rest.ExtraLength);
        entry.Kind = {.Shape = PieceShape::Straight,
                      .Length = straight.Length,
                      .Width = straight.Track.Width,
                      .LaneInset = straight.Track.LaneInset,
                      .Marks = straight.Marks};
        rows_.push_back(std::move(entry));
        return *this;
    }

    std::vector<CatalogueEntry> Rows() && { return std::move(rows_); }

private:
    /// What curves and straights have alike. Both hands of a curve are one product, unless it is said otherwise.
    template <typename Product>
    CatalogueEntry EntryOf(const Product& from, const std::string& code, const std::string& product) {
        const int row = static_cast<int>(rows_.size());
        const More& more = from.Rest;
        const int head = more.EachHandAProduct ? row : RowOf(product).value_or(row);
        return {.System = from.Track.System,
                .Code = code,
                .ShortName = from.ShortName,
                .LongName = from.LongName,
                .ShapeIndex = RowOf(more.ShapeOf).value_or(head),
                .StockIndex = head,
                .LaneChange = more.LaneChange,
                .Kind = {},
                .BoxName = from.BoxName,
                .CountName = *more.CountName != 0 ? more.CountName : from.BoxName,
                .Specials = more.Specials,
                .SpecialsPlace = more.SpecialsPlace,
                .Place = from.Place,
                .VariantPlace = more.Variant,
                .Banked = more.Banked,
                .IsCounted = more.Counted};
    }

    /// The first row of a product so far.
    std::optional<int> RowOf(std::string_view product) const {
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            if (ProductCode(rows_[row].Code) == product) return static_cast<int>(row);
        }
        return std::nullopt;
    }

    std::vector<CatalogueEntry> rows_;
};

} // namespace

// clang-format off
std::vector<CatalogueEntry> PieceTable() {
    using enum PieceMarks;
    return std::move(Table()
    //         product   short name           long name             loose-track name     place profile  edges    bend   first lane  part
    << Curve{"C151",   "std",               "standard curve 45°",   "standard curve 45",   0, Scx, Std,        Deg45, InnerFirst, 4,
             {.Variant = 0, .Specials = "standard curve sized special track", .SpecialsPlace = 2}}
    << Curve{"C152",   "1/2 inner",         "inner curve 45°",      "inner curve 45",      2, Scx, Inner,      Deg45, InnerFirst, 4}
    << Curve{"C153",   "outer",             "outer curve 22.5°",    "outer curve 22.5",    4, Scx, Outer,      Deg22, OuterFirst, 8}
    << Curve{"C154",   "1/2 std",           "standard curve 22.5°", "standard curve 22.5", 1, Scx, Std,        Deg22, OuterFirst, 8}
    // The 90 degree curve counts as 45 degrees of arc: the statistics have always added it so.
    << Curve{"C156",   "inner",             "inner curve 90°",      "inner curve 90",      3, Scx, Inner,      Deg90, OuterFirst, 4}
    << Straight{"C157", "short strght",     "short straight",       "short straight",      3, Scx, G::ShortStraight}
    << Straight{"C158", "1/4 strght",       "quarter straight",     "quarter straight",    2, Scx, G::QuarterStraight}
    << Straight{"C159", "1/2 strght",       "half straight",        "half straight",       1, Scx, G::HalfStraight, None,
                {.Variant = 2, .Specials = "half straight sized special track", .SpecialsPlace = 0}}
    << Straight{"C160", "std strght",       "standard straight",    "standard straight",   0, Scx, G::StandardStraight, None,
                {.Variant = 3, .Specials = "standard straight sized special track", .SpecialsPlace = 1}}
    << Curve{"C187",   "banked",            "banked curve 60°",     "banked curve 60",     5, Scx, Banked,     Deg60, OuterFirst, 3,
             {.Banked = true}}
    << Straight{"N10102", "std strght",     "Ninco std straight",   "standard straight",   0, Nin, G::NincoStandardStraight, None,
                {.Variant = 12, .Specials = "Ninco change-over sections", .SpecialsPlace = 3}}
    << Straight{"N10103", "1/2 strght",     "Ninco half straight",  "half straight",       1, Nin, G::NincoHalfStraight}
    << Straight{"N10104", "1/4 strght",     "Ninco quarter strt",   "quarter straight",    2, Nin, G::NincoQuarterStraight}
    << Curve{"N10105", "std",               "Ninco std curve",      "standard curve",      3, Nin, NinStd,     Deg45, InnerFirst, 4}
    << Curve{"N10106", "inner",             "Ninco inner curve",    "inner curve",         4, Nin, NinInner,   Deg45, InnerFirst, 4,
             {.CountName = "inner curver"}}
    // Both outer curves turn by 22.5 degrees and count as 45.
    << Curve{"N10107", "outer",             "Ninco outer curve",    "outer curve",         5, Nin, NinOuter,   Deg22, InnerFirst, 4}
    << Curve{"N10108", "outmost",           "Ninco outmost curve",  "outmost curve",       6, Nin, NinOutmost, Deg22, InnerFirst, 4}
    // Its width and lane inset are those of the end that leads to Scalextric track.
    << Straight{"N10110", "conversion",     "Corvel/Ninco convert", "converter to Ninco",  7, {TrackSystem::Ninco, Scx.Width, Scx.LaneInset},
                G::NincoHalfStraight, Adapter, {.CountName = "converter"}}
    << Straight{"C164", "rough terrain",    "rough terrain",        "rough terrain",       0, Scx, G::StandardStraight, RoughTerrain,
                {.ShapeOf = "C160", .Variant = 4}}
    << Straight{"C248", "hump back bridge", "hump back bridge",     "hump back bridge",    1, Scx, G::StandardStraight, HumpBackBridge,
                {.ShapeOf = "C160", .Variant = 5}}
    << Straight{"C8005", "skid chicane",    "skid chicane",         "skid chicane",        4, Scx, G::StandardStraight, SkidChicane,
                {.ShapeOf = "C160", .Variant = 8, .ExtraLength = 1.0}}
    << Straight{"C8006", "change over section", "change over track", "change over track",  5, Scx, G::StandardStraight, CrossedLanes,
                {.ShapeOf = "C160", .Variant = 9, .LaneChange = true, .ExtraLength = 2.0}}
    << Straight{"C8007", "std chicane",     "standard chicane",     "standard chicane",    6, Scx, G::StandardStraight, NarrowingLanes,
                {.ShapeOf = "C160", .Variant = 10, .ExtraLength = 0.5}}
    << Straight{"C8009", "std chicane ext", "chicane extension",    "chicane extension",   7, ScxChicane, G::StandardStraight, None,
                {.ShapeOf = "C160", .Variant = 11}}
    << Straight{"C277", "lap counter",      "lap counter",          "lap counter",         2, Scx, G::HalfStraight, LapCounter,
                {.ShapeOf = "C159", .Variant = 6}}
    << Straight{"C367", "rev start section", "rev start section",   "rev start section",   3, Scx, G::HalfStraight, ReverseStart,
                {.ShapeOf = "C159", .Variant = 7}}
    << Curve{"C8010",  "chicane ext",       "curved chicane ext.",  "curved chicane ext.", 8, ScxChicane, Std, Deg45, InnerFirst, 4,
             {.ShapeOf = "C151", .CountName = "curved chicane ext", .Variant = 1, .EachHandAProduct = true}}
    << Straight{"N10111", "change over section", "Ninco change-over", "change-over section", 8, Nin, G::NincoStandardStraight, CrossedLanes,
                {.ShapeOf = "N10102", .CountName = "change-over", .Variant = 13, .LaneChange = true, .Counted = false, .ExtraLength = 2.5}}
    ).Rows();
}
// clang-format on

} // namespace pistaro
