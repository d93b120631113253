// A picture that lies under the circuit at its true size, such as a floor plan or a photograph of the table.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace pistaro {

/// Two places of a picture whose distance apart its user knows.
struct MeasuredDistance {
    double FromX = 0, FromY = 0, ToX = 0, ToY = 0; ///< pixels of the picture, from its upper left corner
    double Distance = 0;                           ///< cm
};

/// Its place is told against the room, so that it turns with it.
struct ScaledBackground {
    std::shared_ptr<const std::string> Picture;    ///< the bytes of the picture's file
    double X = 0, Y = 0;                           ///< of its middle before the room is turned, cm
    double Angle = 0;                              ///< clockwise against the room, radians
    double CmPerPixel = 0;                         ///< 0 where that is not known yet
    double Opacity = 1;                            ///< how much of it shows: 1 all, less the more it is faded
    std::optional<MeasuredDistance> Measured = {}; ///< what its size was taken from, where that is known
};

inline constexpr std::size_t MostPictureBytes = std::size_t{256} << 20; ///< no floor plan comes near it
inline constexpr double FarthestBackground = 1e6;                       ///< cm from the origin
inline constexpr double LeastCmPerPixel = 1e-4;
inline constexpr double MostCmPerPixel = 1000;
inline constexpr double LeastOpacity = 0.1; ///< a picture that is not seen at all is removed instead

} // namespace pistaro
