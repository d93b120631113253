// The pictures of a build plan, whatever draws them: which part of the world they show, and where numbers and marks
// stand on it so that they can be read.
#pragma once

#include "paper/number_badges.h"
#include "render/track_bed.h"
#include "report/build_plan.h"

#include <vector>

namespace pistaro {

/// A place for a picture, cm of paper.
struct PictureArea {
    double Width = 0, Height = 0;
};

/// How a track bed is drawn.
struct BedLook {
    Colour Fill, Edge;
    double EdgeWidth; ///< cm of paper, as the widths below
};
inline constexpr BedLook LaidBefore{Rgb(0xEE, 0xEE, 0xEE), Rgb(0xAA, 0xAA, 0xAA), 0.02};
inline constexpr BedLook LaidNow{Rgb(0xFF, 0xD3, 0x4D), Rgb(0, 0, 0), 0.045};
inline constexpr Colour FrameColour = Rgb(0xBB, 0xBB, 0xBB); ///< around each picture
inline constexpr Colour WayColour = FrameColour;             ///< of the tracks in an overview
inline constexpr double ThinnestWay = 0.06;
inline constexpr Colour ShownColour = Rgb(0x1F, 0x4E, 0xA8); ///< of the frame around what a step's picture shows
inline constexpr double ShownWidth = 0.04;

inline constexpr double PlanBadgeHeight = 0.42; ///< of its numbers: they hide little of the track
inline constexpr double BarInset = 0.25;        ///< of a scale bar from a picture's edges

/// A length of the world, in a corner of a picture, if there is one without track.
struct ScaleBar {
    double Length = 0;                     ///< cm of paper; none where it is 0
    std::string Text;                      ///< "50 cm"
    double Left = BarInset, Up = BarInset; ///< where it begins, cm of paper from the lower left corner

    /// What it takes with its words, cm of paper from the lower left corner.
    Box Ground() const;
};
inline constexpr double BarTick = 0.12;    ///< up from its ends
inline constexpr double BarTextGap = 0.12; ///< between it and its words

struct PlanPicture {
    Box Part;         ///< of the world, of the area's proportions
    double Scale = 1; ///< cm of the world to a cm of paper
    std::vector<NumberBadge> Badges;
    ScaleBar Bar;
    std::vector<FilledArea> Marks; ///< the chequered start lines and arrows the way the cars go
};

/// A scale for each step's picture in such areas: one for all, so that pieces are as large in each; but where a step
/// would be less than a third as large as it fits, it and others like it have one of their own.
std::vector<double> StepScales(const BuildPlan& plan, PictureArea area);

/// The new pieces of a step, each with its number, and what lies around them; an arrow leads to the first of them. At
/// that scale, or the one at which they fit where that shows more.
PlanPicture PictureOf(const BuildPlan& plan, const BuildStep& step, PictureArea area, double scale = 0);

/// All tracks of a plan that has steps; where there are several, its numbers are theirs, from 1, and a line across the
/// track parts each from the one before.
PlanPicture WholePicture(const BuildPlan& plan, PictureArea area);

/// All tracks, to be shown small beside a step's picture: with an arrow at the start of the step's track.
PlanPicture Overview(const BuildPlan& plan, const BuildStep& step, PictureArea area);

/// What of a part of the world an overview shows, with room for a line around it.
Box PartIn(const PlanPicture& overview, const Box& part);

/// The middle of neighbouring pieces of one track, as chords.
std::vector<WorldPoint> MiddleLine(const BuildPlan& plan, const BuildStep& pieces);

/// Each track from its first piece to its last.
std::vector<BuildStep> WholeTracks(const BuildPlan& plan);

} // namespace pistaro
