// The list's columns.
#include "stats/shopping_list.h"

#include "model/working_directory.h"
#include "platform/files.h"
#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

#include <algorithm>

namespace pistaro {

namespace {

constexpr std::size_t TotalColumn = 39;

std::int16_t CountOf(const Detail& detail, std::string_view code) {
    const auto* const label =
        std::find_if(CountLabels.begin(), CountLabels.end(), [&](const CountLabel& each) { return each.Tag == code; });
    return detail.Counts[static_cast<std::size_t>(label - CountLabels.begin())];
}

std::string ItemLine(int count, std::string_view code, const CatalogueEntry& product) {
    const std::string name = Windows1252FromUtf8("(" + std::string(product.LongName) + ")");
    return RightAligned(NumberText(count), 5) + " x " + LeftAligned(code, 6) + LeftAligned(name, 22) + " at " +
           NumberText(product.Price);
}

} // namespace

std::string ShoppingListBytes(const Project& project, const Detail& detail) {
    CrLfLines lines;
    lines << "SHOPPING LIST"
          << "-------------"
          << "";
    for (int row = 0; row < CatalogueCount; ++row) {
        if (!IsHeadRow(project.Pieces, row)) continue;
        const CatalogueEntry& product = Entry(project.Pieces, row);
        const std::string_view code = ProductCode(product.Code);
        if (const int count = CountOf(detail, code); count > 0) lines << ItemLine(count, code, product);
    }
    lines << std::string(TotalColumn, ' ') + "-----"
          << LeftAligned("Total", TotalColumn) + NumberText(detail.TotalPrice) +
                 Windows1252FromUtf8(project.DisplayUnits.Currency);
    return lines.Take();
}

Message WriteShoppingList(const Project& project, const Detail& detail) {
    const std::string file = InWorkingDirectory(project, ShoppingListName);
    ReplaceFile(PathFromText(file), ShoppingListBytes(project, detail));
    return {Icon::Information, "The shopping list has been written to " + file};
}

} // namespace pistaro
