#include "search/closing_tables.h"

namespace pistaro {

const PoseLevel& ClosingTables::Level(std::uint8_t system, int pieces) const {
    const std::scoped_lock lock(making_);
    auto& levels = levels_[system];
    if (!levels[0]) levels[0] = std::make_unique<const PoseLevel>(StartLevel(system));
    for (std::size_t level = 1; level <= static_cast<std::size_t>(pieces); ++level) {
        if (!levels[level]) levels[level] = std::make_unique<const PoseLevel>(NextLevel(shapes_, *levels[level - 1]));
    }
    return *levels[static_cast<std::size_t>(pieces)];
}

} // namespace pistaro
