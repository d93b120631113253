#include "catalogue/catalogue.h"

#include "catalogue/track_geometry.h"

#include <algorithm>
#include <stdexcept>

namespace pistaro {

namespace {

/// A product's name may be followed by blanks, up to this length.
constexpr std::size_t PaddedCode = 20;

/// Whether the code, with blanks after it, begins with the product's name.
bool BeginsWith(std::string_view code, std::string_view product) {
    if (product.size() <= code.size()) return code.starts_with(product);
    return product.size() <= PaddedCode && product.starts_with(code) &&
           product.find_first_not_of(' ', code.size()) == std::string_view::npos;
}

bool SharesShape(const Catalogue& catalogue, int row) {
    return std::ranges::count_if(catalogue.ProductRows(), [&](int other) {
               return catalogue[other].ShapeIndex == catalogue[row].ShapeIndex;
           }) > 1;
}

} // namespace

bool CatalogueEntry::IsChicaneExtension() const {
    return Kind.LaneInset == double{TrackGeometry::ChicaneLaneInset} && !IsChicane();
}

Catalogue::Catalogue(std::vector<CatalogueEntry> rows) : rows_(std::move(rows)) {
    const auto isRow = [&](int row) { return row >= 0 && row < Count(); };
    for (int row = 0; row < Count(); ++row) {
        const CatalogueEntry& entry = (*this)[row];
        if (!isRow(entry.ShapeIndex) || !isRow(entry.StockIndex))
            throw std::logic_error(entry.Code + " has the shape or the product of a row that is not there");
        rowOf_.emplace(entry.Code, row);
        if (!IsHeadRow(row)) continue;
        headRows_.push_back(row);
        const int found = FindHeadRow(ProductCode(entry.Code));
        if (ProductCode((*this)[found].Code) != ProductCode(entry.Code))
            throw std::logic_error(entry.Code + " would be taken for " + (*this)[found].Code +
                                   ", which begins like it");
        if (found == row) productRows_.push_back(row);
    }
    std::ranges::copy_if(productRows_, std::back_inserter(variantRows_),
                         [&](int row) { return SharesShape(*this, row); });
    std::ranges::stable_sort(variantRows_, {}, [&](int row) { return (*this)[row].VariantPlace; });
}

int Catalogue::FindRow(std::string_view code) const {
    const auto found = rowOf_.find(code);
    return found == rowOf_.end() ? -1 : found->second;
}

const CatalogueEntry* Catalogue::Find(std::string_view code) const {
    const int row = FindRow(code);
    return row < 0 ? nullptr : &(*this)[row];
}

int Catalogue::FindHeadRow(std::string_view product) const {
    const auto found = std::ranges::find_if(headRows_, [&](int row) { return BeginsWith((*this)[row].Code, product); });
    return found == headRows_.end() ? -1 : *found;
}

char Hand(std::string_view code) {
    if (code.ends_with('L')) return 'L';
    if (code.ends_with('R')) return 'R';
    return 0;
}

std::string_view ProductCode(std::string_view code) { return Hand(code) == 0 ? code : code.substr(0, code.size() - 1); }

std::string SwappedHand(std::string_view code) {
    const char hand = Hand(code);
    if (hand == 0) return std::string(code);
    return std::string(ProductCode(code)) + (hand == 'L' ? 'R' : 'L');
}

bool IsOfSystem(std::string_view code, TrackSystem system) {
    return code.starts_with(system == TrackSystem::Ninco ? 'N' : 'C');
}

} // namespace pistaro
