#include "cli/option_checks.h"

#include "cli/generate.h"
#include "imaging/picture_format.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "search/piece_box.h"

#include <stdexcept>

namespace pistaro {

std::optional<double> PlainDecimal(std::string_view text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (error != std::errc() || stop != end || text.front() == '-') return std::nullopt;
    return number;
}

std::string WhyNoPictureFile(const std::string& name) {
    try {
        PictureFormatOf(PathFromText(name));
        return {};
    } catch (const Fault& fault) {
        return fault.what();
    }
}

std::string WhyNoTolerance(const std::string& text) {
    const std::optional<double> millimetres = PlainDecimal(text);
    const bool isGood = millimetres && *millimetres <= 100;
    return isGood ? "" : "\"" + text + "\" is no number of millimetres from 0 to 100";
}

std::string WhyNoArea(const std::string& text) {
    return AreaOf(text) ? "" : "\"" + text + "\" is no width and height in whole cm up to 30000, as in 400x300";
}

std::string WhyNoBox(const Catalogue& catalogue, const std::string& text) {
    try {
        BoxOf(catalogue, text);
        return {};
    } catch (const std::invalid_argument& reason) {
        return reason.what();
    }
}

std::string WhyNoSeconds(const std::string& text) {
    constexpr double most = 1e6;
    const std::optional<double> seconds = PlainDecimal(text);
    return seconds && *seconds > 0 && *seconds <= most ? "" : "\"" + text + "\" is no number of seconds above 0";
}

} // namespace pistaro
