// Findings and rules, as JSON and as tables for a person.
#pragma once

#include "checks/balance.h"
#include "cli/json.h"
#include "model/project.h"

#include <string>
#include <vector>

namespace pistaro {

/// What the rules find in a project's design.
std::vector<Finding> FindingsOf(const Catalogue& catalogue, const Project& project);

/// {"findings":[{"rule":"open-track","severity":"error","track":1,"pieces":[0,7],"text":"..."}]}
Json FindingsJson(const std::vector<Finding>& findings);

/// A line for each, and how many there are of each severity.
std::string FindingsTable(const std::vector<Finding>& findings);

/// {"rules":[{"rule":"open-track","severity":"error","text":"...","why":"..."}]}
Json RulesJson();
std::string RulesTable();

/// {"track":1,"before":49.6,"balanced":false,"steps":[{"first":4,"pieces":["C8006"],"text":"...","left":...,"right":...,
///  "joined":true}]}: lengths of the lanes as built, cm, after each step.
Json BalanceJson(int track, const Balance& balance);
std::string BalanceTable(int track, const Balance& balance, const Units& units);

} // namespace pistaro
