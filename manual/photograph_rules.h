// Pictures of the rules by which designs are checked.
#pragma once

#include "catalogue/catalogue.h"

#include <QString>

namespace pistaro {

/// Writes rule-ID.png for each rule into the folder.
void PhotographRules(const Catalogue& catalogue, const QString& folder);

} // namespace pistaro
