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

/// The first ending of a format that the table has.
template <typename Table, typename Format>
const char* EndingOf(const Table& table, Format format) {
    return std::ranges::find(table, format, &Table::value_type::Value)->Text;
}

/// ".png, .svg, ...": an ending for each format.
template <typename Table>
std::string EndingsText(const Table& table) {
    std::string text;
    for (const auto& ending : table) {
        if (ending.Text == EndingOf(table, ending.Value)) text += (text.empty() ? "" : ", ") + std::string(ending.Text);
    }
    return text;
}

/// The format that a file's ending names, in capital or small letters.
template <typename Table>
auto FormatIn(const Table& table, const std::filesystem::path& file) {
    const auto found =
        std::ranges::find(table, EndingIn(file), [](const auto& ending) { return std::string(ending.Text); });
    return found == table.end() ? std::nullopt : std::optional(found->Value);
}

} // namespace pistaro
