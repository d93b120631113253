// The shopping list: what the detail area shows, as a text file to take to the shop.
#pragma once

#include "model/preferences.h"
#include "model/prompts.h"
#include "stats/detail.h"

#include <string>

namespace pistaro {

inline constexpr const char* ShoppingListName = "shoppingList.txt";

/// The file's bytes: one line a head row of which pieces are needed, with its own price, so "C8010" twice; then the
/// total.
std::string ShoppingListBytes(const Catalogue& catalogue, const Stock& stock, const Units& units, const Detail& detail);

inline constexpr const char* ShoppingTableName = "shoppingList.csv";

/// The same pieces for spreadsheets: UTF-8, lines of "count,code,name,price,sum", each product once, sums in whole
/// cents, the total last. N10111, which the list never counts, is not here either.
std::string ShoppingTableBytes(const Stock& stock, const Units& units, const Detail& detail);

/// Writes the list into the working directory and gives the message that tells so. Faults of writing leave the old
/// list.
Message WriteShoppingList(const Catalogue& catalogue, const Stock& stock, const Preferences& preferences,
                          const Detail& detail);

} // namespace pistaro
