// Counting colours, and median cut for those that do not fit. A photograph may have millions of them: those are counted
// in a table of all colours there are, and cut by the boxes of a coarse grid of them.
#include "imaging/palette.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <span>

namespace pistaro {

namespace {

constexpr std::size_t ExactColours = 64;         ///< kept as they are when there are too many
constexpr qsizetype MostListedColours = 1 << 16; ///< sorted one by one; more are cut by the grid's boxes

struct CountedColour {
    QRgb Colour = 0;
    std::int64_t Count = 0; ///< pixels
};

/// Calls visit(colour) for each pixel of a row. What stands in the unused byte does not count.
template <typename Visit>
void ForEachPixel(const QImage& image, int y, Visit visit) {
    const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x)
        visit(row[x] | 0xFF000000);
}

template <typename Visit>
void ForEachPixel(const QImage& image, Visit visit) {
    for (int y = 0; y < image.height(); ++y)
        ForEachPixel(image, y, visit);
}

/// By count, and by colour where the counts are equal: a hash has another order in every run.
bool IsMoreFrequent(const CountedColour& a, const CountedColour& b) {
    return a.Count != b.Count ? a.Count > b.Count : a.Colour < b.Colour;
}

/// All colours of the image, the most frequent first; none where they are more than MostListedColours.
std::vector<CountedColour> Histogram(const QImage& image) {
    QHash<QRgb, std::int64_t> counts;
    for (int y = 0; y < image.height(); ++y) {
        ForEachPixel(image, y, [&](QRgb colour) { ++counts[colour]; });
        if (counts.size() > MostListedColours) return {};
    }
    std::vector<CountedColour> colours;
    colours.reserve(static_cast<std::size_t>(counts.size()));
    for (auto each = counts.constBegin(); each != counts.constEnd(); ++each)
        colours.push_back({each.key(), each.value()});
    std::ranges::sort(colours, IsMoreFrequent);
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

std::vector<std::uint8_t> IndexedPixels(const QImage& image, const auto& indexOf) {
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    ForEachPixel(image, [&](QRgb colour) { pixels.push_back(indexOf(colour)); });
    return pixels;
}

/// With a palette for these colours, which are all that the image has.
PaletteImage WithListedColours(const QImage& image, std::span<CountedColour> colours) {
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
    for (std::size_t i = 0; i < exact; ++i)
        addEntry(colours[i].Colour, colours.subspan(i, 1));
    if (!fits) {
        for (const Box& box : MedianCut(colours.subspan(exact), MostPaletteColours - exact))
            addEntry(box.Mean(), box.Colours());
    }
    result.Pixels = IndexedPixels(image, [&](QRgb colour) { return indices.value(colour); });
    return result;
}

/// A colour's place among all colours, and its box in a grid of 32 steps of each channel.
std::size_t PlaceOf(QRgb colour) { return colour & 0xFFFFFF; }
constexpr std::size_t AllColours = 1 << 24;
std::size_t CellOf(QRgb colour) {
    constexpr int dropped = 3; // bits of the 8
    return static_cast<std::size_t>((qRed(colour) >> dropped << 10) | (qGreen(colour) >> dropped << 5) |
                                    qBlue(colour) >> dropped);
}
constexpr std::size_t AllCells = 1 << 15;

/// How often each colour stands in an image, by its place.
using ColourCounts = std::vector<std::uint32_t>;

/// The most frequent colours, as many as are kept as they are, the most frequent first.
std::vector<CountedColour> MostFrequent(const ColourCounts& counts) {
    std::vector<CountedColour> most; // a heap with the least frequent at its top
    for (std::size_t place = 0; place < AllColours; ++place) {
        if (counts[place] == 0) continue;
        const CountedColour colour{static_cast<QRgb>(place) | 0xFF000000, counts[place]};
        if (most.size() == ExactColours && !IsMoreFrequent(colour, most.front())) continue;
        most.push_back(colour);
        std::ranges::push_heap(most, IsMoreFrequent);
        if (most.size() <= ExactColours) continue;
        std::ranges::pop_heap(most, IsMoreFrequent);
        most.pop_back();
    }
    std::ranges::sort(most, IsMoreFrequent);
    return most;
}

/// The grid's boxes that hold any of these colours, each with their mean.
std::vector<CountedColour> CellsOf(const ColourCounts& counts) {
    std::vector<std::array<std::int64_t, 4>> sums(AllCells); // of red, green, blue, and the pixels
    for (std::size_t place = 0; place < AllColours; ++place) {
        const auto colour = static_cast<QRgb>(place);
        const std::int64_t count = counts[place];
        if (count == 0) continue;
        auto& [red, green, blue, pixels] = sums[CellOf(colour)];
        red += count * qRed(colour);
        green += count * qGreen(colour);
        blue += count * qBlue(colour);
        pixels += count;
    }
    std::vector<CountedColour> cells;
    for (const auto& [red, green, blue, pixels] : sums) {
        if (pixels == 0) continue;
        const auto mean = [half = pixels / 2, all = pixels](std::int64_t sum) {
            return static_cast<int>((sum + half) / all);
        };
        cells.push_back({qRgb(mean(red), mean(green), mean(blue)), pixels});
    }
    return cells;
}

PaletteImage WithCountlessColours(const QImage& image) {
    ColourCounts counts(AllColours);
    ForEachPixel(image, [&](QRgb colour) { ++counts[PlaceOf(colour)]; });
    const std::vector<CountedColour> exact = MostFrequent(counts);
    for (const CountedColour& colour : exact)
        counts[PlaceOf(colour.Colour)] = 0;
    std::vector<CountedColour> cells = CellsOf(counts);

    PaletteImage result;
    std::vector<std::uint8_t> ofCell(AllCells);
    for (const CountedColour& colour : exact)
        result.Palette.push_back(colour.Colour);
    for (const Box& box : MedianCut(cells, std::min(MostPaletteColours - exact.size(), cells.size()))) {
        for (const CountedColour& cell : box.Colours())
            ofCell[CellOf(cell.Colour)] = static_cast<std::uint8_t>(result.Palette.size());
        result.Palette.push_back(box.Mean());
    }
    std::vector<std::uint8_t> indices(AllColours);
    for (std::size_t place = 0; place < AllColours; ++place)
        indices[place] = ofCell[CellOf(static_cast<QRgb>(place))];
    for (std::size_t i = 0; i < exact.size(); ++i)
        indices[PlaceOf(exact[i].Colour)] = static_cast<std::uint8_t>(i);
    result.Pixels = IndexedPixels(image, [&](QRgb colour) { return indices[PlaceOf(colour)]; });
    return result;
}

} // namespace

PaletteImage ToPaletteImage(const QImage& source) {
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    std::vector<CountedColour> colours = Histogram(image);
    return colours.empty() ? WithCountlessColours(image) : WithListedColours(image, colours);
}

} // namespace pistaro
