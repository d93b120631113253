#include "checks/check.h"

#include "checks/rules.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace pistaro {

std::string_view NameOf(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Advice:
        break;
    }
    return "advice";
}

std::vector<PieceAddress> PiecesOf(const Finding& finding) {
    std::vector<PieceAddress> pieces;
    pieces.reserve(finding.Pieces.size() + finding.Others.size());
    for (const int element : finding.Pieces)
        pieces.push_back({finding.Track, element});
    pieces.insert(pieces.end(), finding.Others.begin(), finding.Others.end());
    return pieces;
}

PieceAddress SecondOf(const Finding& overlap) {
    return overlap.Others.empty() ? PieceAddress{overlap.Track, overlap.Pieces.back()} : overlap.Others.front();
}

std::vector<Finding> CheckDesign(const Catalogue& catalogue, const Design& design, const Stock& stock,
                                 const Units& units, const MoneyMarks& marks) {
    const CheckedCircuit circuit(catalogue, design, stock, units, marks);
    std::vector<Finding> findings;
    for (const Rule& rule : Rules()) {
        for (Finding& finding : rule.Find(circuit)) {
            finding.Rule = rule.Id;
            findings.push_back(std::move(finding));
        }
    }
    std::ranges::stable_sort(findings, [](const Finding& a, const Finding& b) {
        return std::tie(a.Severity, a.Track, a.Pieces.front()) < std::tie(b.Severity, b.Track, b.Pieces.front());
    });
    return findings;
}

bool HasErrors(const std::vector<Finding>& findings) {
    return std::ranges::any_of(findings, [](const Finding& finding) { return finding.Severity == Severity::Error; });
}

} // namespace pistaro
