// Tracks and projects short enough to type.
#pragma once

#include "model/project.h"
#include "support/pieces.h"

#include <string>
#include <vector>

namespace pistaro {

/// The codes in a text, parted by blanks.
std::vector<std::string> Codes(const std::string& text);

/// Their rows of the catalogue.
std::vector<int> RowsOf(const std::string& codes);

/// A track that starts at 0, 0 with heading 0 and holds these pieces.
Track Chain(const std::string& codes);

/// A project of the initial settings whose tracks 1 to 3 hold these pieces; nothing is selected.
Project ProjectOf(const std::string& track1, const std::string& track2 = "", const std::string& track3 = "");

/// The track's codes as one text.
std::string CodesOf(const Track& track);

} // namespace pistaro
