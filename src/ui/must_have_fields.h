// What circuits must have. What the box cannot give is not offered, and counts again when the box has it.
#pragma once

#include "commands/laying_commands.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

#include <array>
#include <functional>
#include <optional>

namespace pistaro {

class MustHaveFields : public QGroupBox {
public:
    /// `varied`: whether the selected part of the design can be kept.
    MustHaveFields(Session& session, bool varied);

    std::function<void()> Changed = [] {};

    /// Wishes for these, where the box gives them.
    void BeginWith(const MustHaves& mustHave);

    /// To be called when the box holds other pieces.
    void Offer(const PieceBox& box);

    /// Offers to keep the elements that are selected now. To be called when others are, in the same design.
    void OfferPart();

    void PutInto(BoxWish& wish) const;

private:
    QCheckBox* PartField();

    Session& session_;
    std::array<QCheckBox*, 4> choices_{};
    std::array<QLabel*, 4> lacking_{}; ///< beside those that the box cannot give
    std::array<bool, 4> isWanted_{};   ///< by the user, whatever the box gives
    QCheckBox* chkKeepPart_ = nullptr;
    std::optional<TrackPart> part_; ///< of the design that is selected
};

} // namespace pistaro
