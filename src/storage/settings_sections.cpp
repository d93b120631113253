// Sections written, and replaced line by line.
#include "storage/settings_sections.h"

#include "platform/files.h"
#include "storage/room_block.h"
#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

#include <algorithm>

namespace pistaro {

namespace {

Section StockSection(std::string_view header, const std::array<double, CatalogueCount>& valueByRow) {
    const Catalogue catalogue = InitCatalogue();
    Section section{header, {}};
    for (int row = 0; row < CatalogueCount; ++row) {
        if (!IsHeadRow(catalogue, row)) continue;
        const std::string product(ProductCode(Entry(catalogue, row).Code));
        section.Lines.push_back(product + "=" + NumberText(valueByRow[static_cast<std::size_t>(row)]));
    }
    return section;
}

/// How many old lines the section takes the place of: as many as it has itself, but for the lists of products, which
/// get one line more than they are read with, and for the room, whose points are counted in its first line.
std::size_t OldLineCount(LineReader& lines, const Section& section) {
    if (section.Header == RoomSection) {
        return static_cast<std::size_t>(RoomPointCountIn(lines, lines.Next("the number of room points")));
    }
    const bool isProductList = section.Header == LooseTrackSection || section.Header == BestPricesSection;
    return isProductList ? CatalogueShapeCount : section.Lines.size();
}

} // namespace

Section WorkingDirectoryOf(const std::string& folder) {
    return {WorkingDirectorySection, {Windows1252FromUtf8(folder)}};
}

Section ViewOf(double midX, double midY, double zoom, double mWid) {
    return {ViewSection,
            {std::string(MidXKey) + NumberText(midX), std::string(MidYKey) + NumberText(midY),
             std::string(ZoomKey) + NumberText(zoom), std::string(MWidKey) + NumberText(mWid)}};
}

Section UnitsOf(const Units& units) {
    return {UnitsSection,
            {std::string(TypeKey) + (units.Inches ? "1" : "0"),
             std::string(CurrencyKey) + Windows1252FromUtf8(units.Currency)}};
}

Section GridOf(const GridSettings& grid) {
    return {GridSection,
            {std::string(TypeKey) + NumberText(int{grid.Type}), std::string(StepKey) + NumberText(int{grid.Step})}};
}

Section RoomOf(const RoomPolygon& room) { return {RoomSection, RoomBlockLines(room)}; }

Section ColoursOf(const ColourScheme& colours) {
    Section section{ColoursSection, {}};
    for (const ColourSlot& slot : ColourSlots)
        section.Lines.push_back(slot.Key + NumberText(colours.*slot.Slot));
    return section;
}

Section LooseTrackOf(const std::array<double, CatalogueCount>& ownedByRow) {
    return StockSection(LooseTrackSection, ownedByRow);
}

Section BestPricesOf(const std::array<double, CatalogueCount>& priceByRow) {
    return StockSection(BestPricesSection, priceByRow);
}

std::string ReplaceSections(std::string_view bytes, const std::string& name, const std::vector<Section>& sections) {
    LineReader lines(bytes, name);
    CrLfLines replaced;
    while (!lines.AtEnd()) {
        const std::string_view line = lines.Next("a section");
        replaced << line;
        const auto own = std::ranges::find(sections, line, &Section::Header);
        if (own == sections.end()) continue;
        for (std::size_t old = OldLineCount(lines, *own); old > 0; --old)
            lines.Next("a line of " + std::string(own->Header));
        for (const std::string& added : own->Lines)
            replaced << added;
    }
    return replaced.Take();
}

std::string RewrittenSettings(const std::filesystem::path& path, const std::vector<Section>& sections) {
    if (path.empty()) throw Fault("Path not found", "there is no settings file to write");
    return ReplaceSections(ReadFile(path, MostFileBytes), TextFromPath(path), sections);
}

void RewriteSettings(const std::filesystem::path& path, const std::vector<Section>& sections) {
    ReplaceFile(path, RewrittenSettings(path, sections));
}

} // namespace pistaro
