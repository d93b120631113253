#include "search/market.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace pistaro {

UsedCounts UsedBeside(const Catalogue& catalogue, const Circuit& circuit, const TrackPlace& place) {
    UsedCounts used = CountUsed(catalogue, circuit);
    const std::vector<std::string>& codes = circuit.Tracks[static_cast<std::size_t>(place.Track)].ElementCodes;
    for (int element = place.At; element < place.At + place.Remove; ++element) {
        const CatalogueEntry* const piece = catalogue.Find(codes[static_cast<std::size_t>(element)]);
        if (piece != nullptr) --used[static_cast<std::size_t>(piece->StockIndex)];
    }
    return used;
}

Market::Market(const Catalogue& catalogue, const PieceShapes& shapes, const Stock& stock, const UsedCounts& used)
    : shapes_(shapes) {
    for (int shape = 0; shape < shapes.Count(); ++shape) {
        const int head = shapes[shape].Piece->StockIndex;
        const auto same = std::ranges::find_if(shelves_, [&](const Shelf& shelf) { return shelf[0].HeadRow == head; });
        shelfOf_.push_back(static_cast<std::size_t>(same - shelves_.begin()));
        if (same != shelves_.end()) continue;
        Shelf& shelf = shelves_.emplace_back();
        for (const int row : shapes[shape].Rows) {
            const int product = catalogue[row].StockIndex;
            const int left = stock[product].OwnedCount - used[static_cast<std::size_t>(product)];
            shelf.push_back({product, stock[product].Price, std::max(0, left)});
        }
    }
}

Market::Basket Market::Counted(const ShapeChain& chain) const {
    Basket basket;
    for (const Shelf& shelf : shelves_)
        basket.emplace_back(shelf.size(), 0);
    for (int place = 0; place < chain.Count(); ++place)
        ++basket[shelfOf_[static_cast<std::size_t>(chain[place])]][0];
    return basket;
}

Market::Basket Market::Cheapest(Basket basket) const {
    for (std::size_t i = 0; i < shelves_.size(); ++i) {
        const auto cheapest = std::ranges::min_element(shelves_[i], {}, &Product::Price) - shelves_[i].begin();
        std::swap(basket[i][0], basket[i][static_cast<std::size_t>(cheapest)]);
    }
    return basket;
}

/// Takes what is owned from each shelf, the cheapest first. False where it does not reach.
bool Market::TakeOwned(Basket& basket) const {
    for (std::size_t i = 0; i < shelves_.size(); ++i) {
        const Shelf& shelf = shelves_[i];
        int needed = std::exchange(basket[i][0], 0);
        std::vector<std::size_t> order(shelf.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::stable_sort(order, {}, [&](std::size_t product) { return shelf[product].Price; });
        for (const std::size_t product : order) {
            basket[i][product] = std::min(needed, shelf[product].Available);
            needed -= basket[i][product];
        }
        if (needed > 0) return false;
    }
    return true;
}

Offer Market::Filled(const ShapeChain& chain, Basket basket) const {
    Offer offer;
    offer.IsOwned = true;
    double price = 0;
    for (std::size_t i = 0; i < shelves_.size(); ++i) {
        for (std::size_t product = 0; product < shelves_[i].size(); ++product) {
            price += double{shelves_[i][product].Price} * basket[i][product];
            if (basket[i][product] > shelves_[i][product].Available) offer.IsOwned = false;
        }
    }
    offer.Price = static_cast<float>(price);
    for (int place = 0; place < chain.Count(); ++place) {
        std::vector<int>& left = basket[shelfOf_[static_cast<std::size_t>(chain[place])]];
        const auto product = std::ranges::find_if(left, [](int count) { return count > 0; }) - left.begin();
        --left[static_cast<std::size_t>(product)];
        offer.Rows.push_back(shapes_[chain[place]].Rows[static_cast<std::size_t>(product)]);
    }
    return offer;
}

std::vector<Offer> Market::OffersFor(const ShapeChain& chain) const {
    const Basket plain = Counted(chain);
    std::vector<Offer> offers{Filled(chain, plain)};
    Offer cheapest = Filled(chain, Cheapest(plain));
    if (cheapest.Price < offers[0].Price) offers.push_back(std::move(cheapest));
    Basket owned = plain;
    if (std::ranges::none_of(offers, &Offer::IsOwned) && TakeOwned(owned))
        offers.push_back(Filled(chain, std::move(owned)));
    return offers;
}

bool Market::CanSupply(const ShapeChain& chain) const {
    Basket basket = Counted(chain);
    return TakeOwned(basket);
}

ShapeMask Market::OwnedShapes() const {
    ShapeMask owned = 0;
    for (int shape = 0; shape < shapes_.Count(); ++shape) {
        const Shelf& shelf = shelves_[shelfOf_[static_cast<std::size_t>(shape)]];
        if (std::ranges::any_of(shelf, [](const Product& product) { return product.Available > 0; }))
            owned |= ShapeMask{1} << shape;
    }
    return owned;
}

} // namespace pistaro
