// Windows keeps the wish in its registry; what it wishes of contrast, the toolkit's own colours follow.
#include "ui/desktop_colours.h"

#include <QSettings>

namespace pistaro {

DesktopPreference AskDesktop() {
    const QSettings themes("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                           QSettings::NativeFormat);
    return {.Dark = themes.value("AppsUseLightTheme", 1).toInt() == 0};
}

void HearDesktop(QObject&) {} // it is asked when its user comes back

} // namespace pistaro
