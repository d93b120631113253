// The settings of a first run.
#include "model/settings.h"

namespace pistaro {

Settings InitialSettings() {
    Settings settings;
    settings.DisplayUnits.Currency = "EUR";
    settings.Grid = {static_cast<std::int16_t>(GridType::Dots), 10};
    settings.Colours = {.Background = Rgb(255, 255, 255),
                        .Inactive = Rgb(128, 128, 128),
                        .Rail = Rgb(0, 0, 0),
                        .NonOwned = Rgb(255, 0, 0),
                        .Owned = Rgb(0, 0, 255),
                        .Active = Rgb(0, 128, 0)};
    return settings;
}

} // namespace pistaro
