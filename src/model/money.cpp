#include "model/money.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

Cents CentsOf(double price) {
    constexpr double most = 1e14; // sums of a circuit's pieces still fit
    return static_cast<Cents>(std::llround(std::clamp(price * 100, -most, most)));
}

std::string MoneyText(Cents cents) {
    const std::string digits = std::to_string(std::abs(cents));
    const std::string padded = digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
    return (cents < 0 ? "-" : "") + padded.substr(0, padded.size() - 2) + "." + padded.substr(padded.size() - 2);
}

std::string CurrencySign(const std::string& currency) {
    if (currency == "EUR") return "€";
    if (currency == "GBP") return "£";
    if (currency == "USD") return "$";
    return currency;
}

std::string MoneyText(Cents cents, const MoneyMarks& marks) {
    constexpr std::size_t fraction = 3, thousands = 3; // characters
    std::string text = MoneyText(cents);
    const std::size_t sign = cents < 0 ? 1 : 0;
    std::size_t place = text.size() - fraction;
    text.replace(place, 1, marks.Decimal);
    while (place > sign + thousands) {
        place -= thousands;
        text.insert(place, marks.Group);
    }
    return text;
}

std::string MoneyText(Cents cents, const std::string& currency, const MoneyMarks& marks) {
    return MoneyText(cents, marks) + (currency.empty() ? "" : " " + CurrencySign(currency));
}

} // namespace pistaro
