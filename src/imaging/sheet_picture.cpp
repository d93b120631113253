#include "imaging/sheet_picture.h"

#include "imaging/image_file.h"
#include "imaging/sheet_painter.h"
#include "platform/fault.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr double CmPerInch = 2.54;

Fault TooLarge(double width, double height) {
    return {"Picture too large", std::to_string(std::llround(width)) + " x " + std::to_string(std::llround(height)) +
                                     " pixels; at most 128 million are drawn, 32000 in a line"};
}

} // namespace

PixelSize SheetPixels(const SheetPlan& plan, double dotsPerInch) {
    constexpr double mostAcross = 32000; // pixels; painters count no further
    constexpr double most = 128e6;       // of 512 MB
    const double width = std::max(1.0, std::round(plan.Width * dotsPerInch / CmPerInch));
    const double height = std::max(1.0, std::round(plan.Height * dotsPerInch / CmPerInch));
    if (!(width <= mostAcross && height <= mostAcross && width * height <= most)) throw TooLarge(width, height);
    return {static_cast<int>(width), static_cast<int>(height)};
}

std::string SheetPng(const CircuitDrawing& drawing, const SheetPlan& plan, double dotsPerInch,
                     const ScaledBackdrop* backdrop) {
    const PixelSize size = SheetPixels(plan, dotsPerInch);
    QImage image(size.Width, size.Height, QImage::Format_RGB32);
    if (image.isNull()) throw TooLarge(size.Width, size.Height);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        SheetPainter(drawing, plan, {}, backdrop).Paint(painter, dotsPerInch, 0);
    }
    const int dotsPerMetre = static_cast<int>(std::lround(dotsPerInch / CmPerInch * 100));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return EncodeImage(image, PictureFormat::Png);
}

} // namespace pistaro
