#include "ui/room_fields.h"

#include "editor/view_commands.h"
#include "ui/named_controls.h"

#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace pistaro {

namespace {

constexpr int AroundDesign = 30; ///< cm, on each side

QSpinBox* NewLengthBox(const char* name, const char* spoken, int value) {
    constexpr int shortest = 50, longest = 5000; // cm
    auto* const box = Named(new QSpinBox, name);
    box->setAccessibleName(spoken);
    box->setRange(shortest, longest);
    box->setSingleStep(10);
    box->setValue(value);
    return box;
}

} // namespace

RoomFields::RoomFields(Session& session, bool varied)
    : session_(session), optRoomDesign_(Named(new QRadioButton("The &design's"), "optRoomDesign")),
      optRoomArea_(Named(new QRadioButton, "optRoomArea")), spnWidth_(NewLengthBox("spnRoomWidth", "Width", 400)),
      spnDepth_(NewLengthBox("spnRoomDepth", "Depth", 300)), spnFromWalls_(Named(new QSpinBox, "spnFromWalls")),
      lblOthers_(Named(new QLabel("Other tracks stand in the room. Their ground is kept free, so circuits are smaller: "
                                  "for larger ones move or delete those tracks, or take a larger room."),
                       "lblOthers")),
      areaSource_("a usual one, type yours") {
    setObjectName("grpRoom");
    optRoomArea_->setAccessibleName("Width and depth");
    auto* const column = new QVBoxLayout(this);
    const QMargins margins = column->contentsMargins();
    column->setContentsMargins(margins.left(), margins.top() / 2, margins.right(), margins.bottom() / 2);
    column->addWidget(optRoomDesign_);
    column->addLayout(AreaFields());
    column->addLayout(WallFields());
    lblOthers_->setWordWrap(true);
    lblOthers_->hide();
    column->addWidget(lblOthers_);
    BeginWithLastArea();
    const auto extent = ExtentOf(session.Catalogue, session.Project.Design);
    if (varied && extent && !HasWalls(session.Project.Design.Room)) BeginAround(*extent);
    (HasWalls(session.Project.Design.Room) ? optRoomDesign_ : optRoomArea_)->setChecked(true);
    Offer();
    connect(optRoomArea_, &QRadioButton::toggled, this, [this] { Choose(); });
    for (QSpinBox* const length : {spnWidth_, spnDepth_}) {
        connect(length, &QSpinBox::valueChanged, this, [this] {
            areaSource_ = "as typed here";
            optRoomArea_->setChecked(true);
            Choose();
        });
    }
}

QLayout* RoomFields::AreaFields() {
    auto* const area = new QHBoxLayout;
    area->addWidget(optRoomArea_);
    area->addWidget(spnWidth_, 1);
    area->addWidget(new QLabel("×"));
    area->addWidget(spnDepth_, 1);
    area->addWidget(new QLabel("cm"));
    return area;
}

QLayout* RoomFields::WallFields() {
    constexpr int most = 100; // cm
    auto* const caption = new QLabel("Keep fro&m walls:");
    caption->setBuddy(spnFromWalls_);
    spnFromWalls_->setRange(0, most);
    spnFromWalls_->setSingleStep(5);
    spnFromWalls_->setToolTip(
        "Leave that much room between the track and every wall and pillar, for hands and for cars "
        "that slide out");
    connect(spnFromWalls_, &QSpinBox::valueChanged, this, [this] { Changed(); });
    auto* const row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(spnFromWalls_);
    row->addWidget(new QLabel("cm"));
    row->addStretch();
    return row;
}

void RoomFields::BeginWithLastArea() {
    const QString last = Shown(session_.Habits.BoxRoom);
    const std::array<int, 2> sides{last.section('x', 0, 0).toInt(), last.section('x', 1, 1).toInt()};
    if (std::ranges::min(sides) <= 0) return;
    spnWidth_->setValue(sides[0]);
    spnDepth_->setValue(sides[1]);
    areaSource_ = "as in your last search";
}

void RoomFields::BeginAround(const GroundBox& extent) {
    spnWidth_->setValue(static_cast<int>(std::ceil(extent.Right - extent.Left + 2 * AroundDesign)));
    spnDepth_->setValue(static_cast<int>(std::ceil(extent.Top - extent.Bottom + 2 * AroundDesign)));
    middleX_ = static_cast<int>(std::lround((extent.Left + extent.Right) / 2));
    middleY_ = static_cast<int>(std::lround((extent.Bottom + extent.Top) / 2));
    areaSource_ = QString("%1 cm around your design").arg(AroundDesign);
}

void RoomFields::Offer() {
    const bool isThere = HasWalls(session_.Project.Design.Room);
    optRoomDesign_->setEnabled(isThere);
    const QString size = Shown(RoomSizeText(session_.Project.Design.Room));
    optRoomDesign_->setText(isThere ? "The &design's, " + size : "The &design's");
    optRoomDesign_->setToolTip(isThere ? "The walls of the design that is open"
                                       : "The design has no room with walls: Settings ▸ Draw Area… draws them");
    if (!isThere) optRoomArea_->setChecked(true);
    TellSource();
}

void RoomFields::Choose() {
    TellSource();
    Changed();
}

void RoomFields::TellSource() {
    const bool isArea = optRoomArea_->isChecked();
    const QString ofDesign = !isArea && IsRoomOfSettings(session_) ? "from your settings" : "drawn in your design";
    setTitle("Room: " + (isArea ? areaSource_ : ofDesign));
}

void RoomFields::PutInto(BoxWish& wish) const {
    if (optRoomArea_->isChecked()) wish.Area = Area{spnWidth_->value(), spnDepth_->value()};
    wish.FromWalls = spnFromWalls_->value();
    wish.MiddleX = middleX_;
    wish.MiddleY = middleY_;
}

void RoomFields::RememberArea() const {
    session_.Habits.BoxRoom = std::to_string(spnWidth_->value()) + "x" + std::to_string(spnDepth_->value());
}

} // namespace pistaro
