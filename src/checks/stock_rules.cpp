#include "checks/stock_rules.h"

#include "model/money.h"

#include <algorithm>
#include <map>

namespace pistaro {

namespace {

/// Which elements are beyond the owned ones, by product and track; both hands of a curve are one product.
class Shortages {
public:
    explicit Shortages(const CheckedCircuit& circuit) : circuit_(circuit), used_(HeadRows()) {
        for (const CheckedTrack& track : circuit.Tracks) {
            for (const LaidPiece& laid : track.Pieces) {
                const int product = ProductOf(*laid.Piece);
                if (++used_[static_cast<std::size_t>(product)] > circuit.Owned[product].OwnedCount)
                    missing_[{product, track.Index}].push_back(laid.Element);
            }
        }
    }

    const std::map<std::pair<int, int>, std::vector<int>>& Missing() const { return missing_; }

    /// Owned pieces of a product that the circuit does not use; below 0 when some must be bought.
    int Left(int product) const {
        return circuit_.Owned[product].OwnedCount - used_[static_cast<std::size_t>(product)];
    }

private:
    std::size_t HeadRows() { return static_cast<std::size_t>(circuit_.Kinds.Count()); }

    /// The product's row that carries what is owned: of a curve whose hands have a head row each, the first.
    int ProductOf(const CatalogueEntry& piece) {
        if (productOf_.empty()) productOf_.assign(HeadRows(), -1);
        int& product = productOf_[static_cast<std::size_t>(piece.StockIndex)];
        if (product < 0) product = circuit_.Kinds.FindHeadRow(ProductCode(circuit_.Kinds[piece.StockIndex].Code));
        return product;
    }

    const CheckedCircuit& circuit_;
    std::vector<int> used_, productOf_;
    std::map<std::pair<int, int>, std::vector<int>> missing_;
};

/// Whether the user has told of any owned piece.
bool IsStockTold(const CheckedCircuit& circuit) {
    return std::ranges::any_of(circuit.Owned.Products,
                               [](const ProductStock& product) { return product.OwnedCount > 0; });
}

std::string CostOf(const CheckedCircuit& circuit, int product, std::size_t count) {
    const Cents price = CentsOf(circuit.Owned[product].Price);
    if (price == 0) return "no price is known";
    const Cents sum = price * static_cast<Cents>(count);
    return "at " + MoneyText(price, circuit.Marks) + " they cost " +
           MoneyText(sum, circuit.Shown.Currency, circuit.Marks);
}

std::string Product(const CheckedCircuit& circuit, int row) {
    return std::string(ProductCode(circuit.Kinds[row].Code));
}

} // namespace

std::vector<Finding> FindUnownedPieces(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    if (!IsStockTold(circuit)) return findings;
    const Shortages shortages(circuit);
    for (const auto& [where, elements] : shortages.Missing()) {
        const auto [product, track] = where;
        findings.push_back({"", Severity::Advice, track, elements,
                            std::to_string(elements.size()) + " more " + Product(circuit, product) + " than the " +
                                std::to_string(circuit.Owned[product].OwnedCount) +
                                " owned: " + CostOf(circuit, product, elements.size()) + "."});
    }
    return findings;
}

std::vector<Finding> FindUnusedSpecials(const CheckedCircuit& circuit) {
    std::vector<Finding> findings;
    if (!IsStockTold(circuit)) return findings;
    const Shortages shortages(circuit);
    int last = -1;
    for (const auto& [where, elements] : shortages.Missing()) {
        const auto [plain, track] = where;
        if (plain == last || !circuit.Kinds[plain].IsBasic()) continue; // of several tracks the first
        last = plain;
        std::string unused;
        for (const int special : circuit.Kinds.VariantRows()) {
            if (special == plain || circuit.Kinds[special].ShapeIndex != plain || shortages.Left(special) <= 0)
                continue;
            unused += (unused.empty() ? "" : ", ") + std::to_string(shortages.Left(special)) + " " +
                      Product(circuit, special);
        }
        if (unused.empty()) continue;
        findings.push_back({"", Severity::Advice, track, elements,
                            std::to_string(-shortages.Left(plain)) + " " + Product(circuit, plain) +
                                " must be bought, while of the same size there lie unused: " + unused + "."});
    }
    return findings;
}

} // namespace pistaro
