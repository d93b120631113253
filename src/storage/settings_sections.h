// The settings file's sections as lines, and the one procedure by which every writer replaces its own.
#pragma once

#include "catalogue/catalogue.h"
#include "model/settings.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pistaro {

inline constexpr std::string_view WorkingDirectorySection = "[Working Directory]";
inline constexpr std::string_view ViewSection = "[Settings]";
inline constexpr std::string_view UnitsSection = "[Units]";
inline constexpr std::string_view GridSection = "[Grid]";
inline constexpr std::string_view RoomSection = "[Room]";
inline constexpr std::string_view LooseTrackSection = "[My Loose Track]";
inline constexpr std::string_view BestPricesSection = "[Best Prices]";
inline constexpr std::string_view ColoursSection = "[Colors]";

/// What stands before the value in a section's lines.
inline constexpr std::string_view MidXKey = "MidX=";
inline constexpr std::string_view MidYKey = "MidY=";
inline constexpr std::string_view ZoomKey = "Zoom=";
inline constexpr std::string_view MWidKey = "MWid=";
inline constexpr std::string_view TypeKey = "Type=";
inline constexpr std::string_view CurrencyKey = "Curr=";
inline constexpr std::string_view StepKey = "Step=";

/// How many lines of a list of products are read, and dropped when it is written anew. The lists that are written have
/// grown beyond it, to a line for each head row; the number is the format's.
inline constexpr std::size_t ProductLines = 28;

/// What the dialogs say when their sections are on disk.
inline constexpr const char* SettingsSaved = "Settings saved.";

/// A header and the 8-bit lines after it, without line ends.
struct Section {
    std::string_view Header;
    std::vector<std::string> Lines;
};

Section WorkingDirectoryOf(const std::string& folder);
/// Numbers as they are typed, in double: the centre, the width and the largest displacement of the view, cm.
Section ViewOf(double midX, double midY, double zoom, double mWid);
Section UnitsOf(const Units& units);
Section GridOf(const GridSettings& grid);
Section RoomOf(const RoomPolygon& room);
Section ColoursOf(const ColourScheme& colours);

/// One line a head row, so that the product with a head row for each hand stands there twice.
Section LooseTrackOf(const Catalogue& catalogue, const std::vector<double>& ownedByRow);
Section BestPricesOf(const Catalogue& catalogue, const std::vector<double>& priceByRow);

/// The file's bytes with each of these sections' old lines replaced. Of a section as many lines are dropped as it had
/// when the format was made: the room's old angle line and a 29th product line stay after the new ones; but dropping
/// ends before the next header. A section is replaced where the reader reads it: at its first place only. One that the
/// file lacks is not added; all other lines are copied byte for byte and end in CR LF. Fault, naming `name`, when the
/// file ends inside a section that is replaced.
std::string ReplaceSections(std::string_view bytes, const std::string& name, const std::vector<Section>& sections);

/// The same bytes for the file on disk. Faults: those of reading, also of reading those bytes again, and an empty path,
/// which stands for no file.
std::string RewrittenSettings(const Catalogue& catalogue, const std::filesystem::path& path,
                              const std::vector<Section>& sections);

/// Puts them on disk in one step, and keeps other writers out meanwhile; faults leave the file as it was.
void RewriteSettings(const Catalogue& catalogue, const std::filesystem::path& path,
                     const std::vector<Section>& sections);

} // namespace pistaro
