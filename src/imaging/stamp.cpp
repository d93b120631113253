#include "imaging/stamp.h"

#include <cstring>

namespace pistaro {

namespace {

/// All four channels times `part` of 255, rounded as the toolkit rounds when it blends.
QRgb Scaled(QRgb colour, quint32 part) {
    constexpr quint32 pairs = 0x00FF00FF;
    constexpr quint32 halves = 0x00800080;
    const auto scaled = [&](quint32 pair) {
        const quint32 product = pair * part;
        return (product + ((product >> 8) & pairs) + halves) >> 8;
    };
    return (scaled(colour & pairs) & pairs) | ((scaled((colour >> 8) & pairs) & pairs) << 8);
}

void Blend(QRgb& under, QRgb ink) { under = ink + Scaled(under, 255 - static_cast<quint32>(qAlpha(ink))); }

} // namespace

Stamp::Stamp(const QImage& drawn) : width_(drawn.width()), height_(drawn.height()) {
    for (int y = 0; y < height_; ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(drawn.constScanLine(y));
        for (int x = 0; x < width_; ++x) {
            if (qAlpha(row[x]) != 0) inks_.push_back({x, y, row[x]});
        }
    }
}

void Stamp::PressOn(QImage& picture, int left, int top) const {
    auto* const pixels = reinterpret_cast<QRgb*>(picture.bits());
    const qsizetype stride = picture.bytesPerLine() / qsizetype{sizeof(QRgb)};
    const bool inside = left >= 0 && top >= 0 && left + width_ <= picture.width() && top + height_ <= picture.height();
    for (const Ink& ink : inks_) {
        const int x = left + ink.X;
        const int y = top + ink.Y;
        if (inside || picture.valid(x, y)) Blend(pixels[y * stride + x], ink.Colour);
    }
}

void Stamp::PressAcross(QImage& picture) const {
    for (const Ink& ink : inks_) {
        auto* const row = reinterpret_cast<QRgb*>(picture.scanLine(ink.Y));
        for (int x = 0; x < picture.width(); ++x)
            Blend(row[x], ink.Colour);
    }
}

void Band::PressOn(QImage& picture, int top) {
    if (top < 0 || top + height_ > picture.height()) return stamp_.PressOn(picture, 0, top);
    uchar* const rows = picture.scanLine(top);
    const auto size = static_cast<std::size_t>(height_ * picture.bytesPerLine());
    if (ground_.size() == size && std::memcmp(rows, ground_.data(), size) == 0) {
        std::memcpy(rows, pressed_.data(), size);
        return;
    }
    ground_.assign(rows, rows + size);
    stamp_.PressOn(picture, 0, top);
    pressed_.assign(rows, rows + size);
}

} // namespace pistaro
