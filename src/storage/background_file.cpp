#include "storage/background_file.h"

#include "platform/file_endings.h"
#include "storage/line_reader.h"
#include "text/number_text.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr const char* Header = "[Background]";
constexpr int HeadLines = 6;
constexpr std::size_t LongestHead = 512;

/// Where the picture's bytes begin. Fault where there are not so many lines before them.
std::size_t HeadOf(const std::string& bytes, const std::string& name) {
    std::size_t end = 0;
    for (int line = 0; line < HeadLines; ++line) {
        end = bytes.find('\n', end);
        if (end > LongestHead) throw BadFileFormat(name + ": this is no background file");
        ++end;
    }
    return end;
}

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
    if (lines.Next(Header) != Header) throw BadFileFormat(name + ": this is no background file");
    ScaledBackground background;
    background.X = NumberOf(lines, "X", -FarthestBackground, FarthestBackground, name);
    background.Y = NumberOf(lines, "Y", -FarthestBackground, FarthestBackground, name);
    background.Angle = NumberOf(lines, "Angle", -10, 10, name);
    background.CmPerPixel = NumberOf(lines, "CmPerPixel", LeastCmPerPixel, MostCmPerPixel, name);
    const double wanted = NumberOf(lines, "Bytes", 0, static_cast<double>(MostPictureBytes), name);
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
    AddLine(text, "Bytes", static_cast<double>(background.Picture->size()));
    return text + *background.Picture;
}

} // namespace pistaro
