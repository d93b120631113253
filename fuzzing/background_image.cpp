// Any bytes as a picture behind the drawing: they are refused, or give a picture that has a size.
#include "fuzzing/require.h"
#include "imaging/image_file.h"
#include "platform/fault.h"

#include <cstdint>

using namespace pistaro;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const QImage image = DecodeImage({reinterpret_cast<const char*>(data), size}, "fuzzed");
        Require(image.width() > 0 && image.height() > 0, "a picture has a size");
    } catch (const Fault&) {
        return 0;
    }
    return 0;
}
