// What is drawn once and laid over a picture many times, as fast as its pixels can be blended. All to the pixel as a
// painter would; the picture is opaque, and shares its pixels with no other.
#pragma once

#include <QImage>

#include <vector>

namespace pistaro {

class Stamp {
public:
    /// Of what is drawn on a transparent image in premultiplied format.
    explicit Stamp(const QImage& drawn);

    /// Lays it with its top left at that pixel; it may reach over the picture's edges.
    void PressOn(QImage& picture, int left, int top) const;

    /// Lays each of its pixels over a whole row of a picture of its height. It is one pixel wide.
    void PressAcross(QImage& picture) const;

private:
    struct Ink {
        int X, Y;
        QRgb Colour;
    };

    std::vector<Ink> inks_;
    int width_, height_;
};

/// A stamp as wide as the picture. Over the same ground as the last time it copies what came of that.
class Band {
public:
    explicit Band(const QImage& drawn) : stamp_(drawn), height_(drawn.height()) {}

    void PressOn(QImage& picture, int top);

private:
    Stamp stamp_;
    int height_;
    std::vector<uchar> ground_, pressed_;
};

} // namespace pistaro
