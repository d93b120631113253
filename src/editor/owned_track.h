// The loose-track dialog's work: what the user owns of each product, and the best price they know for one.
#pragma once

#include "model/prompts.h"
#include "model/stock.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pistaro {

/// The frame of the dialog in which a product's boxes stand.
enum class StockFrame { ScalextricStraights, ScalextricCurves, ScalextricSpecialists, Ninco };

/// A pair of boxes: the product code they stand for and the two texts as they are typed.
struct StockBox {
    std::string Tag;
    std::string Name; ///< by which the dialog calls the product
    StockFrame Frame = StockFrame::ScalextricStraights;
    std::string Owned; ///< txtDsp
    std::string Price; ///< txtPrc
};

/// Frame after frame, and in each by the products' places.
using StockBoxes = std::vector<StockBox>;

/// The boxes of all products, with no texts.
StockBoxes EmptyStockBoxes(const Catalogue& catalogue);

/// The number that somebody typed. Fault: it is none, told with `what` it was to be.
double NumberIn(const std::string& text, const std::string& what);

/// "Scalextric Straights" and its like.
const char* CaptionOf(StockFrame frame);

/// What the dialog says before the program ends when one of its boxes stands for no product.
inline constexpr const char* StockTagFault =
    "Critical fault in sub form_load of frmStock: Tag or eType missing or wrong!";

/// Fills the boxes with the owned counts and prices of the head rows that their Tags stand for. False when a Tag stands
/// for none.
bool FillStockBoxes(const Catalogue& catalogue, const Stock& stock, StockBoxes& boxes);

/// Writes the boxes' numbers into the settings file and takes counts and prices as they are read back from it; of the
/// rest of the file nothing. Gives the warnings that reading gave. Faults change neither file nor stock: a text that is
/// no number, a count outside 16 bits, a price beyond a single, a file that cannot be written or that could not be read
/// again.
std::vector<Message> KeepOwnedTrack(const Catalogue& catalogue, const std::filesystem::path& settingsPath, Stock& stock,
                                    const StockBoxes& boxes);

/// The same, and tells that it is saved.
void SaveOwnedTrack(const Catalogue& catalogue, const std::filesystem::path& settingsPath, Stock& stock,
                    const StockBoxes& boxes, Prompts& prompts);

} // namespace pistaro
