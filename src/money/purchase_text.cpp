#include "money/purchase_text.h"

#include "money/purchase_counts.h"
#include "text/utf8.h"

#include <algorithm>
#include <utility>

namespace pistaro {

namespace {

/// A count and its name to the left, the price and the sum of all to the right.
std::string Columns(const PurchaseLine& line) {
    const auto right = [](const std::string& text, std::size_t width) {
        return std::string(width - std::min(width, text.size()), ' ') + text;
    };
    constexpr std::size_t nameWidth = 40;
    const std::size_t filler = nameWidth - std::min(nameWidth, CharacterCount(line.Name));
    return right(std::to_string(line.Count), 5) + " x " + line.Name + std::string(filler, ' ') +
           right(MoneyText(line.Price), 12) + right(MoneyText(line.Price * line.Count), 12) + '\n';
}

/// "2 C160, 1 C151" behind a heading, in the order in which it is told; empty when there is none.
class CountLine {
public:
    explicit CountLine(std::string heading) : heading_(std::move(heading)) {}

    void Add(const std::string& code, int count) {
        counts_ += (counts_.empty() ? "" : ", ") + std::to_string(count) + " " + code;
    }
    std::string Text() const { return counts_.empty() ? "" : heading_ + counts_ + '\n'; }

private:
    std::string heading_, counts_;
};

std::string CountsOf(const std::string& heading, const Catalogue& catalogue, const std::vector<int>& counts) {
    CountLine line(heading);
    ForEachCount(counts, [&](std::size_t row, int count) { line.Add(CodeOf(catalogue, row), count); });
    return line.Text();
}

std::string UnknownCodes(const Catalogue& catalogue, const Circuit& circuit) {
    CountLine line("Not in the catalogue, and not counted: ");
    for (const auto& [code, count] : CountUnknownCodes(catalogue, circuit))
        line.Add(code, count);
    return line.Text();
}

/// Shares out what is missing among boxes, those that come first serve it first.
class Needs {
public:
    explicit Needs(std::vector<int> missing) : missing_(std::move(missing)) {}

    int Take(int row, int count) {
        int& missing = missing_[static_cast<std::size_t>(row)];
        const int taken = std::min(missing, count);
        missing -= taken;
        return taken;
    }

private:
    std::vector<int> missing_;
};

void AddSingly(PurchaseReport& report, const Catalogue& catalogue, const Project& project, const Purchase& purchase,
               const std::vector<int>& missing) {
    ForEachCount(missing, [&](std::size_t row, int count) {
        const Cents price = PriceOf(project, row);
        const bool isSold = row >= purchase.NotSold.size() || purchase.NotSold[row] == 0;
        report.Singly += price * count;
        if (price > 0 || !isSold) return;
        report.NotSingly += count;
        report.BoxedCodes.push_back(CodeOf(catalogue, row));
    });
}

std::string ProvenRank(const PurchaseReport& report) {
    const std::string above =
        report.AboveBound == 0 ? "" : "at most " + MoneyText(report.AboveBound, report.Currency) + " above ";
    return above + "the cheapest there is.";
}

} // namespace

PurchaseReport ReportOf(const Catalogue& catalogue, const Project& project, const BoxedSets& sets,
                        const Purchase& purchase) {
    const Circuit& circuit = project.Design.Circuit;
    PurchaseReport report{.Lines = {},
                          .Total = purchase.Total,
                          .AboveBound = purchase.Total - purchase.Bound,
                          .Currency = project.Preferences.Units.Currency,
                          .Unsold = {},
                          .UnsoldRemark = CountsOf("In no set and without a price: ", catalogue, purchase.NotSold),
                          .Remarks = {}};
    const auto nameOf = [&](std::size_t row) {
        return CodeOf(catalogue, row) + " " + catalogue[static_cast<int>(row)].LongName;
    };
    const std::vector<int> missing = MissingPieces(catalogue, project.Stock, circuit);
    Needs needs(missing);
    ForEachCount(purchase.Sets, [&](std::size_t set, int count) {
        std::vector<BoxContent> contents;
        for (const auto& [row, each] : sets[set].Pieces)
            contents.push_back({each * count, nameOf(static_cast<std::size_t>(row)), needs.Take(row, each * count)});
        report.Lines.push_back({count, sets[set].Name, sets[set].Price, std::move(contents)});
    });
    AddSingly(report, catalogue, project, purchase, missing);
    ForEachCount(purchase.Singles, [&](std::size_t row, int count) {
        report.Lines.push_back({count, nameOf(row), PriceOf(project, row)});
    });
    ForEachCount(purchase.NotSold, [&](std::size_t row, int count) {
        report.Unsold.push_back({count, nameOf(row), 0});
    });
    report.Remarks = CountsOf("Left over from the sets: ", catalogue, purchase.Surplus) +
                     CountsOf("Owned and not used: ", catalogue, UnusedPieces(catalogue, project.Stock, circuit)) +
                     UnknownCodes(catalogue, circuit);
    return report;
}

std::string PurchaseText(const PurchaseReport& report, const std::string& rank) {
    const std::string remarks = report.UnsoldRemark + report.Remarks;
    if (report.Lines.empty() && !report.Unsold.empty()) return "What is missing has no price yet.\n" + remarks;
    std::string table;
    for (const PurchaseLine& line : report.Lines)
        table += Columns(line);
    return table + "Total " + MoneyText(report.Total, report.Currency) +
           (rank.empty() ? ", " + ProvenRank(report) : rank) + "\n" + remarks;
}

} // namespace pistaro
