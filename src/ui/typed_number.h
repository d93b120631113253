// Numbers as people type them where the desktop's own format is taken, too.
#pragma once

#include <QString>

#include <string>

namespace pistaro {

/// What was typed as the number texts of the core, whatever the desktop's decimal sign; as it stands where it is no
/// number to the desktop.
std::string PlainNumber(const QString& typed);

} // namespace pistaro
