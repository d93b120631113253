// File formats by the endings of files' names: a table for each kind of format.
#pragma once

#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>

namespace pistaro {

template <typename Format>
struct FileEnding {
    const char* Text; ///< with its point, in small letters
    Format Value;
};

/// A file's ending with its point, in small letters.
inline std::string EndingIn(const std::filesystem::path& file) {
    std::string text = TextFromPath(file.extension());
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

/// Whether a file's name ends as if it told a format, known or not: in a point and two to five letters and digits, of
/// which a letter is first. "Oval 2.0" does not.
inline bool TellsFormat(const std::filesystem::path& file) {
    const std::string ending = EndingIn(file);
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto isWordly = [&](char c) { return isLetter(c) || (c >= '0' && c <= '9'); };
    constexpr std::size_t least = 3, most = 6; // with the point
    return ending.size() >= least && ending.size() <= most && isLetter(ending[1]) &&
           std::all_of(ending.begin() + 1, ending.end(), isWordly);
}

/// The first ending of a format that the table has.
template <typename Table, typename Format>
const char* EndingOf(const Table& table, Format format) {
    return std::ranges::find(table, format, &Table::value_type::Value)->Text;
}

/// The format that a file's ending names, in capital or small letters: the first where several have it.
template <typename Table>
auto FormatIn(const Table& table, const std::filesystem::path& file) {
    const auto found =
        std::ranges::find(table, EndingIn(file), [](const auto& ending) { return std::string(ending.Text); });
    return found == table.end() ? std::nullopt : std::optional(found->Value);
}

/// ".png, .svg, ...": an ending for each format that one can be named by.
template <typename Table>
std::string EndingsText(const Table& table) {
    std::string text;
    for (const auto& ending : table) {
        const bool names = FormatIn(table, std::string("x") + ending.Text) == ending.Value;
        if (names && ending.Text == EndingOf(table, ending.Value))
            text += (text.empty() ? "" : ", ") + std::string(ending.Text);
    }
    return text;
}

} // namespace pistaro
