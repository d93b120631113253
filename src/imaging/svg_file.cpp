#include "imaging/svg_file.h"

#include "imaging/image_file.h"
#include "imaging/scaled_backdrop.h"
#include "paper/path_data.h"
#include "render/redraw.h"
#include "text/decimal_text.h"
#include "text/number_text.h"

#include <QXmlStreamWriter>

#include <numbers>

namespace pistaro {

namespace {

constexpr int AreaDecimals = 3; ///< of a cm; edges are chords anyhow
constexpr double CmPerPoint = 2.54 / 72;

QString Decimal(double value) {
    std::string text;
    AppendDecimal(text, value, PathDecimals);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

QString ColourText(Colour colour) {
    return QStringLiteral("#%1").arg(Red(colour) << 16 | Green(colour) << 8 | Blue(colour), 6, 16, QLatin1Char('0'));
}

/// Strokes of one colour as one path.
class SvgSurface : public Surface {
public:
    SvgSurface(QXmlStreamWriter& xml, double scale, double fontSize) : xml_(xml), scale_(scale), fontSize_(fontSize) {}

    void Clear(Colour) override {}
    void SetScale(const ViewRectangle&) override {}
    double PixelsPerCm() const override { return 96 / 2.54 / scale_; }
    void SetPen(PenWidth) override {}
    void SetFontSize(double) override {}
    double FontSize() const { return fontSize_; } ///< cm of the world

    void Draw(const LineSegment& line, Colour colour) override {
        UseColour(colour);
        AppendPath(path_, line);
    }

    void Draw(const ArcSegment& arc, Colour colour) override {
        UseColour(colour);
        AppendPath(path_, arc);
    }

    void Draw(const Ellipse& ellipse, Colour colour) override {
        Flush();
        xml_.writeEmptyElement(QStringLiteral("ellipse"));
        xml_.writeAttribute(QStringLiteral("cx"), Decimal(ellipse.Centre.X));
        xml_.writeAttribute(QStringLiteral("cy"), Decimal(-ellipse.Centre.Y));
        xml_.writeAttribute(QStringLiteral("rx"), Decimal(ellipse.Radius));
        xml_.writeAttribute(QStringLiteral("ry"), Decimal(ellipse.Radius * ellipse.Aspect));
        xml_.writeAttribute(QStringLiteral("stroke"), ColourText(colour));
    }

    void Fill(const std::vector<WorldPoint>& polygon, Colour colour) override {
        Flush();
        std::string points;
        for (const WorldPoint point : polygon) {
            if (!points.empty()) points += ' ';
            AppendDecimal(points, point.X, AreaDecimals);
            points += ',';
            AppendDecimal(points, -point.Y, AreaDecimals);
        }
        xml_.writeEmptyElement(QStringLiteral("polygon"));
        xml_.writeAttribute(QStringLiteral("fill"), ColourText(colour));
        xml_.writeAttribute(QStringLiteral("points"), QString::fromStdString(points));
    }

    void DrawPoint(WorldPoint point, Colour) override { textPosition_ = point; }

    void DrawText(const std::string& text, Colour colour) override {
        Flush();
        constexpr double ascent = 0.8; // of a font's size, about
        xml_.writeStartElement(QStringLiteral("text"));
        xml_.writeAttribute(QStringLiteral("x"), Decimal(textPosition_.X));
        xml_.writeAttribute(QStringLiteral("y"), Decimal(fontSize_ * ascent - textPosition_.Y));
        xml_.writeAttribute(QStringLiteral("font-size"), Decimal(fontSize_));
        xml_.writeAttribute(QStringLiteral("fill"), ColourText(colour));
        xml_.writeAttribute(QStringLiteral("stroke"), QStringLiteral("none"));
        xml_.writeCharacters(QString::fromStdString(text));
        xml_.writeEndElement();
    }

    /// Writes the strokes so far; to be called where a group ends.
    void Flush() {
        if (path_.empty()) return;
        xml_.writeEmptyElement(QStringLiteral("path"));
        xml_.writeAttribute(QStringLiteral("stroke"), ColourText(colour_));
        xml_.writeAttribute(QStringLiteral("d"),
                            QString::fromLatin1(path_.data(), static_cast<qsizetype>(path_.size())));
        path_.clear();
    }

private:
    void UseColour(Colour colour) {
        if (colour != colour_) Flush();
        colour_ = colour;
    }

    QXmlStreamWriter& xml_;
    double scale_, fontSize_; ///< cm of the world
    std::string path_;
    Colour colour_ = -1;
    WorldPoint textPosition_;
};

/// An SVG of one drawing on one sheet.
class SvgWriter {
public:
    SvgWriter(const CircuitDrawing& drawing, const SheetPlan& plan, const ScaledBackdrop* backdrop)
        : drawing_(drawing), plan_(plan), backdrop_(drawing.Background ? backdrop : nullptr), whole_(drawing.Whole()),
          xml_(&bytes_), surface_(xml_, plan.Scale, Size(NormalFont * CmPerPoint, 80)) {}

    std::string Write() {
        xml_.writeStartDocument();
        Begin();
        if (backdrop_ != nullptr) {
            Group("background", [&] { WriteBackdrop(); });
        }
        if (drawing_.Parts.Grid) {
            Group("grid", [&] { DrawGrid(drawing_.Preferences, whole_.Shown(), whole_.Width(), surface_); });
        }
        if (!drawing_.Room.Points.empty()) {
            Group("room", [&] { DrawRoom(drawing_.Room, surface_); });
        }
        Group("track", [&] { WritePieces(); });
        if (drawing_.Parts.Numbers) {
            Group("numbers", [&] { WriteNumbers(); });
        }
        xml_.writeEndElement();
        xml_.writeEndDocument();
        return bytes_.toStdString();
    }

private:
    /// What is so large on paper, in cm of the world; never less than a part of the whole, so that it is seen where all
    /// of a large circuit is shown on a screen.
    double Size(double onPaper, double parts) const {
        return std::max(onPaper * plan_.Scale, std::max(whole_.Width(), whole_.Height()) / parts);
    }

    void Attribute(const char* name, const QString& value) { xml_.writeAttribute(QLatin1String(name), value); }

    void Begin() {
        const Box& part = plan_.Sheets.front().Part;
        xml_.writeStartElement(QStringLiteral("svg"));
        Attribute("xmlns", QStringLiteral("http://www.w3.org/2000/svg"));
        if (backdrop_ != nullptr) Attribute("xmlns:xlink", QStringLiteral("http://www.w3.org/1999/xlink"));
        Attribute("width", Decimal(plan_.Width) + QStringLiteral("cm"));
        Attribute("height", Decimal(plan_.Height) + QStringLiteral("cm"));
        const Box paper = part.Wider(SheetMargin * plan_.Scale);
        Attribute("viewBox", Decimal(paper.Left) + ' ' + Decimal(-paper.Top) + ' ' + Decimal(paper.Width()) + ' ' +
                                 Decimal(paper.Height()));
        constexpr double lineWidth = 0.025; // cm of paper
        Attribute("stroke-width", Decimal(Size(lineWidth, 1000)));
        Attribute("fill", QStringLiteral("none"));
        Attribute("style", QStringLiteral("background:#ffffff"));
        Attribute("stroke-linecap", QStringLiteral("round"));
        Attribute("font-family", QStringLiteral("DejaVu Sans, sans-serif"));
        xml_.writeTextElement(QStringLiteral("title"), QString::fromStdString(drawing_.Name));
        xml_.writeTextElement(QStringLiteral("desc"),
                              QStringLiteral("A slot-car circuit of %1 pieces at %2, drawn by Pistaro. One unit is one "
                                             "centimetre of the circuit; y is its y downwards.")
                                  .arg(drawing_.Pieces.size())
                                  .arg(QString::fromStdString(plan_.ScaleText())));
    }

    template <typename Draw>
    void Group(const char* id, Draw draw) {
        xml_.writeStartElement(QStringLiteral("g"));
        Attribute("id", QLatin1String(id));
        draw();
        surface_.Flush();
        xml_.writeEndElement();
    }

    /// By the older name of its reference, which every reader knows. A photograph stays one, without what its camera
    /// wrote of how it was held.
    void WriteBackdrop() {
        const ScaledBackground& background = *drawing_.Background;
        const QImage& picture = backdrop_->Picture();
        const WorldPoint middle = MiddleOf(background, drawing_.Room);
        const double degrees = (double{drawing_.Room.Angle} + background.Angle) * 180 / std::numbers::pi;
        const bool photograph = background.Picture->starts_with("\xFF\xD8");
        const std::string bytes = EncodeImage(picture, photograph ? PictureFormat::Jpeg : PictureFormat::Png);
        xml_.writeEmptyElement(QStringLiteral("image"));
        Attribute("width", QString::number(picture.width()));
        Attribute("height", QString::number(picture.height()));
        Attribute("preserveAspectRatio", QStringLiteral("none"));
        Attribute("transform", QStringLiteral("translate(%1 %2) rotate(%3) scale(%4) translate(%5 %6)")
                                   .arg(Decimal(middle.X), Decimal(-middle.Y), Decimal(degrees))
                                   .arg(QString::number(background.CmPerPixel, 'g', 9), Decimal(-picture.width() / 2.0),
                                        Decimal(-picture.height() / 2.0)));
        Attribute("xlink:href",
                  QStringLiteral("data:image/%1;base64,").arg(QLatin1String(photograph ? "jpeg" : "png")) +
                      QString::fromLatin1(QByteArray::fromStdString(bytes).toBase64()));
    }

    void WritePieces() {
        for (const DrawnPiece& piece : drawing_.Pieces) {
            xml_.writeStartElement(QStringLiteral("g"));
            Attribute("data-code", QString::fromStdString(piece.Code));
            Attribute("data-index", QString::number(piece.Index));
            Attribute("data-track", QString::number(piece.Track + 1));
            DrawPieceOf(drawing_, piece, surface_);
            surface_.Flush();
            xml_.writeEndElement();
        }
    }

    void WriteNumbers() {
        const Colour ink = TextColourOn(drawing_.Preferences.Colours.Background);
        for (const DrawnPiece& piece : drawing_.Pieces) {
            if (drawing_.Parts.Surface)
                surface_.Fill(NumberPlate(piece.Placement.Label, NumberText(piece.Index).size(), surface_.FontSize()),
                              drawing_.Preferences.Colours.Background);
            surface_.DrawPoint(piece.Placement.Label, ink);
            surface_.DrawText(NumberText(piece.Index), ink);
        }
    }

    const CircuitDrawing& drawing_;
    const SheetPlan& plan_;
    const ScaledBackdrop* backdrop_;
    const Box whole_;
    QByteArray bytes_;
    QXmlStreamWriter xml_;
    SvgSurface surface_;
};

} // namespace

std::string SvgOf(const CircuitDrawing& drawing, const SheetPlan& plan, const ScaledBackdrop* backdrop) {
    return SvgWriter(drawing, plan, backdrop).Write();
}

} // namespace pistaro
