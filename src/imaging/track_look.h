// How a drawing shows tracks.
#pragma once

namespace pistaro {

/// By their lines alone, or as they look.
enum class TrackLook { Lines, Surface };

} // namespace pistaro
