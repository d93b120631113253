// Pictures that lie behind the drawing, for callers that know nothing of Qt.
#pragma once

#include <filesystem>
#include <memory>

class QImage;

namespace pistaro {

/// Cheap to copy: copies share the image.
class Picture {
public:
    /// Faults: the file cannot be read, is no picture, or would take too much memory.
    static Picture Read(const std::filesystem::path& file);

    const QImage& Image() const { return *image_; }

    /// Whether both are copies of one.
    bool operator==(const Picture&) const = default;

private:
    explicit Picture(std::shared_ptr<const QImage> image) : image_(std::move(image)) {}

    std::shared_ptr<const QImage> image_;
};

} // namespace pistaro
