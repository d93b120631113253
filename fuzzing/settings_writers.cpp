// Each writer of settings, with any values, into any file that can be read: the file can still be read, holds those
// values if it has their section, and its other sections are as they were.
#include "fuzzing/require.h"
#include "platform/fault.h"
#include "storage/all_sections.h"
#include "storage/line_reader.h"
#include "storage/settings_file.h"
#include "text/number_text.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <map>

namespace {

using namespace pistaro;

/// A text as a line of a dialog takes it.
std::string LineOf(FuzzedDataProvider& values) {
    std::string line = values.ConsumeRandomLengthString(30);
    std::erase_if(line, [](char c) { return static_cast<unsigned char>(c) < 0x20; });
    return line;
}

/// Settings with any values that the program may hold: a room point's flag has five places.
Settings AnySettings(FuzzedDataProvider& values) {
    const auto place = [&] { return values.ConsumeFloatingPointInRange<float>(-1E9F, 1E9F); };
    const auto integer = [&] { return values.ConsumeIntegral<std::int16_t>(); };
    Settings settings;
    settings.Preferences.WorkingDirectory = values.ConsumeRandomLengthString(30);
    settings.MidX = place();
    settings.MidY = place();
    settings.Zoom = values.ConsumeFloatingPointInRange<double>(-1E38, 1E38);
    settings.Preferences.MWid = place();
    settings.Preferences.Units = {values.ConsumeBool(), LineOf(values)};
    settings.Preferences.Grid = {integer(), integer()};
    for (int points = values.ConsumeIntegralInRange(0, MaxRoomPoints); points > 0; --points)
        settings.Room.Points.push_back(
            {integer(), integer(), values.ConsumeIntegralInRange<std::int16_t>(-9999, 32767)});
    settings.Room.Angle = place();
    for (const ColourSlot& slot : ColourSlots)
        settings.Preferences.Colours.*slot.Slot = values.ConsumeIntegral<Colour>();
    for (int row = 0; row < Pieces().Count(); ++row)
        settings.Stock.Products.push_back({integer(), place()});
    return settings;
}

/// What a file says, section by section, as its writer would put it; empty when it cannot be read.
std::vector<std::vector<std::string>> ValuesOf(const std::string& bytes) {
    std::vector<std::vector<std::string>> values;
    try {
        for (const Section& section : AllSections(ParseSettings(Pieces(), bytes, "fuzzed.ini")))
            values.push_back(section.Lines);
    } catch (const Fault&) {
        values.clear();
    }
    return values;
}

/// How many lines after its header the reader takes for a section; 0 for a line that is no header.
std::size_t LinesAfter(const std::string& header, const std::string& next) {
    static const std::map<std::string_view, std::size_t> lines{{WorkingDirectorySection, 1},
                                                               {ViewSection, 4},
                                                               {UnitsSection, 2},
                                                               {GridSection, 2},
                                                               {LooseTrackSection, ProductLines},
                                                               {BestPricesSection, ProductLines},
                                                               {ColoursSection, std::size(ColourSlots)}};
    if (header == RoomSection) return static_cast<std::size_t>(RoundHalfEven(ParseNumber(next))) + 2;
    const auto found = lines.find(header);
    return found == lines.end() ? 0 : found->second;
}

/// Whether the reader takes a header for a section's value. A rewrite lets such a header be one again, or is refused
/// where the file could not be read then.
bool HidesHeader(const std::string& bytes) {
    std::vector<std::string> lines;
    for (LineReader reader(bytes, "fuzzed.ini"); !reader.AtEnd();)
        lines.emplace_back(reader.Next("a line"));
    lines.emplace_back();
    for (std::size_t at = 0; at + 1 < lines.size(); ++at) {
        const std::size_t count = LinesAfter(lines[at], lines[at + 1]);
        const bool mayEndEarly = count >= std::size(ColourSlots) && lines[at] != RoomSection;
        for (std::size_t next = at + 1; next <= at + count && next + 1 < lines.size(); ++next) {
            if (mayEndEarly && lines[next].empty()) break;
            if (LinesAfter(lines[next], lines[next + 1]) > 0) return true;
        }
    }
    return false;
}

/// The lists lose what their 29th line says.
bool IsList(const Section& section) {
    return section.Header == LooseTrackSection || section.Header == BestPricesSection;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider values(data, size);
    const Settings settings = AnySettings(values);
    const std::string bytes = values.ConsumeRemainingBytesAsString();
    const auto before = ValuesOf(bytes);
    if (before.empty() || HidesHeader(bytes)) return 0;
    const std::vector<Section> writers = AllSections(settings);
    for (std::size_t writer = 0; writer < writers.size(); ++writer) {
        const Section& section = writers[writer];
        const std::string written = ReplaceSections(bytes, "fuzzed.ini", {section});
        const auto after = ValuesOf(written);
        Require(!after.empty(), "the file can be read again", written);
        for (std::size_t other = 0; other < before.size(); ++other)
            Require(other == writer || after[other] == before[other], "other sections stay",
                    std::string(section.Header) + " into\n" + bytes + "\nbecame\n" + written);
        Require(IsList(section) || after[writer] == before[writer] || after[writer] == section.Lines,
                "the section holds the new values", written);
    }
    return 0;
}
