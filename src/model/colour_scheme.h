// The six colours that the user chooses, and the fixed ones.
#pragma once

#include <cstdint>

namespace pistaro {

/// A Windows RGB value: red in the lowest byte, then green, then blue.
using Colour = std::int32_t;

constexpr Colour Rgb(int red, int green, int blue) { return red | green << 8 | blue << 16; }
constexpr int Red(Colour colour) { return colour & 0xFF; }
constexpr int Green(Colour colour) { return colour >> 8 & 0xFF; }
constexpr int Blue(Colour colour) { return colour >> 16 & 0xFF; }

inline constexpr Colour GridColour = Rgb(0x40, 0x40, 0x40);
inline constexpr Colour RoomColour = Rgb(128, 0, 0);

struct ColourScheme {
    Colour Background = 0;
    Colour Inactive = 0; ///< elements of tracks other than the current one
    Colour Rail = 0;     ///< lane lines and the marks of special pieces
    Colour NonOwned = 0; ///< elements beyond what the user owns
    Colour Owned = 0;
    Colour Active = 0;        ///< the selected element
    Colour Grid = GridColour; ///< these two are others only where a window's drawing follows a dark desktop
    Colour Room = RoomColour;

    bool operator==(const ColourScheme&) const = default;
};

/// Black or white, whichever contrasts more with a background: the colour of all texts in drawings.
Colour TextColourOn(Colour background);

/// A slot's name as the command line spells it, beside its place in the scheme.
struct ColourSlot {
    const char* Name;
    const char* Key; ///< in the settings file's colour section, with its "="
    Colour ColourScheme::*Slot;
};

/// The six slots in the order of the settings file.
inline constexpr ColourSlot ColourSlots[] = {
    {"background", "Background=", &ColourScheme::Background},
    {"inactive", "Inactive=", &ColourScheme::Inactive},
    {"rail", "Rail=", &ColourScheme::Rail},
    {"nonOwned", "NonOwned=", &ColourScheme::NonOwned},
    {"owned", "Owned=", &ColourScheme::Owned},
    {"active", "Active=", &ColourScheme::Active},
};

} // namespace pistaro
