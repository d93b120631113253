// Reads a text file's bytes line by line and tells its faults with file and line.
#pragma once

#include "platform/fault.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pistaro {

inline constexpr std::size_t MostFileBytes = 4 << 20; ///< no circuit or settings file comes near it

/// Lines end in CR LF, LF or CR; the last one may end with the file.
class LineReader {
public:
    /// `name` is the file's name in faults. Bytes that no text holds are a fault at once: it is no such file.
    LineReader(std::string_view bytes, std::string name);

    bool AtEnd() const { return rest_.empty(); }

    /// The next line without its end, left where it is; empty at the end of the file.
    std::string_view Peek() const;

    /// The next line without its end. At the end of the file a fault that says what was to come.
    std::string_view Next(const std::string& wanted);

    /// The next line as a number. Faults outside the type's range.
    float NextSingle(const std::string& wanted);

    /// The number that `text`, a part of the line read last, begins with. Faults outside the type's range.
    double DoubleIn(std::string_view text) const;
    float SingleIn(std::string_view text) const;
    /// A single at which a scroll bar can stand.
    float BarPlaceIn(std::string_view text) const;
    std::int16_t IntegerIn(std::string_view text) const;
    std::int32_t LongIn(std::string_view text) const;

    /// "name, line n: detail" for the line read last.
    std::string Here(const std::string& detail) const;

private:
    template <typename Integer>
    Integer WholeNumberIn(std::string_view text) const;

    std::string_view rest_;
    std::string name_;
    int line_ = 0;
};

} // namespace pistaro
