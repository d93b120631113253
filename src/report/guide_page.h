// The design guide's page: the layout's picture, then each track as a row of piece pictures.
#pragma once

#include "model/circuit.h"

#include <string>

namespace pistaro {

inline constexpr const char* GuidePageName = "guide.html";
inline constexpr const char* TrackPictureName = "track.gif";

/// The name of a piece's picture: its element code and ".gif".
std::string PiecePictureName(std::string_view code);

/// The page's bytes, Windows-1252 with CR LF. Project name and codes stand in it as text, `& < > "` as HTML entities,
/// and the pictures are named without a folder, so that page and pictures can move together.
std::string GuidePage(const Circuit& circuit, const std::string& name);

} // namespace pistaro
