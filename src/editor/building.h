// Building a track piece by piece: adding, inserting, replacing, and what remains of the owned pieces.
#pragma once

#include "model/design.h"
#include "model/edit_state.h"
#include "model/stock.h"

#include <string>
#include <string_view>

namespace pistaro {

/// Fault when a track has no room for so many pieces more.
void RequireRoom(const Track& track, int pieces);

/// Puts a piece at the end of the current track (Build) or before its selected element (Insert, which keeps the
/// selection on the element it was on). Fault when the track is full; nothing changes then.
void AddElement(Design& design, EditState& edit, const std::string& code);

/// What a piece button does: adds its piece, so many times; a conversion piece laid after Ninco track leads back to
/// Scalextric. Fault when the track has no room for all of them; nothing changes then.
void AddPiece(const Catalogue& catalogue, Design& design, EditState& edit, const std::string& code, int times = 1);

/// Puts a piece before the selected element, so many times, as AddPiece does in Insert mode; the mode stays.
void InsertBeforeSelected(const Catalogue& catalogue, Design& design, EditState& edit, const std::string& code,
                          int times);

/// What remains of the owned pieces of a button's shape: the number it shows while it is held, never below 0.
int RemainingPieces(const Catalogue& catalogue, const Circuit& circuit, const Stock& stock, std::string_view code);

/// The same without the limit: what all buttons show at once.
int OwnedLessUsedPieces(const Catalogue& catalogue, const Circuit& circuit, const Stock& stock, std::string_view code);

/// A piece button's caption: its code without the hand and without a leading "N".
std::string PieceCaption(std::string_view code);

/// Offers the other system's pieces.
void SwitchTrackSystem(EditState& edit);

/// Whether the selected element can be replaced by this product: both have the same basic shape.
bool IsVariantOfSelected(const Catalogue& catalogue, const Circuit& circuit, const EditState& edit,
                         std::string_view variant);

/// Replaces the selected element by a product, which keeps its hand.
void ReplaceSelected(const Catalogue& catalogue, Design& design, EditState& edit, std::string_view variant);

/// Whether a special piece takes the selected element's place: that is another piece of the same shape and hand.
bool FitsSelected(const Catalogue& catalogue, const Circuit& circuit, const EditState& edit, std::string_view special);

/// What a special piece's entry in the palette does: replaces the selected element where it fits, else adds the piece.
/// More than one are added.
void LaySpecial(const Catalogue& catalogue, Design& design, EditState& edit, const std::string& special, int times = 1);

/// Offers the pieces of the system that the whole circuit is made of; leaves the choice where it is made of both.
void OfferOnlySystem(const Catalogue& catalogue, const Circuit& circuit, EditState& edit);

} // namespace pistaro
