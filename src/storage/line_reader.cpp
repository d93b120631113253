#include "storage/line_reader.h"

#include "model/view_settings.h"
#include "text/number_text.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

/// Control characters other than tab, line feed, form feed and carriage return stand in no text.
bool IsBinary(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 && c != '\t' && c != '\n' && c != '\f' && c != '\r';
}

} // namespace

LineReader::LineReader(std::string_view bytes, std::string name) : rest_(bytes), name_(std::move(name)) {
    const auto binary = std::ranges::find_if(bytes, IsBinary);
    if (binary == bytes.end()) return;
    line_ = 1 + static_cast<int>(std::count(bytes.begin(), binary, '\n'));
    throw BadFileFormat(Here("this is not a text file"));
}

std::string_view LineReader::Peek() const { return rest_.substr(0, rest_.find_first_of("\r\n")); }

std::string_view LineReader::Next(const std::string& wanted) {
    ++line_;
    if (AtEnd()) throw InputPastEndOfFile(Here(wanted + " is missing"));
    const std::string_view line = Peek();
    rest_.remove_prefix(line.size());
    if (!rest_.empty()) rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
    return line;
}

float LineReader::NextSingle(const std::string& wanted) { return SingleIn(Next(wanted)); }

double LineReader::DoubleIn(std::string_view text) const {
    const double value = ParseNumber(text);
    if (!std::isfinite(value)) throw Overflow(Here("the number is too large"));
    return value;
}

float LineReader::SingleIn(std::string_view text) const {
    const auto value = static_cast<float>(DoubleIn(text));
    if (!std::isfinite(value)) throw Overflow(Here("the number is too large"));
    return value;
}

float LineReader::BarPlaceIn(std::string_view text) const {
    const float value = SingleIn(text);
    if (!IsBarPlace(value)) throw Overflow(Here("a scroll bar cannot stand at " + NumberText(value)));
    return value;
}

template <typename Integer>
Integer LineReader::WholeNumberIn(std::string_view text) const {
    const double value = DoubleIn(text);
    if (const auto whole = RoundedWithin<Integer>(value)) return *whole;
    throw Overflow(
        Here(NumberText(RoundHalfEven(value)) + " is outside " + std::to_string(8 * sizeof(Integer)) + " bits"));
}

std::int16_t LineReader::IntegerIn(std::string_view text) const { return WholeNumberIn<std::int16_t>(text); }

std::int32_t LineReader::LongIn(std::string_view text) const { return WholeNumberIn<std::int32_t>(text); }

std::string LineReader::Here(const std::string& detail) const {
    return name_ + ", line " + std::to_string(line_) + ": " + detail;
}

} // namespace pistaro
