// The reader, section by section. Keys are skipped by their length and never looked at.
#include "storage/settings_file.h"

#include "platform/files.h"
#include "platform/places.h"
#include "storage/folder_line.h"
#include "storage/initial_settings.h"
#include "storage/room_block.h"
#include "storage/section_format.h"
#include "storage/settings_sections.h"
#include "text/windows1252.h"

#include <algorithm>
#include <array>
#include <set>

namespace pistaro {

namespace {

constexpr const char* IncompleteFile = "CORVEL.INI incomplete, missing values defaulted to zero!";

/// What follows the key in the line read last.
std::string_view ValueIn(std::string_view line, std::string_view key, const LineReader& lines) {
    if (line.size() < key.size()) throw InvalidProcedureCall(lines.Here("the value line is too short"));
    return line.substr(key.size());
}

std::string_view NextValue(LineReader& lines, std::string_view key) {
    return ValueIn(lines.Next(std::string(key)), key, lines);
}

void WarnOfMissingValues(Settings& settings) { settings.Messages.push_back({Icon::Exclamation, IncompleteFile}); }

void ReadWorkingDirectory(LineReader& lines, const Catalogue&, Settings& settings) {
    settings.Preferences.WorkingDirectory = FolderInLine(lines.Next("the working directory"));
}

void ReadView(LineReader& lines, const Catalogue&, Settings& settings) {
    settings.MidX = lines.BarPlaceIn(NextValue(lines, MidXKey));
    settings.MidY = lines.BarPlaceIn(NextValue(lines, MidYKey));
    const std::string_view zoom = NextValue(lines, ZoomKey);
    lines.SingleIn(zoom); // the view's width is a single
    settings.Zoom = lines.DoubleIn(zoom);
    settings.Preferences.MWid = lines.BarPlaceIn(NextValue(lines, MWidKey));
}

void ReadUnits(LineReader& lines, const Catalogue&, Settings& settings) {
    settings.Preferences.Units.Inches = lines.IntegerIn(NextValue(lines, TypeKey)) != 0;
    settings.Preferences.Units.Currency = Utf8FromWindows1252(NextValue(lines, CurrencyKey));
}

void ReadGrid(LineReader& lines, const Catalogue&, Settings& settings) {
    settings.Preferences.Grid.Type = lines.IntegerIn(NextValue(lines, TypeKey));
    settings.Preferences.Grid.Step = lines.IntegerIn(NextValue(lines, StepKey));
}

void ReadRoom(LineReader& lines, const Catalogue&, Settings& settings) { settings.Room = ReadRoomBlock(lines); }

void ReadColours(LineReader& lines, const Catalogue&, Settings& settings) {
    for (const ColourSlot& slot : ColourSlots) {
        const std::string_view line = lines.Next(slot.Key);
        if (line.empty()) {
            WarnOfMissingValues(settings);
            return;
        }
        settings.Preferences.Colours.*slot.Slot = lines.LongIn(ValueIn(line, slot.Key, lines));
    }
}

/// One line a product, "C151=4"; `store` takes the value's text for the product's stock.
template <typename Store>
void ReadStockLines(LineReader& lines, const Catalogue& catalogue, Settings& settings, Store store) {
    for (std::size_t i = 0; i < ProductLines; ++i) {
        const std::string_view line = lines.Next("a product");
        if (line.empty()) {
            WarnOfMissingValues(settings);
            return;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) throw InvalidProcedureCall(lines.Here("there is no \"=\""));
        const int row = catalogue.FindHeadRow(line.substr(0, equals));
        if (row >= 0) store(settings.Stock.Of(row), line.substr(equals + 1));
    }
}

void ReadLooseTrack(LineReader& lines, const Catalogue& catalogue, Settings& settings) {
    ReadStockLines(lines, catalogue, settings,
                   [&](ProductStock& stock, std::string_view value) { stock.OwnedCount = lines.IntegerIn(value); });
}

void ReadBestPrices(LineReader& lines, const Catalogue& catalogue, Settings& settings) {
    ReadStockLines(lines, catalogue, settings,
                   [&](ProductStock& stock, std::string_view value) { stock.Price = lines.SingleIn(value); });
}

constexpr std::array SectionFormats{
    SectionFormat{WorkingDirectorySection, 1, false, ReadWorkingDirectory},
    SectionFormat{ViewSection, 4, false, ReadView},
    SectionFormat{UnitsSection, 2, false, ReadUnits},
    SectionFormat{GridSection, 2, false, ReadGrid},
    SectionFormat{RoomSection, 0, false, ReadRoom},
    SectionFormat{LooseTrackSection, ProductLines, true, ReadLooseTrack},
    SectionFormat{BestPricesSection, ProductLines, true, ReadBestPrices},
    SectionFormat{ColoursSection, std::size(ColourSlots), true, ReadColours},
};

} // namespace

const SectionFormat* SectionHeadedBy(std::string_view line) {
    const auto* const found = std::ranges::find(SectionFormats, line, &SectionFormat::Header);
    return found == SectionFormats.end() ? nullptr : found;
}

Settings ParseSettings(const Catalogue& catalogue, std::string_view bytes, const std::string& name, Settings settings) {
    settings.Stock.Products.resize(static_cast<std::size_t>(catalogue.Count()));
    LineReader lines(bytes, name);
    std::set<const SectionFormat*> read{nullptr};
    while (!lines.AtEnd()) {
        const SectionFormat* const section = SectionHeadedBy(lines.Next("a section"));
        if (read.insert(section).second) section->Read(lines, catalogue, settings);
    }
    return settings;
}

Settings ReadSettings(const Catalogue& catalogue, const std::filesystem::path& path) {
    return ParseSettings(catalogue, ReadFile(path, MostFileBytes), TextFromPath(path));
}

std::string InitialWorkingDirectory() {
    const std::filesystem::path documents = DocumentsFolder();
    return documents.empty() ? std::string() : TextFromPath(documents / "Pistaro") + FolderSeparator();
}

Settings InitialSettings(const Catalogue& catalogue) {
    return ParseSettings(catalogue, InitialSettingsText, SettingsName);
}

std::string InitialSettingsBytes(const Catalogue& catalogue, const std::filesystem::path& brought,
                                 const std::string& workingDirectory) {
    std::error_code none;
    const std::string bytes =
        std::filesystem::exists(brought, none) ? ReadFile(brought, MostFileBytes) : std::string(InitialSettingsText);
    const std::string name = TextFromPath(brought);
    ParseSettings(catalogue, bytes, name); // a damaged file is refused before it is put in place
    std::string replaced = ReplaceSections(bytes, name, {WorkingDirectoryOf(workingDirectory)});
    ParseSettings(catalogue, replaced, name); // nor is one that the new line damages
    return replaced;
}

std::string InitialSettingsBytes(const Catalogue& catalogue) {
    return InitialSettingsBytes(catalogue, InstalledFolder() / SettingsName, InitialWorkingDirectory());
}

} // namespace pistaro
