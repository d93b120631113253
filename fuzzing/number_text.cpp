// Any text as a number, and any number as a text that reads back as the same.
#include "text/number_text.h"
#include "fuzzing/require.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

using namespace pistaro;

/// The number whose bits the input begins with; 0 where it is shorter.
template <typename Number>
Number NumberOfBits(std::string_view input) {
    Number number{};
    if (input.size() >= sizeof number) std::memcpy(&number, input.data(), sizeof number);
    return number;
}

/// What is written is at most half a unit of the last digit beside the number, and is written so again when it is read.
template <typename Number>
void WriteAndRead(Number number, double precision) {
    const std::string text = NumberText(number);
    const double value = number;
    const double read = ParseNumber(text);
    constexpr double largest =
        1.797693134862315E+308; // what is larger is rounded to fifteen digits that no double holds
    if (std::isfinite(value) && std::fabs(value) > largest) return;
    if (!std::isfinite(value)) return Require(read == 0, "a number that is not finite reads back as 0", text);
    Require(IsNumber(text), "what is written is a number", text);
    Require(std::fabs(read - value) <= std::fabs(value) * precision, "it is that number", text);
    Require(NumberText(static_cast<Number>(read)) == text, "it is written as before when it was read", text);
}

void Read(std::string_view text) {
    const double number = ParseNumber(text);
    Require(!std::isnan(number), "what is read is a number", std::string(text));
    if (!IsNumber(text)) return;
    Require(ParseNumber(" " + std::string(text)) == number, "blanks before it do not count", std::string(text));
    WriteAndRead(number, 1E-14);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    Read(input);
    WriteAndRead(NumberOfBits<float>(input), 1E-6);
    WriteAndRead(NumberOfBits<double>(input), 1E-14);
    WriteAndRead(NumberOfBits<int>(input), 0);
    return 0;
}
