#include "report/html_text.h"

#include <array>

namespace pistaro {

std::string HtmlText(std::string_view text) {
    constexpr std::string_view marks = "&<>\"";
    constexpr std::array<std::string_view, marks.size()> entities{"&amp;", "&lt;", "&gt;", "&quot;"};
    std::string escaped;
    for (const char c : text) {
        const std::size_t mark = marks.find(c);
        escaped += mark == std::string_view::npos ? std::string_view(&c, 1) : entities[mark];
    }
    return escaped;
}

} // namespace pistaro
