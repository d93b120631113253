// Numbers on plain grounds of their own, placed so that each can be read: on its piece where that is large enough, else
// beside it, and never where paper is cut.
#pragma once

#include "paper/circuit_drawing.h"

#include <string>
#include <vector>

namespace pistaro {

inline constexpr double BadgeHeight = 0.5; ///< cm of paper

/// A number on a plain ground.
struct NumberBadge {
    std::string Text;
    WorldPoint Place; ///< its middle
    WorldPoint Foot;  ///< what it tells of: a line leads there, unless it stands on it
    double Width = 0; ///< cm of paper, as the height
    double Height = BadgeHeight;

    bool StandsAside() const { return Place != Foot; }
    /// What it hides of a drawing at 1:`scale`, cm of the world.
    Box Ground(double scale) const { return BoxAround(Place.X, Place.Y, Width * scale, Height * scale); }
};

/// Finds places for numbers in a part of the world, one after the other.
class BadgePlaces {
public:
    BadgePlaces(const Box& part, double scale, double height = BadgeHeight)
        : part_(part), scale_(scale), height_(height) {}

    /// No number is to stand there.
    void Reserve(const Box& box) { taken_.push_back(box); }

    /// On the piece where it is large enough and no other number stands there, else beside it.
    void Add(const std::string& text, const PiecePlacement& placement);
    /// The same, but pushed inwards where the part's edge would cut it.
    void AddWithin(const std::string& text, const PiecePlacement& placement);

    std::vector<NumberBadge> Badges;

private:
    void Add(const std::string& text, const PiecePlacement& placement, bool within);
    bool IsFree(const NumberBadge& badge) const;
    void MoveAside(NumberBadge& badge, const Corners& corners, bool within) const;
    void PushIn(NumberBadge& badge) const;

    Box part_;
    double scale_, height_;
    std::vector<Box> taken_;
};

/// How high numbers are that are drawn at 1:`scale`, cm of paper: to be read by who stands before the track, where
/// there is such room in an area of paper.
double BadgeHeightAt(double scale, const Box& area);

/// The pieces' numbers by the parts of the world into which paper is cut: each is whole in one of them.
std::vector<std::vector<NumberBadge>> NumbersIn(const CircuitDrawing& drawing, const std::vector<Box>& parts,
                                                double scale, double height);

} // namespace pistaro
