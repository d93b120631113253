// The window's menu bar: every entry is a row of the command table.
#pragma once

#include "ui/command_controls.h"

#include <QMainWindow>

namespace pistaro {

/// Fills the window's menu bar. `close` closes the window, which runs the row "quit".
void AddMainMenus(QMainWindow& window, CommandControls& controls, Session& session, const std::function<void()>& close);

} // namespace pistaro
