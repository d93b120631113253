// The catalogue's table. Lane lengths are written as the formulas they come from.
#include "catalogue/catalogue.h"

#include "catalogue/track_geometry.h"

#include <string>

namespace pistaro {

namespace {

struct Lanes {
    float First, Second;
};

/// Lanes of an arc of pi / part: their radii lie one inset inside the track's edges.
constexpr Lanes InnerFirst(double inner, double outer, double inset, int part) {
    return {static_cast<float>((inner + inset) * PiValue / part), static_cast<float>((outer - inset) * PiValue / part)};
}

constexpr Lanes Swapped(Lanes lanes) { return {lanes.Second, lanes.First}; }

constexpr Lanes OuterFirst(double inner, double outer, double inset, int part) {
    return Swapped(InnerFirst(inner, outer, inset, part));
}

constexpr Lanes Straight(double length) { return {static_cast<float>(length), static_cast<float>(length)}; }

using G = TrackGeometry;
constexpr double D = G::ScalextricLaneInset;
constexpr double N = G::NincoLaneInset;

constexpr Lanes C151 = InnerFirst(G::StandardCurveInner, G::StandardCurveOuter, D, 4);
constexpr Lanes C152 = InnerFirst(G::InnerCurveInner, G::InnerCurveOuter, D, 4);
constexpr Lanes C153 = OuterFirst(G::OuterCurveInner, G::OuterCurveOuter, D, 8);
constexpr Lanes C154 = OuterFirst(G::StandardCurveInner, G::StandardCurveOuter, D, 8);
// The 90 degree curve counts as 45 degrees of arc: the statistics have always added it so.
constexpr Lanes C156 = OuterFirst(G::InnerCurveInner, G::InnerCurveOuter, D, 4);
constexpr Lanes C187 = OuterFirst(G::BankedCurveInner, G::BankedCurveOuter, D, 3);
constexpr Lanes C8010 = InnerFirst(G::StandardCurveInner, G::StandardCurveOuter, G::ChicaneLaneInset, 4);
constexpr Lanes N10105 = InnerFirst(G::NincoStandardCurveInner, G::NincoStandardCurveOuter, N, 4);
constexpr Lanes N10106 = InnerFirst(G::NincoInnerCurveInner, G::NincoInnerCurveOuter, N, 4);
constexpr Lanes N10107 = InnerFirst(G::NincoOuterCurveInner, G::NincoOuterCurveOuter, N, 4);
constexpr Lanes N10108 = InnerFirst(G::NincoOutmostCurveInner, G::NincoOutmostCurveOuter, N, 4);

struct Row {
    std::string_view Code;
    TrackSystem System;
    std::string_view ShortName, LongName;
    std::int16_t Shape, Stock;
    Lanes LaneLengths;
    bool LaneChange = false;
};

constexpr auto Scx = TrackSystem::Scalextric;
constexpr auto Nin = TrackSystem::Ninco;

// clang-format off
constexpr std::array<Row, CatalogueCount> Table{{
    // code      system  short name              long name               shape stock  lane lengths            change
    {"C151L",    Scx, "std left crv",         "standard curve 45°",         0,  0, C151},
    {"C151R",    Scx, "std rght crv",         "standard curve 45°",         0,  0, Swapped(C151)},
    {"C152L",    Scx, "1/2 inner left crv",   "inner curve 45°",            2,  2, C152},
    {"C152R",    Scx, "1/2 inner rght crv",   "inner curve 45°",            2,  2, Swapped(C152)},
    {"C153L",    Scx, "outer left crv",       "outer curve 22.5°",          4,  4, C153},
    {"C153R",    Scx, "outer rght crv",       "outer curve 22.5°",          4,  4, Swapped(C153)},
    {"C154L",    Scx, "1/2 std left crv",     "standard curve 22.5°",       6,  6, C154},
    {"C154R",    Scx, "1/2 std rght crv",     "standard curve 22.5°",       6,  6, Swapped(C154)},
    {"C156L",    Scx, "inner left crv",       "inner curve 90°",            8,  8, C156},
    {"C156R",    Scx, "inner rght crv",       "inner curve 90°",            8,  8, Swapped(C156)},
    {"C157",     Scx, "short strght",         "short straight",            10, 10, Straight(G::ShortStraight)},
    {"C158",     Scx, "1/4 strght",           "quarter straight",          11, 11, Straight(G::QuarterStraight)},
    {"C159",     Scx, "1/2 strght",           "half straight",             12, 12, Straight(G::HalfStraight)},
    {"C160",     Scx, "std strght",           "standard straight",         13, 13, Straight(G::StandardStraight)},
    {"C187L",    Scx, "banked left crv",      "banked curve 60°",          14, 14, C187},
    {"C187R",    Scx, "banked rght crv",      "banked curve 60°",          14, 14, Swapped(C187)},
    {"N10102",   Nin, "std strght",           "Ninco std straight",        16, 16, Straight(G::NincoStandardStraight)},
    {"N10103",   Nin, "1/2 strght",           "Ninco half straight",       17, 17, Straight(G::NincoHalfStraight)},
    {"N10104",   Nin, "1/4 strght",           "Ninco quarter strt",        18, 18, Straight(G::NincoQuarterStraight)},
    {"N10105L",  Nin, "std left crv",         "Ninco std curve",           19, 19, N10105},
    {"N10105R",  Nin, "std rght crv",         "Ninco std curve",           19, 19, Swapped(N10105)},
    {"N10106L",  Nin, "inner left crv",       "Ninco inner curve",         21, 21, N10106},
    {"N10106R",  Nin, "inner rght crv",       "Ninco inner curve",         21, 21, Swapped(N10106)},
    {"N10107L",  Nin, "outer left crv",       "Ninco outer curve",         23, 23, N10107},
    {"N10107R",  Nin, "outer rght crv",       "Ninco outer curve",         23, 23, Swapped(N10107)},
    {"N10108L",  Nin, "outmost left crv",     "Ninco outmost curve",       25, 25, N10108},
    {"N10108R",  Nin, "outmost rght crv",     "Ninco outmost curve",       25, 25, Swapped(N10108)},
    {"N10110",   Nin, "conversion",           "Corvel/Ninco convert",      27, 27, Straight(G::NincoHalfStraight)},
    {"C164",     Scx, "rough terrain",        "rough terrain",             13, 28, Straight(G::StandardStraight)},
    {"C248",     Scx, "hump back bridge",     "hump back bridge",          13, 29, Straight(G::StandardStraight)},
    {"C8005",    Scx, "skid chicane",         "skid chicane",              13, 30, Straight(G::StandardStraight + 1.0)},
    {"C8006",    Scx, "change over section",  "change over track",         13, 31, Straight(G::StandardStraight + 2.0), true},
    {"C8007",    Scx, "std chicane",          "standard chicane",          13, 32, Straight(G::StandardStraight + 0.5)},
    {"C8009",    Scx, "std chicane ext",      "chicane extension",         13, 33, Straight(G::StandardStraight)},
    {"C277",     Scx, "lap counter",          "lap counter",               12, 34, Straight(G::HalfStraight)},
    {"C367",     Scx, "rev start section",    "rev start section",         12, 35, Straight(G::HalfStraight)},
    {"C8010L",   Scx, "chicane ext left crv", "curved chicane ext.",        0, 36, C8010},
    {"C8010R",   Scx, "chicane ext rght crv", "curved chicane ext.",        0, 37, Swapped(C8010)},
    {"N10111",   Nin, "change over section",  "Ninco change-over",         16, 38, Straight(G::NincoStandardStraight + 2.5), true},
}};
// clang-format on

} // namespace

Catalogue InitCatalogue() {
    Catalogue catalogue;
    for (std::size_t row = 0; row < Table.size(); ++row) {
        const Row& from = Table[row];
        catalogue[row] = {.System = from.System,
                          .Code = from.Code,
                          .ShortName = from.ShortName,
                          .LongName = from.LongName,
                          .ShapeIndex = from.Shape,
                          .StockIndex = from.Stock,
                          .LaneLength1 = from.LaneLengths.First,
                          .LaneLength2 = from.LaneLengths.Second,
                          .LaneChange = from.LaneChange};
    }
    return catalogue;
}

int FindRow(const Catalogue& catalogue, std::string_view code) {
    for (int row = 0; row < CatalogueCount; ++row) {
        if (Entry(catalogue, row).Code == code) return row;
    }
    return -1;
}

int FindHeadRow(const Catalogue& catalogue, std::string_view product) {
    constexpr std::size_t paddedCode = 20;
    for (int row = 0; row < CatalogueCount; ++row) {
        if (!IsHeadRow(catalogue, row)) continue;
        std::string code(Entry(catalogue, row).Code);
        code.resize(paddedCode, ' ');
        if (std::string_view(code).substr(0, product.size()) == product) return row;
    }
    return -1;
}

char Hand(std::string_view code) {
    if (code.ends_with('L')) return 'L';
    if (code.ends_with('R')) return 'R';
    return 0;
}

std::string_view ProductCode(std::string_view code) { return Hand(code) == 0 ? code : code.substr(0, code.size() - 1); }

bool IsOfSystem(std::string_view code, TrackSystem system) {
    return code.starts_with(system == TrackSystem::Ninco ? 'N' : 'C');
}

} // namespace pistaro
