// A screen without a display, for windows to be photographed on.
#pragma once

#include <QTemporaryFile>

#include <stdexcept>

namespace pistaro {

/// On which every window has room: on the platform's own, dialogs would scroll. To be called before there is an
/// application; the file tells of it as long as that lives.
inline void UseLargeScreen(QTemporaryFile& screen) {
    if (!screen.open()) throw std::runtime_error("there is no room for temporary files");
    screen.write(R"({"screens": [{"name": "large", "x": 0, "y": 0, "width": 1920, "height": 1080, "logicalDpi": 96,
                                  "logicalBaseDpi": 96, "dpr": 1}]})");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
}

} // namespace pistaro
