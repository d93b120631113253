#include "ui/canvas_legend.h"

#include "ui/named_controls.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr double Margin = 12;
constexpr double SampleWidth = 34;

void PaintSample(QPainter& painter, const QRectF& place, PieceStanding standing, const ColourScheme& colours,
                 TrackLook look) {
    if (look == TrackLook::Surface) PaintSampleBed(painter, place, standing, colours);
    painter.setBrush(Qt::NoBrush);
    const QPen edge(ToQColor(OutlineColour(standing, colours)), look == TrackLook::Surface ? EdgeWidth(standing) : 1.5);
    painter.setPen(edge);
    painter.drawRect(place);
}

double LineHeight(const QFontMetricsF& letters) { return letters.height() + 8; }

void PaintSample(QPainter& painter, const QRectF& place, Colour lane) {
    constexpr double thickness = 4;
    const double middle = place.center().y();
    painter.setPen(QPen(ToQColor(lane), thickness, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(place.left(), middle), QPointF(place.right(), middle));
}

} // namespace

std::vector<LegendEntry> StandingLegend() {
    return {{PieceStanding::Active, "selected"},
            {PieceStanding::Owned, "you own it"},
            {PieceStanding::NonOwned, "to buy"},
            {PieceStanding::Inactive, "another track"}};
}

QRectF LegendPlace(QSizeF drawing, const QFontMetricsF& letters, const std::vector<LegendEntry>& entries,
                   const std::vector<QPointF>& busy) {
    double widest = 0;
    for (const LegendEntry& entry : entries)
        widest = std::max(widest, letters.horizontalAdvance(Shown(entry.Words)));
    const QSizeF size(SampleWidth + widest + 3 * Margin,
                      static_cast<double>(entries.size()) * LineHeight(letters) + Margin);
    const double right = drawing.width() - Margin - size.width();
    const double bottom = drawing.height() - Margin - size.height();
    const std::array<QPointF, 4> corners{{{Margin, Margin}, {right, Margin}, {right, bottom}, {Margin, bottom}}};
    const auto hidden = [&](QPointF corner) {
        return std::ranges::count_if(busy, [&](QPointF place) { return QRectF(corner, size).contains(place); });
    };
    return {*std::ranges::min_element(corners, {}, hidden), size};
}

void PaintLegend(QPainter& painter, const QRectF& plate, const std::vector<LegendEntry>& entries,
                 const ColourScheme& colours, TrackLook look) {
    const double line = LineHeight(QFontMetricsF(painter.font()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(colours.Inactive), 1));
    QColor ground = ToQColor(colours.Background);
    ground.setAlpha(235);
    painter.setBrush(ground);
    painter.drawRoundedRect(plate, 6, 6);
    double top = plate.top() + Margin / 2;
    for (const LegendEntry& entry : entries) {
        const QRectF sample(plate.left() + Margin, top + 5, SampleWidth, line - 10);
        if (const auto* const standing = std::get_if<PieceStanding>(&entry.Sample))
            PaintSample(painter, sample, *standing, colours, look);
        else
            PaintSample(painter, sample, std::get<Colour>(entry.Sample));
        painter.setPen(ToQColor(TextColourOn(colours.Background)));
        painter.drawText(QRectF(QPointF(sample.right() + Margin, top), QPointF(plate.right(), top + line)),
                         Qt::AlignVCenter, Shown(entry.Words));
        top += line;
    }
    painter.restore();
}

} // namespace pistaro
