#include "search/site.h"

#include "layout/overlap.h"

namespace pistaro {

Site::Site(const Catalogue& catalogue, const Design& design, int track) : room_(design.Room) {
    std::vector<Ground> grounds;
    for (int each = 0; each < TrackCount; ++each) {
        const auto before = static_cast<int>(grounds.size());
        const Track& walked = design.Circuit.Tracks[static_cast<std::size_t>(each)];
        WalkTrack(catalogue, walked, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
            if (placement == nullptr) return;
            grounds.push_back(GroundOf(*placement));
            pieces_.push_back(catalogue.Find(walked.ElementCodes[static_cast<std::size_t>(element)]));
        });
        if (each != track || grounds.size() == static_cast<std::size_t>(before)) continue;
        first_ = before;
        last_ = static_cast<int>(grounds.size()) - 1;
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
