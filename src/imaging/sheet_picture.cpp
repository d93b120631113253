#include "imaging/sheet_picture.h"

#include "imaging/image_file.h"
#include "imaging/sheet_painter.h"
#include "platform/fault.h"

#include <cmath>

namespace pistaro {

namespace {

constexpr double CmPerInch = 2.54;

QImage BlankSheet(double width, double height) {
    constexpr double mostAcross = 32000; // pixels; painters count no further
    constexpr double most = 128e6;       // of 512 MB
    if (width <= mostAcross && height <= mostAcross && width * height <= most) {
        QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
        if (!image.isNull()) {
            image.fill(Qt::white);
            return image;
        }
    }
    throw Fault("Picture too large", std::to_string(std::llround(width)) + " x " +
                                         std::to_string(std::llround(height)) +
                                         " pixels; at most 128 million are drawn, 32000 in a line");
}

} // namespace

std::string SheetPng(const CircuitDrawing& drawing, const SheetPlan& plan, double dotsPerInch) {
    const double dotsPerCm = dotsPerInch / CmPerInch;
    QImage image = BlankSheet(std::max(1.0, std::round(plan.Width * dotsPerCm)),
                              std::max(1.0, std::round(plan.Height * dotsPerCm)));
    {
        QPainter painter(&image);
        SheetPainter(drawing, plan).Paint(painter, dotsPerInch, 0);
    }
    const int dotsPerMetre = static_cast<int>(std::lround(dotsPerCm * 100));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    return EncodeImage(image, PictureFormat::Png);
}

} // namespace pistaro
