// Qt's readers and writers, and the GIF writer beside them.
#include "imaging/image_file.h"

#include "imaging/gif_file.h"
#include "platform/fault.h"
#include "platform/processes.h"

#include <QBuffer>
#include <QImageReader>

#include <array>

namespace pistaro {

namespace {

constexpr qint64 MostMegabytes = 512; ///< of a decoded picture
constexpr qint64 Megabyte = 1 << 20;

/// The memory that the picture takes when it is decoded; 0 where that shows only then.
qint64 DecodedBytes(const QImageReader& reader) {
    const QSize size = reader.size();
    if (!size.isValid()) return 0;
    const QImage::Format format = reader.imageFormat();
    const int bits = format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    const qint64 wordsOfLine = (qint64{size.width()} * bits + 31) / 32;
    return 4 * wordsOfLine * size.height();
}

/// The formats in which floor plans and photographs come. Qt may have readers of many more, among them such that follow
/// what is written in a picture; a file from anywhere shall meet none of those.
constexpr std::array<const char*, 4> Formats{"bmp", "gif", "jpeg", "png"};

/// The one of them that the bytes are in, whatever the file's name says. Fault where they are in none.
const char* FormatOf(QBuffer& bytes, const std::string& name) {
    for (const char* const format : Formats) {
        QImageReader reader(&bytes, format);
        reader.setAutoDetectImageFormat(false);
        const bool isOne = reader.canRead();
        bytes.seek(0); // some readers look further than that
        if (isOne) return format;
    }
    const std::string taken = "BMP, GIF, JPEG or PNG picture";
    if (bytes.peek(4) == "%PDF")
        throw InvalidPicture(name + ": this is a PDF, no " + taken +
                             ". Save its page as PNG or JPEG first; most programs "
                             "that show a PDF can export it so, and a picture of the screen will do");
    throw InvalidPicture(name + ": this is no " + taken);
}

/// Faults before memory is taken that the program would not give.
void CheckMemory(const QImageReader& reader, const std::string& name) {
    const qint64 bytes = DecodedBytes(reader);
    if (bytes <= MostMegabytes * Megabyte) return;
    throw InvalidPicture(name + ": its " + std::to_string(reader.size().width()) + " x " +
                         std::to_string(reader.size().height()) + " pixels would need " +
                         std::to_string((bytes + Megabyte - 1) / Megabyte) + " MB, at most " +
                         std::to_string(MostMegabytes) + " MB are taken");
}

} // namespace

QImage DecodeImage(const std::string& bytes, const std::string& name) {
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, FormatOf(buffer, name));
    reader.setAutoDetectImageFormat(false);
    QImageReader::setAllocationLimit(MostMegabytes);
    reader.setAutoTransform(true); // a photograph stands as it was taken
    QImage image = [&] {
        const SilentStandardError silent; // the PNG library prints what it found there as well
        CheckMemory(reader, name);
        return reader.read();
    }();
    if (image.isNull()) throw InvalidPicture(name + ": " + reader.errorString().toStdString());
    return image;
}

std::string EncodeImage(const QImage& image, PictureFormat format) {
    if (format == PictureFormat::Gif) return EncodeGif(image);
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    constexpr int lineArtQuality = 95; // of JPEG; less would blur thin lines
    const SilentStandardError silent;  // as above
    if (!image.save(&buffer, NameOf(format), format == PictureFormat::Jpeg ? lineArtQuality : -1))
        throw Fault("Picture not written", NameOf(format));
    return data.toStdString();
}

} // namespace pistaro
