// What circuits are laid from and where: the box of pieces, the room, what they must have, how many are wished for.
#pragma once

#include "commands/laying_commands.h"
#include "ui/piece_counts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>

#include <array>
#include <functional>

namespace pistaro {

enum class BoxPurpose {
    Box,        ///< begins with the pieces that are owned
    Variations, ///< begins with the pieces of the design, of which the selected ones can be kept
};

class BoxFields : public QWidget {
public:
    /// `countChanged` is called when another number of circuits is wished for.
    BoxFields(Session& session, BoxPurpose purpose, std::function<void()> countChanged);

    BoxWish Wish() const;

    /// How many circuits are wished for.
    int Count() const { return spnCount_->value(); }

private:
    QLayout* PieceFields();
    QWidget* RoomFields();
    QWidget* MustHaveFields();
    QLayout* NumberFields();
    void AddSet();
    void OfferRoom();
    void OfferPart();

    Session& session_;
    const BoxPurpose purpose_;
    const std::function<void()> countChanged_;
    PieceCounts* lstBox_ = nullptr;
    QComboBox* cboSets_ = nullptr;
    BoxedSets sets_;
    QRadioButton *optRoomDesign_ = nullptr, *optRoomArea_ = nullptr;
    QSpinBox *spnWidth_ = nullptr, *spnDepth_ = nullptr, *spnCount_ = nullptr;
    QLineEdit* txtSeed_ = nullptr;
    std::array<QCheckBox*, 4> mustHaves_{};
    QCheckBox* chkKeepPart_ = nullptr;
    std::optional<KeptPart> part_;  ///< of the design, as it was selected
    int middleX_ = 0, middleY_ = 0; ///< of an area as the room, cm
};

} // namespace pistaro
