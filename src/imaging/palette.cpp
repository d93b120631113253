// Counting colours, and median cut for those that do not fit.
#include "imaging/palette.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <span>

namespace pistaro {

namespace {

constexpr std::size_t ExactColours = 64; ///< kept as they are when there are too many

struct CountedColour {
    QRgb Colour = 0;
    std::int64_t Count = 0; ///< pixels
};

/// Calls visit(colour) for each pixel, row by row. What stands in the unused byte does not count.
template <typename Visit>
void ForEachPixel(const QImage& image, Visit visit) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            visit(row[x] | 0xFF000000);
    }
}

/// All colours of the image, the most frequent first.
std::vector<CountedColour> Histogram(const QImage& image) {
    QHash<QRgb, std::int64_t> counts;
    ForEachPixel(image, [&](QRgb colour) { ++counts[colour]; });
    std::vector<CountedColour> colours;
    colours.reserve(static_cast<std::size_t>(counts.size()));
    for (auto each = counts.constBegin(); each != counts.constEnd(); ++each)
        colours.push_back({each.key(), each.value()});
    // By colour where the counts are equal: the hash has another order in every run.
    std::ranges::sort(colours, [](const CountedColour& a, const CountedColour& b) {
        return a.Count != b.Count ? a.Count > b.Count : a.Colour < b.Colour;
    });
    return colours;
}

using Channel = int (*)(QRgb);
constexpr std::array<Channel, 3> Channels{qRed, qGreen, qBlue};

/// Colours that share a palette entry.
class Box {
public:
    explicit Box(std::span<CountedColour> colours) : colours_(colours) {
        int widest = -1;
        for (const Channel channel : Channels) {
            int least = 255;
            int most = 0;
            for (const CountedColour& each : colours_) {
                least = std::min(least, channel(each.Colour));
                most = std::max(most, channel(each.Colour));
            }
            const int extent = most - least;
            if (extent <= widest) continue;
            widest = extent;
            channel_ = channel;
        }
        for (const CountedColour& each : colours_)
            pixels_ += each.Count;
        weight_ = pixels_ * widest;
    }

    std::span<const CountedColour> Colours() const { return colours_; }

    /// How much is gained by parting the box: 0 for a single colour.
    std::int64_t Weight() const { return weight_; }

    /// Takes the upper half of the pixels, by the channel in which the box is widest, out of the box.
    Box Split() {
        std::ranges::sort(colours_, {}, [this](const CountedColour& each) { return channel_(each.Colour); });
        std::size_t lower = 1;
        for (std::int64_t below = colours_[0].Count; lower + 1 < colours_.size() && below < pixels_ / 2; ++lower)
            below += colours_[lower].Count;
        const Box upper(colours_.subspan(lower));
        *this = Box(colours_.first(lower));
        return upper;
    }

    QRgb Mean() const {
        std::array<std::int64_t, 3> sums{};
        for (const CountedColour& each : colours_) {
            for (std::size_t i = 0; i < sums.size(); ++i)
                sums[i] += each.Count * Channels[i](each.Colour);
        }
        const auto mean = [&](std::size_t i) { return static_cast<int>((sums[i] + pixels_ / 2) / pixels_); };
        return qRgb(mean(0), mean(1), mean(2));
    }

private:
    std::span<CountedColour> colours_;
    Channel channel_ = nullptr;
    std::int64_t pixels_ = 0;
    std::int64_t weight_ = 0;
};

std::vector<Box> MedianCut(std::span<CountedColour> colours, std::size_t count) {
    std::vector<Box> boxes{Box(colours)};
    while (boxes.size() < count) {
        Box& heaviest = *std::ranges::max_element(boxes, {}, &Box::Weight);
        const Box half = heaviest.Split();
        boxes.push_back(half);
    }
    return boxes;
}

} // namespace

PaletteImage ToPaletteImage(const QImage& source) {
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    std::vector<CountedColour> colours = Histogram(image);
    const bool fits = colours.size() <= MostPaletteColours;
    const std::size_t exact = fits ? colours.size() : ExactColours;

    PaletteImage result;
    QHash<QRgb, std::uint8_t> indices;
    indices.reserve(static_cast<qsizetype>(colours.size()));
    const auto addEntry = [&](QRgb entry, std::span<const CountedColour> members) {
        for (const CountedColour& each : members)
            indices.insert(each.Colour, static_cast<std::uint8_t>(result.Palette.size()));
        result.Palette.push_back(entry);
    };
    const std::span<CountedColour> all = colours;
    for (std::size_t i = 0; i < exact; ++i)
        addEntry(all[i].Colour, all.subspan(i, 1));
    if (!fits) {
        for (const Box& box : MedianCut(all.subspan(exact), MostPaletteColours - exact))
            addEntry(box.Mean(), box.Colours());
    }

    result.Pixels.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    ForEachPixel(image, [&](QRgb colour) { result.Pixels.push_back(indices.value(colour)); });
    return result;
}

} // namespace pistaro
