// The pieces that a search lays, one for each shape, and the exact lattice on which they lead from pose to pose.
//
// Every turn is a multiple of 11.25 degrees, so that each position is a whole combination of the 32nd roots of unity,
// and a linear hash of its 16 coefficients is an exact name for it: the names of steps add up to those of chains.
#pragma once

#include "catalogue/catalogue.h"

#include <array>
#include <cstdint>
#include <vector>

namespace pistaro {

inline constexpr int LatticeHeadings = 32; ///< 11.25 degrees each
inline constexpr int MostShapes = 32;      ///< a mask of shapes has 32 bits
using ShapeMask = std::uint32_t;

/// A pose relative to where the search began, whose heading is 0 there. Cm, along the lattice's headings.
struct LatticePose {
    double X = 0, Y = 0;
    std::uint64_t Key = 0; ///< the position's exact name
    std::uint8_t Heading = 0;
    std::uint8_t System = 0; ///< of the track that goes on there: 0 Scalextric, 1 Ninco
};

/// Where a shape leads to.
struct LatticeStep {
    std::array<double, LatticeHeadings> X{}, Y{}; ///< by the heading that it is entered with
    std::array<std::uint64_t, LatticeHeadings> Key{};
    int Turn = 0; ///< headings to the left, 0..31
};

struct LaidShape {
    std::vector<int> Rows;                 ///< the catalogue's pieces of this shape, the plain one first
    const CatalogueEntry* Piece = nullptr; ///< the plain one
    PieceKind Kind;
    std::uint8_t EntrySystem = 0, ExitSystem = 0;
    bool IsAdapter = false;
    int Line = 0; ///< shapes of one line can change places with their neighbours: straights, or curves of one circle
    LatticeStep Step;
};

class PieceShapes {
public:
    /// The shapes of all pieces but chicanes and their extensions, change-overs, and pieces that leave the lattice. An
    /// adapter has two shapes, one for each way. The catalogue must outlive them.
    explicit PieceShapes(const Catalogue& catalogue);

    int Count() const { return static_cast<int>(shapes_.size()); }
    const LaidShape& operator[](int shape) const { return shapes_[static_cast<std::size_t>(shape)]; }

    /// The pose after a shape, which must be of the pose's system.
    LatticePose After(const LatticePose& pose, int shape) const;

    /// The pose from which a shape leads to this one.
    LatticePose Before(const LatticePose& pose, int shape) const;

    /// Whether one shape may follow another: on track of its own system, no adapter on an adapter.
    bool MayFollow(int shape, int next) const;

    /// Whether two neighbours stand in the order in which they are looked at: those that can change places without any
    /// other effect are looked at in one order only.
    bool AreInOrder(int shape, int next) const { return (*this)[shape].Line != (*this)[next].Line || shape <= next; }

private:
    void Add(const CatalogueEntry& piece, int row, std::uint8_t entrySystem, std::uint8_t exitSystem);

    std::vector<LaidShape> shapes_;
    std::vector<PieceKind> lines_; ///< the first kind of each line
};

/// 0 for Scalextric, 1 for Ninco.
inline std::uint8_t SystemNumber(TrackSystem system) { return system == TrackSystem::Ninco ? 1 : 0; }

} // namespace pistaro
