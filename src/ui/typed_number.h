// Numbers and amounts as the desktop writes them, where people read and type these.
#pragma once

#include "model/money.h"

#include <QString>

#include <string>

namespace pistaro {

/// What was typed as the number texts of the core, whatever the desktop's decimal sign; as it stands, but for a decimal
/// comma, where it is no number to the desktop.
std::string PlainNumber(const QString& typed);

/// Money without its currency: "1.234,50" on a German desktop.
QString Amount(Cents cents);

} // namespace pistaro
