// Money in whole cents, so that sums are right to the cent whatever their order.
#pragma once

#include <cstdint>
#include <string>

namespace pistaro {

using Cents = std::int64_t;

/// A price rounded to the cent. What is beyond a million millions counts as that much.
Cents CentsOf(double price);

/// "12.50"
std::string MoneyText(Cents cents);

/// The currency's sign where it has one that everybody knows: "€" for "EUR".
std::string CurrencySign(const std::string& currency);

/// How a desktop writes numbers.
struct MoneyMarks {
    std::string Decimal = ".";
    std::string Group; ///< between thousands

    bool operator==(const MoneyMarks&) const = default;
};

/// "1.234,50" with the marks of a German desktop.
std::string MoneyText(Cents cents, const MoneyMarks& marks);

/// "12.50 €": with the currency's sign, where there is a currency.
std::string MoneyText(Cents cents, const std::string& currency, const MoneyMarks& marks = {});

} // namespace pistaro
