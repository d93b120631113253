#include "search/site.h"

#include "layout/overlap.h"

namespace pistaro {

Site::Site(const Catalogue& catalogue, const Design& design, const TrackPlace& gap) : room_(design.Room) {
    std::vector<Ground> grounds;
    for (int each = 0; each < TrackCount; ++each) {
        const auto first = static_cast<int>(grounds.size());
        int before = -1;
        int behind = -1;
        const Track& walked = design.Circuit.Tracks[static_cast<std::size_t>(each)];
        WalkTrack(catalogue, walked, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
            const bool isBefore = element < gap.At;
            if (placement == nullptr || (each == gap.Track && !isBefore && element < gap.At + gap.Remove)) return;
            const int index = static_cast<int>(grounds.size());
            if (isBefore) before = index;
            if (!isBefore && behind < 0) behind = index;
            grounds.push_back(GroundOf(*placement));
            pieces_.push_back(catalogue.Find(walked.ElementCodes[static_cast<std::size_t>(element)]));
        });
        const int last = static_cast<int>(grounds.size()) - 1;
        if (each != gap.Track || last < first) continue;
        last_ = before < 0 ? last : before;
        first_ = behind < 0 ? first : behind;
    }
    grid_ = GroundGrid(std::move(grounds));
    isBridgeTaken_.resize(pieces_.size());
    for (std::size_t i = 0; i < pieces_.size(); ++i)
        isBridgeTaken_[i] = pieces_[i]->IsBridge() && !IsFreeBridge(static_cast<int>(i));
}

bool Site::IsFreeBridge(int index) const {
    const Ground& ground = grid_.Grounds()[static_cast<std::size_t>(index)];
    return grid_.ForEachMeeting(ground.Box, [&](int other, const Ground& otherGround) {
        const bool isNear = other >= index - 1 && other <= index + 1;
        return isNear || !Overlaps(ground, otherGround);
    });
}

Contact Site::ContactOf(const CatalogueEntry& piece, const Ground& ground) const {
    Contact contact;
    contact.IsOutside = !room_.Holds(ground);
    grid_.ForEachMeeting(ground.Box, [&](int index, const Ground& other) {
        if (!Overlaps(ground, other)) return true;
        const auto at = static_cast<std::size_t>(index);
        if (index == last_) contact.OverlapsLast = true;
        if (index == first_) contact.OverlapsFirst = true;
        if (index == last_ || index == first_) return true;
        const bool isBelow =
            pieces_[at]->IsBridge() && !isBridgeTaken_[at] && PassesUnder(piece, ground, *pieces_[at], other);
        contact.Overlaps = contact.Overlaps || !isBelow;
        return !contact.Overlaps;
    });
    return contact;
}

} // namespace pistaro
