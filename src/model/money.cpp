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

} // namespace pistaro
