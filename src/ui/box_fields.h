// What circuits are laid from and where: the box of pieces, the room, what they must have, how many are wished for.
#pragma once

#include "commands/laying_commands.h"
#include "ui/must_have_fields.h"
#include "ui/piece_counts.h"
#include "ui/product_finder.h"
#include "ui/room_fields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

#include <functional>

namespace pistaro {

class BoxFields : public QWidget {
public:
    /// Begins with the pieces that are owned, or with those of the design's track that is `varied`. `wishChanged` is
    /// called when circuits of other pieces, in another room, or with other things are wished for, `countChanged` when
    /// more or fewer of them are to be shown.
    BoxFields(Session& session, std::optional<int> varied, std::function<void()> wishChanged,
              std::function<void()> countChanged);

    /// To be called when other elements of the varied design are selected.
    void OfferPart() { mustHaves_->OfferPart(); }

    /// To be called when other pieces are owned, or the room is another: a box of all that is owned stays so.
    void Refresh();

    /// Tells that other tracks stand in the room, or that they no longer do.
    void TellOthers(bool areThere) { room_->TellOthers(areThere); }

    BoxWish Wish() const;

    /// Keeps the pieces and the rectangle, which the next one begins with.
    void Remember(const BoxWish& wish) const;

    /// How many circuits are wished for.
    int Count() const { return spnCount_->value(); }

    /// Whether of several that look alike the best one alone is shown.
    bool OneOfEachShape() const { return chkShapes_->isChecked(); }

private:
    QLayout* PieceFields();
    QLayout* SourceFields();
    QLayout* FilterFields();
    QLayout* TotalFields();
    PieceBox LastBox() const;
    void FillBox(const PieceBox& box);
    void Filter();
    QLayout* NumberFields();
    QLayout* SeedField(QToolButton& more);
    void AddSet();
    void OfferOwned();
    void OfferToOwn();
    void TellChanges();
    void ShowTotal();

    Session& session_;
    const std::optional<int> varied_; ///< track
    const std::function<void()> wishChanged_, countChanged_;
    PieceBox owned_; ///< as it was last looked at
    PieceCounts* lstBox_ = nullptr;
    ProductFinder* txtFilterBox_ = nullptr;
    QCheckBox* chkAllProducts_ = nullptr;
    QPushButton *cmdAllOwned_ = nullptr, *cmdOwnBox_ = nullptr;
    QLabel* lblTotal_ = nullptr;
    QComboBox* cboSets_ = nullptr;
    BoxedSets sets_;
    QLabel* lblSystems_ = nullptr;
    RoomFields* const room_;
    MustHaveFields* const mustHaves_;
    QSpinBox* spnCount_ = nullptr;
    QCheckBox* chkShapes_ = nullptr;
    QLineEdit* txtSeed_ = nullptr;
};

} // namespace pistaro
