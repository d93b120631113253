// The two ends that a closing joins: where pieces are to be laid from, and where they are to lead to.
#pragma once

#include "catalogue/catalogue.h"
#include "layout/placement.h"
#include "model/circuit.h"
#include "search/piece_shapes.h"

#include <optional>
#include <vector>

namespace pistaro {

struct OpenEnds {
    BuildCursor End, Goal;
    std::uint8_t EndSystem = 0, GoalSystem = 0; ///< of the track on either side
    bool AfterAdapter = false;  ///< no adapter may come first: it would lie the wrong way round, or two in a row
    bool BeforeAdapter = false; ///< nor last
};

/// A track's pieces as a walk along it finds them, for asking many times what taking some of them out leaves open.
class TrackEnds {
public:
    /// The track must outlive it.
    TrackEnds(const Catalogue& catalogue, const Track& track);

    /// The ends that are open once `remove` elements from `at` on are taken out, and what lies behind them is moved to
    /// where the track closes. Without elements taken out at the track's end they are the track's own end and start.
    /// Nothing where no piece is left that new ones could join.
    std::optional<OpenEnds> ToClose(int at, int remove) const;

    /// The same where what lies behind them stays where it is.
    std::optional<OpenEnds> InPlace(int at, int remove) const;

private:
    /// What the walk knows before an element.
    struct Station {
        Pose Cursor;
        std::uint8_t System = 0;
        bool IsAfterAdapter = false;
        bool IsAfterNincoCode = false; ///< as the next adapter sees it
    };

    static std::uint8_t EntrySystemOf(const CatalogueEntry& piece, const Station& before);
    static Station After(const Station& before, const CatalogueEntry& piece);

    std::vector<const CatalogueEntry*> pieces_; ///< null for unknown codes
    std::vector<Station> stations_;             ///< one more than elements
};

/// The goal as the lattice that begins at the end sees it; nothing where its heading is not on the lattice.
struct LatticeGoal {
    double X = 0, Y = 0;
    std::uint8_t Heading = 0;
};
std::optional<LatticeGoal> GoalOnLattice(const OpenEnds& ends);

} // namespace pistaro
