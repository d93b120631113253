// Follows a desktop that likes its windows dark, or rich in contrast, where the toolkit does not do so by itself.
#pragma once

#include <QApplication>
#include <QObject>
#include <QPalette>

namespace pistaro {

struct DesktopPreference {
    bool Dark = false;
    bool HighContrast = false;

    bool operator==(const DesktopPreference&) const = default;
};

/// What the desktop says that its user wishes; nothing where it says nothing.
DesktopPreference AskDesktop();

/// Has `follower`'s slot Ask called when the desktop says that this has changed, where it can.
void HearDesktop(QObject& follower);

/// Whether a palette writes light on dark.
bool IsDark(const QPalette& palette);

/// Whether a palette writes in black and white, or nearly so.
bool HasHighContrast(const QPalette& palette);

/// The colours of windows that answer a wish.
QPalette PaletteFor(const DesktopPreference& wish);

/// Gives the application's windows what is wished. Where the toolkit's own colours answer the wish already, or where
/// there is none, they stay.
void ShowAsWished(const DesktopPreference& wish, const QPalette& toolkits);

/// Follows the desktop as long as it lives.
class DesktopFollower : public QObject {
    Q_OBJECT

public:
    explicit DesktopFollower(QApplication& application);

    /// Asks the desktop, and shows the windows as it wishes.
    Q_SLOT void Ask();

private:
    QPalette toolkits_; ///< as they were before they were changed
    DesktopPreference wish_;
};

} // namespace pistaro
