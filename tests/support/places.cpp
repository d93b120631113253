// The one file that is compiled with this machine's paths: all others compile alike in whatever folder the tree stands.
#include "support/places.h"

namespace pistaro {

std::filesystem::path SourceFolder() { return SOURCE_FOLDER; }

const char* Program() { return PROGRAM; }

} // namespace pistaro
