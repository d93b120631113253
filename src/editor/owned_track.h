// The loose-track dialog's work: what the user owns of each product, and the best price they know for one.
#pragma once

#include "model/project.h"
#include "model/prompts.h"

#include <array>
#include <string>
#include <string_view>

namespace pistaro {

/// A product with the name by which the dialog calls it.
struct StockProduct {
    std::string_view Code; ///< the product code: the Tag of its two boxes
    std::string_view Name;
};

/// A frame of the dialog and how many of the products, in their order, stand in it.
struct StockFrame {
    std::string_view Caption;
    int Products;
};

inline constexpr std::array StockFrames{StockFrame{"Scalextric Straights", 4}, StockFrame{"Scalextric Curves", 6},
                                        StockFrame{"Scalextric Specialist Track", 9}, StockFrame{"Ninco Track", 9}};

/// The products by box index, frame after frame.
inline constexpr std::array<StockProduct, CatalogueShapeCount> StockProducts{{
    {"C160", "standard straight"},     {"C159", "half straight"},       {"C158", "quarter straight"},
    {"C157", "short straight"},        {"C151", "standard curve 45"},   {"C154", "standard curve 22.5"},
    {"C152", "inner curve 45"},        {"C156", "inner curve 90"},      {"C153", "outer curve 22.5"},
    {"C187", "banked curve 60"},       {"C164", "rough terrain"},       {"C248", "hump back bridge"},
    {"C277", "lap counter"},           {"C367", "rev start section"},   {"C8005", "skid chicane"},
    {"C8006", "change over track"},    {"C8007", "standard chicane"},   {"C8009", "chicane extension"},
    {"C8010", "curved chicane ext."},  {"N10102", "standard straight"}, {"N10103", "half straight"},
    {"N10104", "quarter straight"},    {"N10105", "standard curve"},    {"N10106", "inner curve"},
    {"N10107", "outer curve"},         {"N10108", "outmost curve"},     {"N10110", "converter to Ninco"},
    {"N10111", "change-over section"},
}};

/// A pair of boxes: the product code they stand for and the two texts as they are typed.
struct StockBox {
    std::string Tag;
    std::string Owned; ///< txtDsp
    std::string Price; ///< txtPrc
};

using StockBoxes = std::array<StockBox, CatalogueShapeCount>;

/// The boxes with their Tags and no texts.
StockBoxes EmptyStockBoxes();

/// What the dialog says before the program ends when one of its boxes stands for no product.
inline constexpr const char* StockTagFault =
    "Critical fault in sub form_load of frmStock: Tag or eType missing or wrong!";

/// Fills the boxes with the owned counts and prices of the head rows that their Tags stand for. False when a Tag stands
/// for none.
bool FillStockBoxes(const Project& project, StockBoxes& boxes);

/// Writes the boxes' numbers into the settings file and takes counts and prices as they are read back from it; of the
/// rest of the file nothing. Faults change neither file nor project: a text that is no number, a count outside 16 bits,
/// a price beyond a single, a file that cannot be written or that could not be read again.
void SaveOwnedTrack(Project& project, const StockBoxes& boxes, Prompts& prompts);

} // namespace pistaro
