// Dialogs on small screens.
#pragma once

#include <QDialog>

namespace pistaro {

/// Makes a dialog no larger than that. Where it cannot be made so small, its content scrolls, above its buttons.
void FitInto(QDialog& dialog, QSize room);

/// Fits it into what its screen has for windows.
void FitScreen(QDialog& dialog);

/// Shows it so fitted until it is closed.
void ShowModally(QDialog&& dialog);

} // namespace pistaro
