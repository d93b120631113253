#include "cli/check_json.h"

#include "checks/check.h"
#include "checks/rules.h"

#include <algorithm>
#include <cmath>

namespace pistaro {

namespace {

std::string Padded(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - std::min(width, text.size()), ' ');
}

std::string CountOf(const std::vector<Finding>& findings, Severity severity, const char* one, const char* several) {
    const auto count = std::ranges::count(findings, severity, &Finding::Severity);
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

} // namespace

std::vector<Finding> FindingsOf(const Catalogue& catalogue, const Project& project) {
    return CheckDesign(catalogue, project.Design, project.Stock, project.Preferences.Units);
}

Json FindingsJson(const std::vector<Finding>& findings) {
    Json all = Json::array();
    for (const Finding& finding : findings)
        all.push_back({{"rule", finding.Rule},
                       {"severity", NameOf(finding.Severity)},
                       {"track", finding.Track + 1},
                       {"pieces", finding.Pieces},
                       {"text", finding.Text}});
    return {{"findings", std::move(all)}};
}

std::string FindingsTable(const std::vector<Finding>& findings) {
    std::string table;
    for (const Finding& finding : findings)
        table += Padded(NameOf(finding.Severity), 9) + "track " + std::to_string(finding.Track + 1) + "  " +
                 Padded(finding.Rule, 19) + finding.Text + '\n';
    return table + CountOf(findings, Severity::Error, "error", "errors") + ", " +
           CountOf(findings, Severity::Warning, "warning", "warnings") + ", " +
           CountOf(findings, Severity::Advice, "piece of advice", "pieces of advice") + '\n';
}

Json RulesJson() {
    Json all = Json::array();
    for (const Rule& rule : Rules())
        all.push_back({{"rule", rule.Id}, {"severity", NameOf(rule.Worst)}, {"text", rule.Text}, {"why", rule.Why}});
    return {{"rules", std::move(all)}};
}

Json BalanceJson(int track, const Balance& balance) {
    const auto fine = [](double length) { return Number(std::round(length * 1000) / 1000); };
    Json steps = Json::array();
    for (const BalanceStep& step : balance.Steps)
        steps.push_back({{"first", step.First},
                         {"pieces", step.Codes},
                         {"text", step.Text},
                         {"left", fine(step.Lengths[0])},
                         {"right", fine(step.Lengths[1])},
                         {"joined", step.Joined}});
    return {{"track", track + 1},
            {"before", fine(balance.Before)},
            {"balanced", balance.IsBalanced},
            {"steps", std::move(steps)}};
}

std::string BalanceTable(int track, const Balance& balance, const Units& units) {
    return "Track " + std::to_string(track + 1) + ": " + BalanceText(balance, units) + '\n';
}

std::string RulesTable() {
    std::string table;
    for (const Rule& rule : Rules())
        table += Padded(NameOf(rule.Worst), 9) + Padded(rule.Id, 19) + rule.Text + '\n';
    return table;
}

} // namespace pistaro
