// Which pieces take the places of shapes, and what they cost: those sold under several names are the same to a search.
#pragma once

#include "model/stock.h"
#include "search/chain_search.h"
#include "search/closing.h"

#include <vector>

namespace pistaro {

/// Pieces for a chain of shapes, by catalogue rows.
struct Offer {
    std::vector<int> Rows;
    float Price = 0;
    bool IsOwned = false; ///< what is owned and not used covers them
};

/// How many pieces a circuit uses without those in a place.
UsedCounts UsedBeside(const Catalogue& catalogue, const Circuit& circuit, const TrackPlace& place);

class Market {
public:
    /// `used` are the pieces of the circuit that cannot be had for the chain.
    Market(const Catalogue& catalogue, const PieceShapes& shapes, const Stock& stock, const UsedCounts& used);

    /// The plain pieces; where it is less, the cheapest ones; and where those are not owned, the cheapest that are.
    std::vector<Offer> OffersFor(const ShapeChain& chain) const;

    /// Whether what is owned and not used covers the chain.
    bool CanSupply(const ShapeChain& chain) const;

    /// The shapes of which at least one piece is owned and not used.
    ShapeMask OwnedShapes() const;

private:
    /// Pieces of one shape, of either hand, as they are bought.
    struct Product {
        int HeadRow;
        float Price;
        int Available;
    };
    using Shelf = std::vector<Product>; ///< the plain product first

    /// How many of each product of each shelf.
    using Basket = std::vector<std::vector<int>>;

    Basket Counted(const ShapeChain& chain) const;
    Basket Cheapest(Basket basket) const;
    bool TakeOwned(Basket& basket) const;
    Offer Filled(const ShapeChain& chain, Basket basket) const;

    const PieceShapes& shapes_;
    std::vector<Shelf> shelves_;
    std::vector<std::size_t> shelfOf_; ///< by shape
};

} // namespace pistaro
