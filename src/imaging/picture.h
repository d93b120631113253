// Pictures that lie behind the drawing, for callers that know nothing of Qt.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

class QImage;

namespace pistaro {

/// Cheap to copy: copies share the image.
class Picture {
public:
    /// Faults: the file cannot be read, is no picture, or would take too much memory.
    static Picture Read(const std::filesystem::path& file);

    /// The same of a file's bytes, whose name faults tell.
    static Picture Decoded(const std::string& bytes, const std::string& name);

    const QImage& Image() const { return *image_; }

    /// Whether both are copies of one.
    bool operator==(const Picture&) const = default;

private:
    explicit Picture(std::shared_ptr<const QImage> image) : image_(std::move(image)) {}

    std::shared_ptr<const QImage> image_;
};

/// Decodes a picture once, as long as it is the same bytes.
class DecodedPicture {
public:
    /// Fault as above.
    const Picture& Of(const std::shared_ptr<const std::string>& bytes, const std::string& name);

private:
    std::shared_ptr<const std::string> bytes_;
    std::optional<Picture> picture_;
};

} // namespace pistaro
