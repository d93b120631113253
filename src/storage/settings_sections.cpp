#include "storage/settings_sections.h"

#include "platform/files.h"
#include "platform/locks.h"
#include "storage/folder_line.h"
#include "storage/room_block.h"
#include "storage/settings_file.h"
#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

#include <algorithm>

namespace pistaro {

namespace {

Section StockSection(std::string_view header, const Catalogue& catalogue, const std::vector<double>& valueByRow) {
    Section section{header, {}};
    for (int row = 0; row < catalogue.Count(); ++row) {
        if (!catalogue.IsHeadRow(row)) continue;
        const std::string product(ProductCode(catalogue[row].Code));
        section.Lines.push_back(product + "=" + NumberText(valueByRow[static_cast<std::size_t>(row)]));
    }
    return section;
}

/// How many lines stand after a header, but for the room's, which are counted in the first of them.
struct SectionShape {
    std::string_view Header;
    std::size_t Lines;
    bool EmptyLineEnds; ///< for the reader, who warns of what is missing
};

constexpr std::array SectionShapes{
    SectionShape{WorkingDirectorySection, 1, false},
    SectionShape{ViewSection, 4, false},
    SectionShape{UnitsSection, 2, false},
    SectionShape{GridSection, 2, false},
    SectionShape{RoomSection, 0, false},
    SectionShape{LooseTrackSection, ProductLines, true},
    SectionShape{BestPricesSection, ProductLines, true},
    SectionShape{ColoursSection, std::size(ColourSlots), true},
};

const SectionShape* ShapeOf(std::string_view line) {
    const auto* const found = std::ranges::find(SectionShapes, line, &SectionShape::Header);
    return found == SectionShapes.end() ? nullptr : found;
}

/// Goes through a file and sees its sections where the reader sees them: a line that is taken for another section's
/// value is no header.
class Rewriting {
public:
    Rewriting(std::string_view bytes, const std::string& name) : lines_(bytes, name) {}

    std::string With(const std::vector<Section>& sections) {
        std::vector<const SectionShape*> seen;
        while (!lines_.AtEnd()) {
            const SectionShape* const shape = ShapeOf(lines_.Peek());
            Copy(1);
            if (shape == nullptr || std::ranges::find(seen, shape) != seen.end()) continue;
            seen.push_back(shape);
            const auto own = std::ranges::find(sections, shape->Header, &Section::Header);
            if (own == sections.end()) {
                CopyLinesOf(*shape);
                continue;
            }
            DropLinesOf(*shape);
            for (const std::string& line : own->Lines)
                written_ << line;
        }
        return written_.Take();
    }

private:
    void Copy(std::size_t count) {
        for (; count > 0 && !lines_.AtEnd(); --count)
            written_ << lines_.Next("a line");
    }

    /// Copies what the reader takes for the section; it is his to tell what is wrong there.
    void CopyLinesOf(const SectionShape& shape) {
        if (shape.Header == RoomSection) {
            const std::string_view count = lines_.Peek();
            Copy(1);
            Copy(static_cast<std::size_t>(RoomPointCountIn(lines_, count)) + 1); // and the angle
            return;
        }
        for (std::size_t left = shape.Lines; left > 0; --left) {
            const bool isLast = shape.EmptyLineEnds && lines_.Peek().empty();
            Copy(1);
            if (isLast) return;
        }
    }

    /// Drops as many old lines as the section had when the format was made, without the room's angle, but no header.
    void DropLinesOf(const SectionShape& shape) {
        std::size_t left = shape.Lines;
        if (shape.Header == RoomSection && ShapeOf(lines_.Peek()) == nullptr) {
            left = static_cast<std::size_t>(RoomPointCountIn(lines_, lines_.Next("the number of room points")));
        }
        bool hasEnded = false;
        for (; left > 0 && ShapeOf(lines_.Peek()) == nullptr && !(hasEnded && lines_.AtEnd()); --left) {
            const std::string_view line = lines_.Next("a line of " + std::string(shape.Header));
            hasEnded |= shape.EmptyLineEnds && line.empty();
        }
    }

    LineReader lines_;
    CrLfLines written_;
};

} // namespace

Section WorkingDirectoryOf(const std::string& folder) { return {WorkingDirectorySection, {FolderLine(folder)}}; }

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

Section LooseTrackOf(const Catalogue& catalogue, const std::vector<double>& ownedByRow) {
    return StockSection(LooseTrackSection, catalogue, ownedByRow);
}

Section BestPricesOf(const Catalogue& catalogue, const std::vector<double>& priceByRow) {
    return StockSection(BestPricesSection, catalogue, priceByRow);
}

std::string ReplaceSections(std::string_view bytes, const std::string& name, const std::vector<Section>& sections) {
    return Rewriting(bytes, name).With(sections);
}

std::string RewrittenSettings(const Catalogue& catalogue, const std::filesystem::path& path,
                              const std::vector<Section>& sections) {
    if (path.empty()) throw Fault("Path not found", "there is no settings file to write");
    const std::string name = TextFromPath(path);
    std::string bytes = ReplaceSections(ReadFile(path, MostFileBytes), name, sections);
    ParseSettings(catalogue, bytes, name); // what could not be read again must not take the old file's place
    return bytes;
}

void RewriteSettings(const Catalogue& catalogue, const std::filesystem::path& path,
                     const std::vector<Section>& sections) {
    const RewriteLock lock(path);
    ReplaceFile(path, RewrittenSettings(catalogue, path, sections));
}

} // namespace pistaro
