// What is to be bought, as JSON and as a table for a person.
#pragma once

#include "cli/json.h"
#include "model/boxed_set.h"
#include "model/project.h"
#include "money/purchase.h"

#include <string>

namespace pistaro {

/// {"currency":"EUR","sets":[{"name":"...","count":1,"price":49.95,"sum":49.95}],
///  "singles":[{"code":"C160","count":2,"price":3.5,"sum":7}],"notSold":[{"code":"C164","count":1}],
///  "surplus":[{"code":"C151","count":2}],"unused":[{"code":"C159","count":3}],
///  "total":56.95,"bound":56.95,"proven":true}
/// `surplus` are pieces of the sets beyond the need, `unused` owned pieces that the circuit does not use.
Json PurchaseJson(const Catalogue& catalogue, const Project& project, const BoxedSets& sets, const Purchase& purchase);

std::string PurchaseTable(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                          const Purchase& purchase);

} // namespace pistaro
