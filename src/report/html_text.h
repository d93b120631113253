// Text in pages for web browsers.
#pragma once

#include <string>
#include <string_view>

namespace pistaro {

/// `& < > "` as HTML entities: a circuit may come from anywhere, and what is written in it must not become part of the
/// page.
std::string HtmlText(std::string_view text);

} // namespace pistaro
