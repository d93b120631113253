#include "ui/canvas_legend.h"

#include <array>

namespace pistaro {

namespace {

struct Entry {
    PieceStanding Standing;
    const char* Words;
};
constexpr std::array<Entry, 4> Entries{{{PieceStanding::Active, "the selected piece"},
                                        {PieceStanding::Owned, "covered by the pieces you own"},
                                        {PieceStanding::NonOwned, "to buy: you own too few"},
                                        {PieceStanding::Inactive, "of a track that is not chosen"}}};

void PaintSample(QPainter& painter, const QRectF& place, PieceStanding standing, const ColourScheme& colours,
                 TrackLook look) {
    if (look == TrackLook::Surface) PaintSampleBed(painter, place, standing, colours);
    painter.setBrush(Qt::NoBrush);
    const QPen edge(ToQColor(OutlineColour(standing, colours)), look == TrackLook::Surface ? EdgeWidth(standing) : 1.5);
    painter.setPen(edge);
    painter.drawRect(place);
}

} // namespace

void PaintLegend(QPainter& painter, const ColourScheme& colours, TrackLook look) {
    constexpr double margin = 12;
    constexpr double sampleWidth = 34;
    const QFontMetricsF metrics(painter.font());
    const double line = metrics.height() + 8;
    double widest = 0;
    for (const Entry& entry : Entries)
        widest = std::max(widest, metrics.horizontalAdvance(entry.Words));
    const QRectF plate(margin, margin, sampleWidth + widest + 3 * margin,
                       static_cast<double>(Entries.size()) * line + margin);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(colours.Inactive), 1));
    QColor ground = ToQColor(colours.Background);
    ground.setAlpha(235);
    painter.setBrush(ground);
    painter.drawRoundedRect(plate, 6, 6);
    double top = plate.top() + margin / 2;
    for (const Entry& entry : Entries) {
        const QRectF sample(plate.left() + margin, top + 5, sampleWidth, line - 10);
        PaintSample(painter, sample, entry.Standing, colours, look);
        painter.setPen(ToQColor(TextColourOn(colours.Background)));
        painter.drawText(QRectF(sample.right() + margin, top, widest + margin, line), Qt::AlignVCenter, entry.Words);
        top += line;
    }
    painter.restore();
}

} // namespace pistaro
