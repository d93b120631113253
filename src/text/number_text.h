// Numbers as users and files see them: written in the shortest decimal form, read leniently.
#pragma once

#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace pistaro {

/// The shortest decimal text of a value, at most 7 significant digits: "12", "-3.5", ".25"; from 1E-04 to below 1E+07
/// plain, else with an exponent of at least two digits ("1.192093E-07"). Minus zero is "0"; a value that is not finite
/// is "INF", "-INF" or "NAN", which reads back as 0.
std::string NumberText(float value);

/// The same for a double: at most 15 significant digits, plain from 1E-04 to below 1E+15.
std::string NumberText(double value);

/// A whole number's digits.
std::string NumberText(int value);

/// The number with its sign position: a blank before a value that is zero or positive.
template <typename Number>
std::string SignedNumberText(Number value) {
    const std::string text = NumberText(value);
    return text.starts_with('-') ? text : ' ' + text;
}

/// `text` moved to the right of a field of `width` bytes; of a longer text the last bytes stay.
std::string RightAligned(std::string_view text, std::size_t width);

/// `text` at the left of a field of `width` bytes; of a longer text the first bytes stay.
std::string LeftAligned(std::string_view text, std::size_t width);

/// The number that `text` begins with, 0 where it begins with none. Blanks and tabs are skipped wherever they stand;
/// then come an optional sign, digits with one point, and an exponent "E" or "D". May be infinite ("1E999").
double ParseNumber(std::string_view text);

/// The whole of `text` as a number in the same form, blanks around it allowed; false where anything else stands there.
bool IsNumber(std::string_view text);

/// `text` with blanks and tabs at both ends removed.
std::string_view Trimmed(std::string_view text);

/// The nearest whole number, halves to the even neighbour.
double RoundHalfEven(double value);

/// `value` rounded so; nothing where it is no number or that lies outside the range.
template <typename Integer>
std::optional<Integer> RoundedWithin(double value, Integer least = std::numeric_limits<Integer>::min(),
                                     Integer most = std::numeric_limits<Integer>::max()) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= least && rounded <= most)) return std::nullopt;
    return static_cast<Integer>(rounded);
}

} // namespace pistaro
