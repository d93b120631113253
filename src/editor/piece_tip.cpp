#include "editor/piece_tip.h"

namespace pistaro {

std::string PieceTip(const Catalogue& catalogue, const Project& project, const PieceAddress& piece,
                     const MoneyMarks& marks) {
    const auto track = static_cast<std::size_t>(piece.Track);
    const auto element = static_cast<std::size_t>(piece.Element);
    const std::string& code = project.Design.Circuit.Tracks[track].ElementCodes[element];
    const std::string place =
        "\nTrack " + std::to_string(piece.Track + 1) + ", element " + std::to_string(piece.Element);
    const CatalogueEntry* const entry = catalogue.Find(code);
    if (entry == nullptr) return code + ", not in the catalogue" + place;

    const Units& units = project.Preferences.Units;
    const std::string lanes = "\nLanes " + LengthLabel(entry->LaneLength1, units) + " and " +
                              LengthLabel(entry->LaneLength2, units) + " " + units.Name() + " by the catalogue";
    const float price = project.Stock[entry->StockIndex].Price;
    const std::string cost = price > 0 ? "\n" + MoneyText(CentsOf(price), units.Currency, marks) : "\nNo price known";
    const bool covered = AssignStockColours(catalogue, project.Stock, project.Design.Circuit)[track][element];
    return code + ", " + entry->LongName + place + lanes + cost + (covered ? ", owned" : ", not owned");
}

} // namespace pistaro
