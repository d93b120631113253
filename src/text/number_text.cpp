// Number texts by the standard library's rounding, brought into the short form without a leading zero.
#include "text/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale>
#include <sstream>

namespace pistaro {

namespace {

/// Sign, digits without trailing zeros, and the power of ten of the first digit: "d.ddde+xx" taken apart.
struct Decimal {
    bool Negative;
    std::string Digits;
    int Exponent;
};

Decimal TakeApart(double value, int significantDigits) {
    std::array<char, 40> buffer{};
    // Whatever the user's locale: its decimal point has no place in a file.
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                          std::chars_format::scientific, significantDigits - 1)
                                .ptr;
    const std::string_view printed(buffer.data(), end);
    const std::size_t e = printed.find('e');
    std::string digits(printed.substr(0, e));
    std::erase(digits, '.');
    digits.resize(digits.find_last_not_of('0') + 1);
    int exponent = 0;
    const std::size_t afterSign = e + 2;
    std::from_chars(printed.data() + afterSign, end, exponent);
    return {std::signbit(value), digits, printed[e + 1] == '-' ? -exponent : exponent};
}

std::string Plain(const Decimal& number) {
    const int count = static_cast<int>(number.Digits.size());
    const int pointAt = number.Exponent + 1;
    if (pointAt <= 0) return '.' + std::string(static_cast<std::size_t>(-pointAt), '0') + number.Digits;
    if (pointAt >= count) return number.Digits + std::string(static_cast<std::size_t>(pointAt - count), '0');
    return number.Digits.substr(0, static_cast<std::size_t>(pointAt)) + '.' +
           number.Digits.substr(static_cast<std::size_t>(pointAt));
}

std::string WithExponent(const Decimal& number) {
    std::string text = number.Digits.substr(0, 1);
    if (number.Digits.size() > 1) text += '.' + number.Digits.substr(1);
    const std::string exponent = std::to_string(std::abs(number.Exponent));
    return text + (number.Exponent < 0 ? "E-" : "E+") + (exponent.size() < 2 ? "0" : "") + exponent;
}

std::string ShortestText(double value, int significantDigits) {
    if (value == 0) return "0";
    if (std::isnan(value)) return "NAN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    const Decimal number = TakeApart(value, significantDigits);
    const bool plain = number.Exponent >= -4 && number.Exponent < significantDigits;
    return (number.Negative ? "-" : "") + (plain ? Plain(number) : WithExponent(number));
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

struct NumberScan {
    std::string Number; ///< in the form that a stream reads
    bool AnyDigit = false;
    bool ToTheEnd = false;
};

/// Reads `text`, from which the blanks are gone, as far as it makes a number.
NumberScan Scan(const std::string& text) {
    NumberScan scan;
    std::size_t at = 0;
    const auto digits = [&] {
        const std::size_t from = at;
        while (at < text.size() && IsDigit(text[at]))
            scan.Number += text[at++];
        return at > from;
    };
    const auto sign = [&] {
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) scan.Number += text[at++];
    };
    sign();
    scan.AnyDigit = digits();
    if (at < text.size() && text[at] == '.') {
        scan.Number += text[at++];
        scan.AnyDigit |= digits();
    }
    if (!scan.AnyDigit) return scan;
    if (at < text.size() && std::string_view("EeDd").find(text[at]) != std::string_view::npos) {
        const std::string mantissa = scan.Number;
        const std::size_t mark = at++;
        scan.Number += 'e';
        sign();
        if (!digits()) {
            scan.Number = mantissa;
            at = mark;
        }
    }
    scan.ToTheEnd = at == text.size();
    return scan;
}

std::string WithoutBlanks(std::string_view text) {
    std::string rest(text);
    std::erase_if(rest, IsBlank);
    return rest;
}

} // namespace

std::string NumberText(float value) { return ShortestText(value, 7); }
std::string NumberText(double value) { return ShortestText(value, 15); }
std::string NumberText(int value) { return std::to_string(value); }

std::string RightAligned(std::string_view text, std::size_t width) {
    if (text.size() >= width) return std::string(text.substr(text.size() - width));
    return std::string(width - text.size(), ' ') + std::string(text);
}

std::string LeftAligned(std::string_view text, std::size_t width) {
    std::string field(text.substr(0, width));
    field.resize(width, ' ');
    return field;
}

double ParseNumber(std::string_view text) {
    const NumberScan scan = Scan(WithoutBlanks(text));
    if (!scan.AnyDigit) return 0;
    // A stream of its own locale, because strtod would look for the user's decimal comma.
    std::istringstream number(scan.Number);
    number.imbue(std::locale::classic());
    double value = 0;
    if (number >> value) return value;
    return std::copysign(std::numeric_limits<double>::infinity(), value);
}

bool IsNumber(std::string_view text) {
    const std::string_view trimmed = Trimmed(text);
    if (trimmed.find_first_of(" \t") != std::string_view::npos) return false;
    const NumberScan scan = Scan(std::string(trimmed));
    return scan.AnyDigit && scan.ToTheEnd;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

double RoundHalfEven(double value) { return std::nearbyint(value); }

} // namespace pistaro
