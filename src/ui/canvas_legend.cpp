#include "ui/canvas_legend.h"

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

struct Entry {
    PieceStanding Standing;
    const char* Words;
};
constexpr std::array<Entry, 4> Entries{{{PieceStanding::Active, "selected"},
                                        {PieceStanding::Owned, "you own it"},
                                        {PieceStanding::NonOwned, "to buy"},
                                        {PieceStanding::Inactive, "another track"}}};

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

} // namespace

QRectF LegendPlace(QSizeF drawing, const QFontMetricsF& letters, const std::vector<QPointF>& busy) {
    double widest = 0;
    for (const Entry& entry : Entries)
        widest = std::max(widest, letters.horizontalAdvance(entry.Words));
    const QSizeF size(SampleWidth + widest + 3 * Margin,
                      static_cast<double>(Entries.size()) * LineHeight(letters) + Margin);
    const double right = drawing.width() - Margin - size.width();
    const double bottom = drawing.height() - Margin - size.height();
    const std::array<QPointF, 4> corners{{{Margin, Margin}, {right, Margin}, {right, bottom}, {Margin, bottom}}};
    const auto hidden = [&](QPointF corner) {
        return std::ranges::count_if(busy, [&](QPointF place) { return QRectF(corner, size).contains(place); });
    };
    return {*std::ranges::min_element(corners, {}, hidden), size};
}

void PaintLegend(QPainter& painter, const QRectF& plate, const ColourScheme& colours, TrackLook look) {
    const double line = LineHeight(QFontMetricsF(painter.font()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(colours.Inactive), 1));
    QColor ground = ToQColor(colours.Background);
    ground.setAlpha(235);
    painter.setBrush(ground);
    painter.drawRoundedRect(plate, 6, 6);
    double top = plate.top() + Margin / 2;
    for (const Entry& entry : Entries) {
        const QRectF sample(plate.left() + Margin, top + 5, SampleWidth, line - 10);
        PaintSample(painter, sample, entry.Standing, colours, look);
        painter.setPen(ToQColor(TextColourOn(colours.Background)));
        painter.drawText(QRectF(QPointF(sample.right() + Margin, top), QPointF(plate.right(), top + line)),
                         Qt::AlignVCenter, entry.Words);
        top += line;
    }
    painter.restore();
}

} // namespace pistaro
