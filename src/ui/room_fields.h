// Where circuits are laid: the room of the design, or so many centimetres by so many, and whence that is known.
#pragma once

#include "commands/laying_commands.h"

#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

#include <functional>

namespace pistaro {

class RoomFields : public QGroupBox {
public:
    /// Begins with the design's room, where there is one; else with a rectangle: one around the design where that is
    /// `varied`, or that of the last search.
    RoomFields(Session& session, bool varied);

    std::function<void()> Changed = [] {};

    /// To be called when the design's room is another.
    void Offer();

    /// Tells that other tracks stand in the room, or that they no longer do.
    void TellOthers(bool areThere) { lblOthers_->setVisible(areThere); }

    void PutInto(BoxWish& wish) const;

    /// Keeps the rectangle, which the next one begins with.
    void RememberArea() const;

private:
    QLayout* AreaFields();
    QLayout* WallFields();
    void BeginWithLastArea();
    void BeginAround(const GroundBox& extent);
    void Choose();
    void TellSource();

    Session& session_;
    QRadioButton *const optRoomDesign_, *const optRoomArea_;
    QSpinBox *const spnWidth_, *const spnDepth_, *const spnFromWalls_;
    QLabel* const lblOthers_;
    QString areaSource_;            ///< until another rectangle is typed
    int middleX_ = 0, middleY_ = 0; ///< of the rectangle, cm
};

} // namespace pistaro
