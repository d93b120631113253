#include "imaging/kept_drawing.h"

#include "render/redraw.h"

#include <algorithm>

namespace pistaro {

namespace {

QImage EmptyPicture(QSize size, double pixelRatio) {
    QImage picture(PixelsOf(size, pixelRatio), QImage::Format_RGB32);
    picture.setDevicePixelRatio(pixelRatio);
    return picture;
}

} // namespace

QSize PixelsOf(QSize size, double pixelRatio) { return (QSizeF(size) * pixelRatio).toSize(); }

void KeptDrawing::DrawGroundOf(const GroundKey& key, const QImage& backdrop) {
    ground_ = EmptyPicture(key.Size, key.PixelRatio);
    picture_ = EmptyPicture(key.Size, key.PixelRatio);
    QPainter painter(&ground_);
    PainterSurface surface(painter, TargetSize::Square(key.Size.width()), backdrop);
    DrawGround(key.Preferences, key.View, surface);
    key_ = key;
}

void KeptDrawing::Redraw(const Catalogue& catalogue, const Project& project, const QImage& backdrop, QSize size,
                         double pixelRatio) {
    const GroundKey key{project.Preferences, project.Design.View, backdrop.cacheKey(), size, pixelRatio};
    if (key != key_) DrawGroundOf(key, backdrop);
    std::copy_n(ground_.constBits(), ground_.sizeInBytes(), picture_.bits());
    QPainter painter(&picture_);
    PainterSurface surface(painter, TargetSize::Square(size.width()));
    ShowView(project.Design.View, surface);
    DrawCircuit(catalogue, project, surface);
}

} // namespace pistaro
