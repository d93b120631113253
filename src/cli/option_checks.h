// What the parser asks of options' values before a verb begins: each check is empty for a good one, else it tells why
// not.
#pragma once

#include "catalogue/catalogue.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace pistaro {

/// A file whose ending names a picture format.
std::string WhyNoPictureFile(const std::string& name);

/// A tolerance in millimetres.
std::string WhyNoTolerance(const std::string& text);

/// A width and a height, "400x300".
std::string WhyNoArea(const std::string& text);

/// Products with counts, "C160=8,C151=16".
std::string WhyNoBox(const Catalogue& catalogue, const std::string& text);

/// A time above 0.
std::string WhyNoSeconds(const std::string& text);

/// A decimal number, all of the text, without sign or exponent; nothing for any other.
std::optional<double> PlainDecimal(std::string_view text);

/// A whole number of this range in plain digits; the parser by itself would take "010" for 8.
template <typename Integer>
CLI::Validator PlainNumber(Integer least, Integer most) {
    const auto whyNot = [=](const std::string& text) {
        Integer number = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number);
        const bool plain = error == std::errc() && stop == end && (text == "0" || !text.starts_with('0'));
        if (plain && number >= least && number <= most) return std::string();
        return "\"" + text + "\" is no whole number from " + std::to_string(least) + " to " + std::to_string(most);
    };
    return {whyNot, ""};
}

} // namespace pistaro
