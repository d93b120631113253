#include "storage/settings_sections.h"

#include "platform/files.h"
#include "platform/locks.h"
#include "storage/folder_line.h"
#include "storage/room_block.h"
#include "storage/section_format.h"
#include "storage/settings_file.h"
#include "text/crlf_lines.h"
#include "text/number_text.h"
#include "text/windows1252.h"

#include <algorithm>
#include <set>

namespace pistaro {

namespace {

Section StockSection(std::string_view header, const Catalogue& catalogue, const std::vector<double>& valueByRow) {
    Section section{header, {}};
    for (const int row : catalogue.HeadRows()) {
        const std::string product(ProductCode(catalogue[row].Code));
        section.Lines.push_back(product + "=" + NumberText(valueByRow[static_cast<std::size_t>(row)]));
    }
    return section;
}

/// Goes through a file and sees its sections where the reader sees them: a line that is taken for another section's
/// value is no header.
class Rewriting {
public:
    Rewriting(std::string_view bytes, const std::string& name) : lines_(bytes, name) {}

    std::string With(const std::vector<Section>& sections) {
        std::set<const SectionFormat*> seen{nullptr};
        while (!lines_.AtEnd()) {
            const SectionFormat* const section = SectionHeadedBy(lines_.Peek());
            Copy(1);
            if (!seen.insert(section).second) continue;
            const auto own = std::ranges::find(sections, section->Header, &Section::Header);
            if (own == sections.end()) {
                CopyLinesOf(*section);
                continue;
            }
            DropLinesOf(*section);
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
    void CopyLinesOf(const SectionFormat& format) {
        if (format.Header == RoomSection) {
            const std::string_view count = lines_.Peek();
            Copy(1);
            Copy(static_cast<std::size_t>(RoomPointCountIn(lines_, count)) + 1); // and the angle
            return;
        }
        for (std::size_t left = format.Lines; left > 0; --left) {
            const bool isLast = format.EmptyLineEnds && lines_.Peek().empty();
            Copy(1);
            if (isLast) return;
        }
    }

    /// Drops as many old lines as the section had when the format was made, without the room's angle, but no header.
    void DropLinesOf(const SectionFormat& format) {
        std::size_t left = format.Lines;
        if (format.Header == RoomSection && SectionHeadedBy(lines_.Peek()) == nullptr) {
            left = static_cast<std::size_t>(RoomPointCountIn(lines_, lines_.Next("the number of room points")));
        }
        bool hasEnded = false;
        for (; left > 0 && SectionHeadedBy(lines_.Peek()) == nullptr && !(hasEnded && lines_.AtEnd()); --left) {
            const std::string_view line = lines_.Next("a line of " + std::string(format.Header));
            hasEnded |= format.EmptyLineEnds && line.empty();
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
