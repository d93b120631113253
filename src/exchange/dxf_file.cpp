// The DXF library writes the entities and all that programs expect around them; what it writes is kept in memory.
#include "exchange/dxf_file.h"

#include "render/redraw.h"
#include "text/decimal_text.h"
#include "text/number_text.h"

#include <dxflib/dl_dxf.h>
#include <dxflib/dl_writer_ascii.h>

#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <numbers>

namespace pistaro {

namespace {

struct DxfLayer {
    const char* Name;
    int Ink; ///< a number of the format's own palette
};

constexpr DxfLayer Outlines{"OUTLINES", 7}, Lanes{"LANES", 8}, Marks{"MARKS", 5}, Numbers{"NUMBERS", 3},
    Room{"ROOM", 1}, Grid{"GRID", 9};

/// The library's own writer opens a file by a narrow name, hears of no full disk, and flushes after each number.
class MemoryWriter : public DL_WriterA {
public:
    MemoryWriter() : DL_WriterA("") {}

    void dxfReal(int group, double value) const override {
        std::string digits;
        AppendDecimal(digits, value, 9);
        if (digits.find('.') == std::string::npos) digits += ".0";
        Append(group, digits);
    }
    void dxfInt(int group, int value) const override { Append(group, std::to_string(value)); }
    void dxfHex(int group, int value) const override {
        std::array<char, 16> digits{};
        char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
        std::string capitals(digits.data(), end);
        for (char& c : capitals)
            c = c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
        Append(group, capitals);
    }
    void dxfString(int group, const char* value) const override { Append(group, value); }
    void dxfString(int group, const std::string& value) const override { Append(group, value); }

    /// What is written from now on are objects.
    void BeginObjects() { writesObjects_ = true; }

    std::string Take() { return std::move(text_); }

private:
    void Append(int group, std::string_view value) const {
        text_ += group < 10 ? "  " : group < 100 ? " " : "";
        text_.append(std::to_string(group)).append("\r\n").append(value).append("\r\n");
        if (writesObjects_) TellOwner(group, value);
    }

    /// The format's version wants to know of each object in which dictionary it stands; the library does not tell.
    void TellOwner(int group, std::string_view handle) const {
        constexpr int itself = 5;
        constexpr int owner = 330;
        constexpr int entry = 350;
        if (group == entry) owners_.emplace(handle, object_);
        if (group != itself) return;
        object_ = handle;
        const auto found = owners_.find(object_);
        Append(owner, found == owners_.end() ? "0" : found->second);
    }

    bool writesObjects_ = false;
    mutable std::string object_;                        ///< the handle of the one that is being written
    mutable std::map<std::string, std::string> owners_; ///< of those that dictionaries have named
    mutable std::string text_;
};

/// Strokes as entities of the layer that was chosen last. Layers tell what a stroke is; colours do not count.
class DxfSurface : public Surface {
public:
    DxfSurface(DL_Dxf& dxf, MemoryWriter& writer) : dxf_(dxf), writer_(writer) {}

    void Choose(const DxfLayer& layer) { attributes_.setLayer(layer.Name); }

    void Clear(Colour) override {}
    void SetScale(const ViewRectangle&) override {}
    double PixelsPerCm() const override { return 96 / 2.54; }
    void SetPen(PenWidth) override {}
    void SetFontSize(double) override {}

    void Draw(const LineSegment& line, Colour) override {
        dxf_.writeLine(writer_, DL_LineData(line.From.X, line.From.Y, 0, line.To.X, line.To.Y, 0), attributes_);
    }

    void Draw(const ArcSegment& arc, Colour) override {
        const auto degrees = [](double angle) {
            const double turned = std::fmod(angle * 180 / std::numbers::pi, 360);
            return turned < 0 ? turned + 360 : turned;
        };
        dxf_.writeArc(writer_,
                      DL_ArcData(arc.Centre.X, arc.Centre.Y, 0, arc.Radius, degrees(arc.Start), degrees(arc.End)),
                      attributes_);
    }

    void Draw(const Ellipse& ellipse, Colour) override {
        const double width = ellipse.Radius;
        const double height = ellipse.Radius * ellipse.Aspect;
        const bool wide = width >= height; // the format wants the longer axis first
        dxf_.writeEllipse(writer_,
                          DL_EllipseData(ellipse.Centre.X, ellipse.Centre.Y, 0, wide ? width : 0, wide ? 0 : height, 0,
                                         wide ? height / width : width / height, 0, 2 * std::numbers::pi),
                          attributes_);
    }

    void DrawPoint(WorldPoint point, Colour) override { textPosition_ = point; }

    void DrawText(const std::string& text, Colour) override {
        constexpr double height = 2; // cm
        const double y = textPosition_.Y - height;
        dxf_.writeText(
            writer_, DL_TextData(textPosition_.X, y, 0, textPosition_.X, y, 0, height, 1, 0, 0, 0, text, "Standard", 0),
            attributes_);
    }

private:
    DL_Dxf& dxf_;
    MemoryWriter& writer_;
    DL_Attributes attributes_{"0", 256, -1, -1, "BYLAYER"};
    WorldPoint textPosition_;
};

void WriteTables(DL_Dxf& dxf, MemoryWriter& writer) {
    writer.sectionTables();
    dxf.writeVPort(writer);
    writer.tableLinetypes(3);
    for (const char* const type : {"BYBLOCK", "BYLAYER", "CONTINUOUS"})
        dxf.writeLinetype(writer, DL_LinetypeData(type, type, 0, 0, 0));
    writer.tableEnd();
    const DxfLayer layers[] = {{"0", 7}, Outlines, Lanes, Marks, Numbers, Room, Grid};
    writer.tableLayers(static_cast<int>(std::size(layers)));
    for (const DxfLayer& layer : layers)
        dxf.writeLayer(writer, DL_LayerData(layer.Name, 0), DL_Attributes("", layer.Ink, -1, -1, "CONTINUOUS"));
    writer.tableEnd();
    writer.tableStyle(1);
    DL_StyleData style("Standard", 0, 0, 1, 0, 0, 2.5, "txt", "");
    style.bold = false;
    style.italic = false;
    dxf.writeStyle(writer, style);
    writer.tableEnd();
    dxf.writeView(writer);
    dxf.writeUcs(writer);
    writer.tableAppid(1);
    dxf.writeAppid(writer, "ACAD");
    writer.tableEnd();
    dxf.writeDimStyle(writer, 2.5, 0.625, 0.625, 0.625, 2.5);
    dxf.writeBlockRecord(writer);
    writer.tableEnd();
    writer.sectionEnd();
}

void WriteBlocks(DL_Dxf& dxf, MemoryWriter& writer) {
    writer.sectionBlocks();
    for (const char* const block : {"*Model_Space", "*Paper_Space", "*Paper_Space0"}) {
        dxf.writeBlock(writer, DL_BlockData(block, 0, 0, 0, 0));
        dxf.writeEndBlock(writer, block);
    }
    writer.sectionEnd();
}

void WritePiece(const PiecePlacement& placement, DxfSurface& surface) {
    const auto draw = [&](const auto& shape) { surface.Draw(shape, 0); };
    surface.Choose(Lanes);
    for (const Lane& lane : placement.Lanes) {
        for (const Segment& segment : lane.Path)
            std::visit(draw, segment);
    }
    surface.Choose(Outlines);
    for (const Segment& segment : placement.Outline)
        std::visit(draw, segment);
    surface.Choose(Marks);
    for (const Mark& mark : placement.Marks)
        std::visit(draw, mark.Shape);
}

void WriteEntities(const CircuitDrawing& drawing, DxfSurface& surface) {
    if (drawing.Parts.Grid) {
        surface.Choose(Grid);
        DrawGrid(drawing.Preferences, drawing.Extent.Shown(), drawing.Extent.Width(), surface);
    }
    for (const DrawnPiece& piece : drawing.Pieces) {
        WritePiece(piece.Placement, surface);
        if (!drawing.Parts.Numbers) continue;
        surface.Choose(Numbers);
        surface.DrawPoint(piece.Placement.Label, 0);
        surface.DrawText(NumberText(piece.Index), 0);
    }
    surface.Choose(Room);
    DrawRoom(drawing.Room, surface);
}

} // namespace

std::string DxfOf(const CircuitDrawing& drawing) {
    DL_Dxf dxf; // of AC1015
    MemoryWriter writer;
    dxf.writeHeader(writer);
    writer.dxfString(9, "$INSUNITS");
    constexpr int centimetres = 5;
    writer.dxfInt(70, centimetres);
    writer.sectionEnd();
    WriteTables(dxf, writer);
    WriteBlocks(dxf, writer);
    writer.sectionEntities();
    DxfSurface surface(dxf, writer);
    WriteEntities(drawing, surface);
    writer.sectionEnd();
    writer.BeginObjects();
    dxf.writeObjects(writer);
    dxf.writeObjectsEnd(writer);
    writer.dxfEOF();
    return writer.Take();
}

} // namespace pistaro
