// Qt's readers and writers, and the GIF writer beside them.
#include "imaging/image_file.h"

#include "imaging/gif_file.h"
#include "platform/fault.h"
#include "platform/processes.h"

#include <QBuffer>
#include <QImageReader>

namespace pistaro {

QImage DecodeImage(const std::string& bytes, const std::string& name) {
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true); // a photograph stands as it was taken
    QImage image = [&] {
        const SilentStandardError silent; // the PNG library prints what it found there as well
        return reader.read();
    }();
    if (image.isNull()) throw InvalidPicture(name + ": " + reader.errorString().toStdString());
    return image;
}

std::string EncodeImage(const QImage& image, const std::string& format) {
    if (format == "gif") return EncodeGif(image);
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    constexpr int lineArtQuality = 95; // of JPEG; less would blur thin lines
    if (!image.save(&buffer, format.c_str(), format == "jpg" ? lineArtQuality : -1))
        throw Fault("Picture not written", format);
    return data.toStdString();
}

} // namespace pistaro
