// The icons of buttons: drawings of one colour, in that of the words beside them.
#pragma once

#include <QIcon>
#include <QToolButton>

namespace pistaro {

inline constexpr int LineIconSide = 20; ///< device-independent pixels

/// The drawing of that name in icons/, in the colour that the desktop gives to words on buttons, whatever it becomes.
QIcon LineIcon(const char* name);

/// Shows that drawing on a button, whose caption is shown where the style says so, and is always its text.
void ShowIcon(QToolButton& button, const char* name, Qt::ToolButtonStyle style);

} // namespace pistaro
