#include "storage/background_file.h"

#include "platform/file_endings.h"
#include "storage/line_reader.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* Header = "[Background]";
constexpr const char* LastKey = "Bytes";
constexpr std::size_t LongestHead = 512;
constexpr double MostPixels = 1e6; ///< of a picture's side

/// The lines of a measured distance, in their order.
struct MeasuredLine {
    const char* Key;
    double MeasuredDistance::*Value;
    double Least, Most;
};
constexpr MeasuredLine MeasuredLines[] = {{"FromX", &MeasuredDistance::FromX, -MostPixels, MostPixels},
                                          {"FromY", &MeasuredDistance::FromY, -MostPixels, MostPixels},
                                          {"ToX", &MeasuredDistance::ToX, -MostPixels, MostPixels},
                                          {"ToY", &MeasuredDistance::ToY, -MostPixels, MostPixels},
                                          {"Distance", &MeasuredDistance::Distance, 0, FarthestBackground}};

Fault NoBackground(const std::string& name) { return BadFileFormat(name + ": this is no background file"); }

/// Where the picture's bytes begin: behind the line that counts them.
std::size_t HeadOf(const std::string& bytes, const std::string& name) {
    const std::string last = std::string(LastKey) + "=";
    for (std::size_t begin = 0;;) {
        const std::size_t end = bytes.find('\n', begin);
        if (end > LongestHead) throw NoBackground(name);
        if (bytes.compare(begin, last.size(), last) == 0) return end + 1;
        begin = end + 1;
    }
}

/// Whether the next line is that key's, of which earlier versions knew nothing.
bool ComesNext(const LineReader& lines, const std::string& key) { return lines.Peek().starts_with(key + "="); }

/// The number of a line "Key=number" that lies within a range.
double NumberOf(LineReader& lines, const std::string& key, double least, double most, const std::string& name) {
    const std::string line(lines.Next(key));
    const std::string value = line.starts_with(key + "=") ? line.substr(key.size() + 1) : "";
    const double number = ParseNumber(value);
    if (!IsNumber(value) || !(number >= least && number <= most))
        throw BadFileFormat(name + ": \"" + line + "\" stands where " + key + "= and a number from " +
                            NumberText(least) + " to " + NumberText(most) + " should");
    return number;
}

void AddLine(std::string& text, const char* key, double value) {
    text.append(key).append("=").append(NumberText(value)).append("\r\n");
}

} // namespace

std::filesystem::path BackgroundFileOf(const std::filesystem::path& circuit) {
    std::filesystem::path file = circuit;
    if (EndingIn(circuit) == ".trk") return file.replace_extension(".background");
    return file += ".background";
}

ScaledBackground ParseBackground(const std::string& bytes, const std::string& name) {
    if (bytes.empty()) throw BadFileFormat(name + ": the file is empty");
    const std::size_t head = HeadOf(bytes, name);
    LineReader lines(std::string_view(bytes).substr(0, head), name);
    if (lines.Next(Header) != Header) throw NoBackground(name);
    ScaledBackground background;
    background.X = NumberOf(lines, "X", -FarthestBackground, FarthestBackground, name);
    background.Y = NumberOf(lines, "Y", -FarthestBackground, FarthestBackground, name);
    background.Angle = NumberOf(lines, "Angle", -10, 10, name);
    background.CmPerPixel = NumberOf(lines, "CmPerPixel", LeastCmPerPixel, MostCmPerPixel, name);
    if (ComesNext(lines, "Opacity")) background.Opacity = NumberOf(lines, "Opacity", LeastOpacity, 1, name);
    if (ComesNext(lines, MeasuredLines[0].Key)) {
        MeasuredDistance& measured = background.Measured.emplace();
        for (const MeasuredLine& line : MeasuredLines)
            measured.*line.Value = NumberOf(lines, line.Key, line.Least, line.Most, name);
    }
    const double wanted = NumberOf(lines, LastKey, 0, static_cast<double>(MostPictureBytes), name);
    const std::size_t there = bytes.size() - head;
    if (wanted != static_cast<double>(there))
        throw InputPastEndOfFile(name + ": the picture has " + NumberText(wanted) + " bytes, " + std::to_string(there) +
                                 " stand there");
    background.Picture = std::make_shared<const std::string>(bytes.substr(head));
    return background;
}

ScaledBackground ReadBackground(const std::filesystem::path& file) {
    return ParseBackground(ReadFile(file, MostPictureBytes + LongestHead), TextFromPath(file));
}

std::string BackgroundBytes(const ScaledBackground& background) {
    std::string text = std::string(Header) + "\r\n";
    AddLine(text, "X", background.X);
    AddLine(text, "Y", background.Y);
    AddLine(text, "Angle", background.Angle);
    AddLine(text, "CmPerPixel", background.CmPerPixel);
    if (NumberText(background.Opacity) != NumberText(1.0)) AddLine(text, "Opacity", background.Opacity);
    if (background.Measured) {
        for (const MeasuredLine& line : MeasuredLines)
            AddLine(text, line.Key, *background.Measured.*line.Value);
    }
    AddLine(text, LastKey, static_cast<double>(background.Picture->size()));
    return text + *background.Picture;
}

} // namespace pistaro
