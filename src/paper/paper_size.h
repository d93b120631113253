// The sizes of paper that printers take.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pistaro {

struct PaperSize {
    const char* Name;
    double Width, Height; ///< cm, upright

    PaperSize Turned() const { return {Name, Height, Width}; }
};

/// The sizes from the smallest to the largest, A5 to A0, then the American ones.
inline constexpr PaperSize PaperSizes[] = {
    {"A5", 14.8, 21},   {"A4", 21, 29.7},    {"A3", 29.7, 42},         {"A2", 42, 59.4},
    {"A1", 59.4, 84.1}, {"A0", 84.1, 118.9}, {"Letter", 21.59, 27.94}, {"Legal", 21.59, 35.56},
};

inline constexpr PaperSize PaperA4 = PaperSizes[1];

/// The size of that name, in capital or small letters.
std::optional<PaperSize> FindPaper(std::string_view name);

/// "A5, A4, ...".
std::string PaperNames();

} // namespace pistaro
