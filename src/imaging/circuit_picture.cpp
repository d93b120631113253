#include "imaging/circuit_picture.h"

#include "imaging/cached_drawing.h"
#include "imaging/image_file.h"
#include "imaging/painter_surface.h"
#include "platform/fault.h"
#include "platform/processes.h"
#include "render/redraw.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <array>

namespace pistaro {

struct OffscreenGraphics::Application {
    Application() {
        if (QCoreApplication::instance() != nullptr) return;
        // What the toolkit misses of a desktop is no news to whoever wanted a picture.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
#ifndef Q_OS_WIN // there, pictures need no display, and only the usual platform knows the system's fonts
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
        Fonts.emplace();
        const SilentStandardError silent; // the fonts' library prints what it made of its configuration without memory
        Gui = std::make_unique<QGuiApplication>(Count, Values.data());
        QFontDatabase::families(); // reads them all
    }

    int Count = 1;
    char Name[8] = "pistaro";
    std::array<char*, 2> Values{Name, nullptr};
    std::optional<UncheckedMemory> Fonts; ///< their library, which goes on without memory
    std::unique_ptr<QGuiApplication> Gui;
};

OffscreenGraphics::OffscreenGraphics() : application_(std::make_unique<Application>()) {}
OffscreenGraphics::~OffscreenGraphics() = default;

std::string CircuitPicture(const Catalogue& catalogue, const Project& project, int pixels,
                           const std::optional<Picture>& background, PictureFormat format, TrackLook look) {
    const QImage backdrop = background ? background->Image() : QImage();
    QImage image(pixels, pixels, QImage::Format_RGB32);
    if (image.isNull())
        throw Fault("Out of memory", std::to_string(pixels) + " x " + std::to_string(pixels) + " pixels");
    if (look == TrackLook::Surface) {
        CachedDrawing drawing;
        drawing.Redraw(catalogue, project, backdrop, {{pixels, pixels}}, look);
        image = drawing.Picture();
    } else {
        QPainter painter(&image);
        PainterSurface surface(painter, TargetSize::Square(pixels), backdrop);
        RedrawCircuit(catalogue, project, surface);
    }
    return EncodeImage(image, format);
}

} // namespace pistaro
