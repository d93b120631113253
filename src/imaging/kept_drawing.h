// The drawing of a window: redrawn at every change, of which few concern what lies under the tracks.
#pragma once

#include "imaging/painter_surface.h"
#include "model/project.h"

namespace pistaro {

class KeptDrawing {
public:
    /// Redraws the circuit, to the pixel as RedrawCircuit does: `size` in device-independent pixels, of which each is
    /// `pixelRatio` of the picture's wide. The ground, whose grid may have ten thousand dots, is drawn when it changes,
    /// and copied otherwise.
    void Redraw(const Catalogue& catalogue, const Project& project, const QImage& backdrop, QSize size,
                double pixelRatio);

    /// As it was redrawn last; null before.
    const QImage& Picture() const { return picture_; }

private:
    /// All that the ground depends on.
    struct GroundKey {
        pistaro::Preferences Preferences;
        ViewSettings View;
        qint64 Backdrop = 0;
        QSize Size;
        double PixelRatio = 0;

        bool operator==(const GroundKey&) const = default;
    };

    void DrawGroundOf(const GroundKey& key, const QImage& backdrop);

    GroundKey key_;
    QImage ground_;
    QImage picture_;
};

/// How many pixels of a picture such a size takes.
QSize PixelsOf(QSize size, double pixelRatio);

} // namespace pistaro
