#include "money/packing_program.h"

#include <cmath>
#include <stdexcept>

namespace pistaro {

namespace {

constexpr double Nothing = 1e-9;

/// The rows with a slack variable each, and the gains below them.
class Tableau {
public:
    explicit Tableau(const PackingProgram& program)
        : variables_(program.Gain.size()), rows_(program.Rows.size()), width_(variables_ + rows_ + 1),
          cells_((rows_ + 1) * width_), basis_(rows_) {
        for (std::size_t row = 0; row < rows_; ++row) {
            for (std::size_t variable = 0; variable < variables_; ++variable)
                At(row, variable) = program.Rows[row][variable];
            At(row, variables_ + row) = 1;
            At(row, width_ - 1) = program.Limits[row];
            basis_[row] = variables_ + row;
        }
        for (std::size_t variable = 0; variable < variables_; ++variable)
            At(rows_, variable) = -program.Gain[variable];
    }

    void Solve() {
        // The column that gains most is quick. Should it turn in circles, the first one that gains never does.
        const std::size_t patience = 10 * width_;
        for (std::size_t pivots = 0;; ++pivots) {
            const std::size_t column = Entering(pivots > patience);
            if (column == width_ - 1) return;
            Pivot(Leaving(column), column);
        }
    }

    PackingSolution Solution() const {
        PackingSolution solution{At(rows_, width_ - 1), {}};
        for (std::size_t row = 0; row < rows_; ++row)
            solution.Multipliers.push_back(At(rows_, variables_ + row));
        return solution;
    }

private:
    double& At(std::size_t row, std::size_t column) { return cells_[row * width_ + column]; }
    double At(std::size_t row, std::size_t column) const { return cells_[row * width_ + column]; }

    /// One beyond the last where none gains.
    std::size_t Entering(bool first) const {
        std::size_t best = width_ - 1;
        double most = -Nothing;
        for (std::size_t column = 0; column < width_ - 1; ++column) {
            if (At(rows_, column) >= most) continue;
            if (first) return column;
            best = column;
            most = At(rows_, column);
        }
        return best;
    }

    std::size_t Leaving(std::size_t column) const {
        std::size_t best = rows_;
        double least = 0;
        for (std::size_t row = 0; row < rows_; ++row) {
            if (At(row, column) < Nothing) continue;
            const double ratio = At(row, width_ - 1) / At(row, column);
            const bool first =
                best == rows_ || ratio < least - Nothing || (ratio < least + Nothing && basis_[row] < basis_[best]);
            if (!first) continue;
            best = row;
            least = ratio;
        }
        if (best == rows_) throw std::logic_error("a variable that gains is not bounded");
        return best;
    }

    void Pivot(std::size_t pivotRow, std::size_t column) {
        const double pivot = At(pivotRow, column);
        for (std::size_t i = 0; i < width_; ++i)
            At(pivotRow, i) /= pivot;
        for (std::size_t row = 0; row <= rows_; ++row) {
            const double factor = At(row, column);
            if (row == pivotRow || factor == 0) continue;
            for (std::size_t i = 0; i < width_; ++i)
                At(row, i) -= factor * At(pivotRow, i);
        }
        basis_[pivotRow] = column;
    }

    std::size_t variables_, rows_, width_;
    std::vector<double> cells_;
    std::vector<std::size_t> basis_;
};

} // namespace

PackingSolution Solve(const PackingProgram& program) {
    Tableau tableau(program);
    tableau.Solve();
    return tableau.Solution();
}

} // namespace pistaro
