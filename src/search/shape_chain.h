// A chain of shapes in one number.
#pragma once

#include <compare>
#include <cstdint>

namespace pistaro {

/// Shapes in the order in which they are laid, five bits each: what a search has by the hundred thousand.
class ShapeChain {
public:
    int Count() const { return static_cast<int>(bits_ >> CountShift); }
    int operator[](int place) const { return static_cast<int>(bits_ >> (5 * place) & 31); }
    int Last() const { return (*this)[Count() - 1]; }

    ShapeChain With(int shape) const {
        return ShapeChain((bits_ | static_cast<std::uint64_t>(shape) << (5 * Count())) + One);
    }
    ShapeChain With(const ShapeChain& more) const {
        ShapeChain chain = *this;
        for (int place = 0; place < more.Count(); ++place)
            chain = chain.With(more[place]);
        return chain;
    }

    ShapeChain() = default;
    auto operator<=>(const ShapeChain&) const = default;

private:
    static constexpr int CountShift = 60;
    static constexpr std::uint64_t One = std::uint64_t{1} << CountShift;

    explicit ShapeChain(std::uint64_t bits) : bits_(bits) {}

    std::uint64_t bits_ = 0; ///< the count above the shapes
};

} // namespace pistaro
