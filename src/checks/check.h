// All checks of a design at once.
#pragma once

#include "checks/finding.h"
#include "model/money.h"
#include "model/project.h"

namespace pistaro {

/// What all rules find: errors first, then warnings and pieces of advice, each by track and place. The stock tells what
/// is owned and what a piece costs, the units in which lengths and money are told,
/// the marks how.
std::vector<Finding> CheckDesign(const Catalogue& catalogue, const Design& design, const Stock& stock,
                                 const Units& units, const MoneyMarks& marks = {});

bool HasErrors(const std::vector<Finding>& findings);

} // namespace pistaro
