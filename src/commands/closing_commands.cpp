#include "commands/closing_commands.h"

#include "checks/ground_rules.h"
#include "commands/piece_texts.h"
#include "layout/built_lanes.h"
#include "layout/outline.h"
#include "layout/track_gap.h"
#include "model/length_text.h"
#include "model/money.h"
#include "platform/fault.h"
#include "text/count_text.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace pistaro {

namespace {

const Track& CurrentTrack(const Session& session) {
    return *EditedTrack(session.Project.Design.Circuit, session.Project.EditState);
}

std::string Sentence(std::string words) {
    if (words.empty()) return words;
    words[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(words[0])));
    return words + ".";
}

/// The products that would have to be bought for a suggestion, each with its number where that is not 1.
std::vector<std::string> ToBuy(const Session& session, const Suggestion& suggestion) {
    const Project& project = session.Project;
    const Catalogue& catalogue = session.Catalogue;
    Circuit changed = project.Design.Circuit;
    Apply(suggestion.Edit, *EditedTrack(changed, project.EditState));
    const UsedCounts used = CountUsed(catalogue, changed);
    UsedCounts laid(used.size(), 0);
    for (const std::string& code : suggestion.Edit.Insert)
        ++laid[static_cast<std::size_t>(catalogue.Find(code)->StockIndex)];
    std::vector<std::string> lacking;
    for (int row = 0; row < catalogue.Count(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        const int count = std::min(laid[at], used[at] - project.Stock[row].OwnedCount);
        if (count <= 0) continue;
        lacking.push_back(CountedPiece(session, row, count));
    }
    return lacking;
}

std::vector<std::string> CodesOfRun(const Session& session, const ElementRun& run) {
    const auto first = CurrentTrack(session).ElementCodes.begin() + run.First;
    return {first, first + run.Count};
}

/// Of both lanes together, as built; cm.
double LengthOf(const Catalogue& catalogue, const std::vector<std::string>& codes) {
    const BuiltLanes lanes = LanesAsBuilt(catalogue, Track{codes});
    return lanes.Lengths[0] + lanes.Lengths[1];
}

float PriceOf(const Session& session, const std::vector<std::string>& codes) {
    float price = 0;
    for (const std::string& code : codes) {
        if (const CatalogueEntry* const piece = session.Catalogue.Find(code))
            price += session.Project.Stock[piece->StockIndex].Price;
    }
    return price;
}

/// How many of these pieces have no price: they count as 0.
int UnpricedOf(const Session& session, const std::vector<std::string>& codes) {
    return static_cast<int>(std::ranges::count_if(codes, [&](const std::string& code) {
        const CatalogueEntry* const piece = session.Catalogue.Find(code);
        return piece != nullptr && session.Project.Stock[piece->StockIndex].Price == 0;
    }));
}

/// Whether cars leave these pieces on the other lane.
bool SwapsLanes(const Catalogue& catalogue, const std::vector<std::string>& codes) {
    const auto changes = std::ranges::count_if(codes, [&](const std::string& code) {
        const CatalogueEntry* const piece = catalogue.Find(code);
        return piece != nullptr && piece->LaneChange;
    });
    return changes % 2 != 0;
}

/// Puts a change-over in the place of the first plain piece of its shape. False where there is none.
bool PutChangeOver(const Session& session, Suggestion& suggestion) {
    const Catalogue& catalogue = session.Catalogue;
    for (std::string& code : suggestion.Edit.Insert) {
        const CatalogueEntry& piece = *catalogue.Find(code);
        const auto changeOver = std::ranges::find_if(catalogue, [&](const CatalogueEntry& other) {
            return other.LaneChange && piece.IsBasic() && other.ShapeIndex == piece.StockIndex;
        });
        if (changeOver == catalogue.end()) continue;
        code = changeOver->Code;
        suggestion.Price = PriceOf(session, suggestion.Edit.Insert);
        suggestion.IsOwned = ToBuy(session, suggestion).empty();
        return true;
    }
    return false;
}

/// Drops the suggestions that are not what is wished for in the place of `codes`.
void KeepWished(const Session& session, const std::vector<std::string>& codes, ReplacementWish wish,
                std::vector<Suggestion>& suggestions) {
    constexpr double notice = 0.05; // cm
    const double length = LengthOf(session.Catalogue, codes);
    const auto isUnwished = [&](Suggestion& suggestion) {
        const std::vector<std::string>& others = suggestion.Edit.Insert;
        switch (wish) {
        case ReplacementWish::Any:
            return false;
        case ReplacementWish::Shorter:
            return LengthOf(session.Catalogue, others) > length - notice;
        case ReplacementWish::Longer:
            return LengthOf(session.Catalogue, others) < length + notice;
        case ReplacementWish::Cheaper:
            return CentsOf(double{suggestion.Price}) >= CentsOf(double{PriceOf(session, codes)});
        case ReplacementWish::LanesSwapped:
            break;
        }
        return !SwapsLanes(session.Catalogue, codes) && !PutChangeOver(session, suggestion);
    };
    std::erase_if(suggestions, isUnwished);
}

std::string ElementText(const Track& track, int element) {
    return track.ElementCodes[static_cast<std::size_t>(element)] + " (" + std::to_string(element) + ")";
}

/// "2 pieces: C160, C151L."; of a mend "Takes out C160 (0), lays C159." or "Lays C159 before C160 (4)."
std::string EditText(const Session& session, const Suggestion& suggestion) {
    const TrackEdit& edit = suggestion.Edit;
    const std::string laid = Listed(edit.Insert);
    if (!suggestion.IsMend) return CountText(suggestion.Count(), "piece") + ": " + laid + ".";
    const Track& track = CurrentTrack(session);
    if (edit.Remove == 0) return "Lays " + laid + " before " + ElementText(track, edit.At) + ".";
    std::vector<std::string> takenOut;
    for (int element = edit.At; element < edit.At + edit.Remove; ++element)
        takenOut.push_back(ElementText(track, element));
    return "Takes out " + Listed(takenOut) + (laid.empty() ? "." : ", lays " + laid + ".");
}

/// " Overlaps this track and track 2."
std::string OverlapText(const Session& session, const Suggestion& suggestion) {
    if (!suggestion.Overlaps) return "";
    const Project& project = session.Project;
    const TrackEdit& edit = suggestion.Edit;
    const int current = project.EditState.CurrentTrack;
    Design changed = project.Design;
    Apply(edit, *EditedTrack(changed.Circuit, project.EditState));
    const auto isConcerned = [&](int track, int element) {
        const bool isLaid = element >= edit.At && element < edit.At + suggestion.Count();
        return track == current && (isLaid || suggestion.IsMend);
    };
    const CheckedCircuit circuit(session.Catalogue, changed, project.Stock, project.Preferences.Units);
    std::set<int> overlapped;
    for (const Finding& finding : FindOverlaps(circuit)) {
        const PieceAddress other = SecondOf(finding);
        if (isConcerned(finding.Track, finding.Pieces.front())) overlapped.insert(other.Track);
        if (isConcerned(other.Track, other.Element)) overlapped.insert(finding.Track);
    }
    std::string names;
    for (const int track : overlapped)
        names += (names.empty() ? "" : " and ") +
                 (track == current ? std::string("this track") : "track " + std::to_string(track + 1));
    return " Overlaps " + (names.empty() ? "other pieces" : names) + "."; // in a heap not all overlaps are told
}

/// How the misfit shows once all joints share it; empty where a usual joint takes it without notice.
std::string JointText(const Session& session, const Suggestion& suggestion) {
    if (double{suggestion.Gap.Distance} <= ClosingOptions().Tolerance) return "";
    const int joints = CurrentTrack(session).ElementLastIndex() + 1 - suggestion.Edit.Remove + suggestion.Count();
    return " Each joint gives " + FineLength(double{suggestion.Gap.Distance} * 10 / joints, {}) + " mm.";
}

} // namespace

std::string WhyNotClose(const Session& session) {
    const EditState& edit = session.Project.EditState;
    if (edit.ShowsAllTracks()) return "Choose one of the tracks first.";
    const Track& track = CurrentTrack(session);
    if (track.ElementCodes.empty()) return "The track is empty.";
    const TrackGap gap = GapOf(session.Catalogue, track);
    const bool isClosed = IsWithin(gap, ClosingOptions().Tolerance);
    return isClosed ? "The track is closed." : "";
}

Closings FindClosings(const Session& session, const ClosingOptions& options) {
    const Project& project = session.Project;
    const auto find = [&](const ClosingOptions& chosen) {
        return CloseTrack(session.Closings, session.Catalogue, project.Design, project.Stock,
                          project.EditState.CurrentTrack, chosen, {});
    };
    const auto hasFree = [](const Closings& found) {
        return !found.Suggestions.empty() && found.Suggestions.front().IsFree();
    };
    Closings closings = find(options);
    if (options.MostRemoved == 0 && !hasFree(closings)) {
        ClosingOptions mending = options;
        mending.MostRemoved = 2;
        Closings mends = find(mending);
        if (hasFree(mends) || closings.Suggestions.empty()) closings = std::move(mends);
    }
    closings.WhyNone = Sentence(closings.WhyNone);
    return closings;
}

Closings FindReplacements(const Session& session, const ElementRun& run, ReplacementWish wish,
                          const ClosingOptions& options) {
    const Project& project = session.Project;
    ClosingOptions wide = options;
    constexpr int manyToChooseFrom = 60;
    if (wish != ReplacementWish::Any) wide.Limit = manyToChooseFrom;
    const TrackPlace place{project.EditState.CurrentTrack, run.First, run.Count};
    Closings found{ReplaceRun(session.Closings, session.Catalogue, project.Design, project.Stock, place, wide, {})};
    if (wish != ReplacementWish::Any) KeepWished(session, CodesOfRun(session, run), wish, found.Suggestions);
    if (options.OwnedOnly) std::erase_if(found.Suggestions, [](const Suggestion& one) { return !one.IsOwned; });
    const auto most = static_cast<std::size_t>(options.Limit);
    if (found.Suggestions.size() > most) found.Suggestions.resize(most);
    if (found.Suggestions.empty())
        found.WhyNone = wish == ReplacementWish::Any ? "No other pieces lead to the same place."
                                                     : "No such pieces lead to the same place.";
    return found;
}

ElementRun SelectedRun(const Session& session) {
    const EditState& edit = session.Project.EditState;
    return edit.ShowsAllTracks() ? ElementRun() : edit.SelectedRun(CurrentTrack(session).ElementLastIndex());
}

void LaySuggestion(Session& session, int number) {
    const Project& project = session.Project;
    if (project.EditState.ShowsAllTracks())
        throw Fault("Refused", "all tracks are chosen, and one at a time can be closed");
    ClosingOptions options;
    options.Limit = std::max(options.Limit, number);
    const Closings closings = CloseTrack(session.Closings, session.Catalogue, project.Design, project.Stock,
                                         project.EditState.CurrentTrack, options, {});
    const auto found = static_cast<int>(closings.Suggestions.size());
    if (found == 0) throw Fault("Refused", closings.WhyNone);
    if (number > found) throw Fault("Refused", "there are only " + std::to_string(found) + " suggestions");
    LaySuggestion(session, closings.Suggestions[static_cast<std::size_t>(number - 1)]);
}

void LaySuggestion(Session& session, const Suggestion& suggestion) {
    session.Work([&] {
        EditState& edit = session.Project.EditState;
        Track& track = *EditedTrack(session.Project.Design.Circuit, edit);
        session.NameStep(suggestion.IsMend             ? "Mend the Track"
                         : suggestion.Edit.Remove == 0 ? "Close the Loop"
                                                       : "Replace a Run");
        Apply(suggestion.Edit, track);
        edit.Select(std::min(std::max(0, suggestion.Edit.At + suggestion.Count() - 1), track.ElementLastIndex()));
        edit.DataChanged = true;
    });
}

std::string CaptionOf(const Session& session, const Suggestion& suggestion) {
    const int unpriced = UnpricedOf(session, suggestion.Edit.Insert);
    const std::string known = PriceText(session, CentsOf(double{suggestion.Price}), 0);
    const std::string price = unpriced == 0                    ? known
                              : unpriced == suggestion.Count() ? "price unknown"
                                                               : "from " + known;
    const int takenOut = suggestion.IsMend ? suggestion.Edit.Remove : 0;
    const std::string instead = takenOut > 0 ? " for " + std::to_string(takenOut) : "";
    return CountText(suggestion.Count(), "piece") + instead + "\n" + price + "\n" +
           (suggestion.IsOwned ? "all owned" : "not all owned");
}

std::string TextOf(const Session& session, const Suggestion& suggestion) {
    const std::vector<std::string> lacking = ToBuy(session, suggestion);
    std::string text = EditText(session, suggestion);
    text += " " + PriceText(session, CentsOf(double{suggestion.Price}), UnpricedOf(session, suggestion.Edit.Insert));
    text += lacking.empty() ? ", all owned." : "; to buy: " + Listed(lacking) + ".";
    text += JointText(session, suggestion);
    text += OverlapText(session, suggestion);
    if (suggestion.IsOutside) text += " Leaves the room.";
    return text;
}

GhostPlace PlaceOf(const Session& session, const Suggestion& suggestion) {
    constexpr double tolerance = 0.1; // cm
    const TrackEdit& edit = suggestion.Edit;
    const Track& track = CurrentTrack(session);
    GhostPlace place{.Start = track.Start(), .CodeBefore = {}, .TakenOut = {}, .Moved = {}};
    WalkTrack(session.Catalogue, track, [&](int element, const PiecePlacement* placement, const BuildCursor&) {
        if (placement == nullptr) return;
        if (element < edit.At) place.Start = placement->Exit;
        if (element >= edit.At && element < edit.At + edit.Remove)
            place.TakenOut.push_back(OutlinePolygon(*placement, tolerance));
    });
    if (edit.At > 0) place.CodeBefore = track.ElementCodes[static_cast<std::size_t>(edit.At - 1)];
    if (suggestion.IsMend) {
        Track mended = track;
        Apply(edit, mended);
        place.Moved.assign(mended.ElementCodes.begin() + edit.At, mended.ElementCodes.end());
    }
    return place;
}

} // namespace pistaro
