// Building a track piece by piece: adding, inserting, replacing, and what remains of the owned pieces.
#pragma once

#include "model/project.h"

#include <array>
#include <string>
#include <string_view>

namespace pistaro {

/// Puts a piece at the end of the current track (Build) or before its selected element (Insert, which keeps the
/// selection on the element it was on). Fault when the track is full; nothing changes then.
void AddElement(Project& project, const std::string& code);

/// What a piece button does: adds its piece; a conversion piece laid after Ninco track leads back to Scalextric.
void AddPiece(Project& project, const std::string& code);

/// What remains of the owned pieces of a button's shape: the number it shows while it is held, never below 0.
int RemainingPieces(const Project& project, std::string_view code);

/// The same without the limit: what all buttons show at once.
int OwnedLessUsedPieces(const Project& project, std::string_view code);

/// A piece button's caption: its code without the hand and without a leading "N".
std::string PieceCaption(std::string_view code);

/// Offers the other system's pieces.
void SwitchTrackSystem(Project& project);

/// The pieces by which the selected element can be replaced, without their hands.
inline constexpr std::array<std::string_view, 14> Variants{"C151",  "C8010", "C159",   "C160",  "C164",
                                                           "C248",  "C277",  "C367",   "C8005", "C8006",
                                                           "C8007", "C8009", "N10102", "N10111"};

/// Whether the selected element can be replaced by this variant: both borrow the same basic shape.
bool IsVariantOfSelected(const Project& project, std::string_view variant);

/// Replaces the selected element by a variant, which keeps its hand.
void ReplaceSelected(Project& project, std::string_view variant);

} // namespace pistaro
