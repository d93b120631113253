#include "ui/canvas_colours.h"

#include "imaging/painter_surface.h"
#include "ui/desktop_colours.h"

namespace pistaro {

ColourScheme CanvasColours(const ColourScheme& set, const ColourScheme& initial, const QPalette& desktop) {
    if (set != initial || !IsDark(desktop)) return set;
    return {.Background = FromQColor(desktop.color(QPalette::Base)),
            .Inactive = Rgb(0x9A, 0xA0, 0xA8),
            .Rail = Rgb(0xE0, 0xE2, 0xE5),
            .NonOwned = Rgb(0xFF, 0x7A, 0x6E),
            .Owned = Rgb(0x7D, 0xAE, 0xFF),
            .Active = Rgb(0x6C, 0xDB, 0x6C),
            .Grid = Rgb(0x55, 0x59, 0x60),
            .Room = Rgb(0xE0, 0x8A, 0x6A)};
}

} // namespace pistaro
