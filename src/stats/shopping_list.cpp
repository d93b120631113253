#include "stats/shopping_list.h"

#include "model/money.h"
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
    const auto label = std::ranges::find(detail.Labels, code, &CountLabel::Tag);
    return label == detail.Labels.end() ? std::int16_t{0} : label->Count;
}

std::string ItemLine(int count, std::string_view code, const std::string& longName, float price) {
    const std::string name = Windows1252FromUtf8("(" + longName + ")");
    return RightAligned(NumberText(count), 5) + " x " + LeftAligned(code, 6) + LeftAligned(name, 22) + " at " +
           NumberText(price);
}

} // namespace

std::string ShoppingListBytes(const Catalogue& catalogue, const Stock& stock, const Units& units,
                              const Detail& detail) {
    CrLfLines lines;
    lines << "SHOPPING LIST"
          << "-------------"
          << "";
    for (const int row : catalogue.HeadRows()) {
        const CatalogueEntry& product = catalogue[row];
        const std::string_view code = ProductCode(product.Code);
        if (const int count = CountOf(detail, code); count > 0)
            lines << ItemLine(count, code, product.LongName, stock[row].Price);
    }
    lines << std::string(TotalColumn, ' ') + "-----"
          << LeftAligned("Total", TotalColumn) + NumberText(detail.TotalPrice) + Windows1252FromUtf8(units.Currency);
    return lines.Take();
}

std::string ShoppingTableBytes(const Stock& stock, const Units& units, const Detail& detail) {
    const auto quoted = [](const std::string& text) {
        std::string field = "\"";
        for (const char c : text)
            field += c == '"' ? std::string("\"\"") : std::string(1, c);
        return field + '"';
    };
    CrLfLines lines;
    lines << "count,code,name,price,sum";
    Cents total = 0;
    for (const CountLabel& label : detail.Labels) {
        if (label.Count <= 0) continue;
        const Cents price = CentsOf(stock[label.Product->StockIndex].Price);
        total += price * label.Count;
        lines << std::to_string(label.Count) + "," + label.Tag + "," + quoted(label.Product->LongName) + "," +
                     (price == 0 ? "," : MoneyText(price) + "," + MoneyText(price * label.Count)); // 0 is unknown
    }
    lines << ",," + quoted("Total, " + units.Currency) + ",," + MoneyText(total);
    return lines.Take();
}

Message WriteShoppingList(const Catalogue& catalogue, const Stock& stock, const Preferences& preferences,
                          const Detail& detail) {
    const std::string file = InWorkingDirectory(preferences, ShoppingListName);
    ReplaceFile(PathFromText(file), ShoppingListBytes(catalogue, stock, preferences.Units, detail));
    return {Icon::Information, "The shopping list has been written to " + file};
}

} // namespace pistaro
