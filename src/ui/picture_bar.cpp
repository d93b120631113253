#include "ui/picture_bar.h"

#include "commands/background_commands.h"
#include "imaging/scaled_backdrop.h"
#include "platform/fault.h"
#include "text/number_text.h"
#include "ui/named_controls.h"
#include "ui/opacity_field.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <cmath>
#include <numbers>

namespace pistaro {

namespace {

constexpr int Margin = 6;
constexpr double GripPixels = 12; ///< around the handle
constexpr double DragStep = 10;   ///< cm, of a drag in steps
constexpr double TurnStep = std::numbers::pi / 16;
constexpr Colour FrameInk = Rgb(255, 140, 0);

/// A place of the picture, so many of its halves to the right and up from its middle, in the world.
WorldPoint PartAt(const ScaledBackground& background, const RoomPolygon& room, QSize pixels, double right, double up) {
    const WorldPoint middle = MiddleOf(background, room);
    const double angle = double{room.Angle} + background.Angle;
    const double x = right * pixels.width() / 2 * background.CmPerPixel;
    const double y = up * pixels.height() / 2 * background.CmPerPixel;
    return {static_cast<float>(middle.X + x * std::cos(angle) + y * std::sin(angle)),
            static_cast<float>(middle.Y - x * std::sin(angle) + y * std::cos(angle))};
}

/// The same picture so far away in the world, whole millimetres of the room.
ScaledBackground Moved(ScaledBackground background, const RoomPolygon& room, double right, double up) {
    const double cosine = std::cos(double{room.Angle});
    const double sine = std::sin(double{room.Angle});
    const auto rounded = [](double length) { return std::round(length * 10) / 10; };
    background.X = rounded(background.X + right * cosine - up * sine);
    background.Y = rounded(background.Y + up * cosine + right * sine);
    return background;
}

double AngleOf(WorldPoint from, WorldPoint to) { return std::atan2(double{to.Y} - from.Y, double{to.X} - from.X); }

std::string Rounded(double value) { return NumberText(std::round(value * 10) / 10); }

} // namespace

PictureBar::PictureBar(Session& session, CircuitView& view)
    : Strip("fraPicture", session, view, "picture frame"), canvas_(view),
      lblPlace_(Named(new ElidedLabel, "lblPlaceOfPicture")),
      sldOpacity_(Named(new QSlider(Qt::Horizontal), "sldOpacity")) {
    auto* const hint =
        Named(new QLabel("Drag the picture to its place. Its round handle, or Ctrl, turns it; Shift does "
                         "so in steps. The arrow keys move it by 1 cm."),
              "lblPictureHint");
    hint->setWordWrap(true);
    QPushButton* const cmdDone = NewButton("cmdLeavePicture", "&Done");
    cmdDone->setToolTip("Leave the picture where it lies, as Esc does");
    connect(cmdDone, &QPushButton::clicked, this, [this] { Leave(); });
    auto* const head = new QHBoxLayout;
    head->addWidget(hint, 1);
    head->addWidget(cmdDone, 0, Qt::AlignTop);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->addLayout(head);
    column->addLayout(Fields());
}

QLayout* PictureBar::Fields() {
    constexpr int width = 140; // pixels
    ForOpacity(sldOpacity_)->setFixedWidth(width);
    auto* const caption = new QLabel("&Opacity:");
    caption->setBuddy(sldOpacity_);
    connect(sldOpacity_, &QSlider::valueChanged, this, [this](int percent) {
        ScaledBackground faded = *session_.Project.Background;
        faded.Opacity = OpacityOf(percent);
        Lay(faded, "Fade Background", "fade background");
    });
    QPushButton* const cmdSize = NewButton("cmdPictureSize", "Si&ze and Place…");
    cmdSize->setToolTip("Measure the picture anew, or type where it lies");
    connect(cmdSize, &QPushButton::clicked, this,
            [this] { session_.TryRun(*session_.Commands.Find("background place")); });
    auto* const row = new QHBoxLayout;
    row->addWidget(lblPlace_, 1);
    row->addWidget(caption);
    row->addWidget(sldOpacity_);
    row->addWidget(cmdSize);
    return row;
}

void PictureBar::Toggle() {
    if (!isHidden()) return Leave();
    if (!TakeSize()) throw InvalidPicture("the picture under the circuit cannot be shown, so it cannot be moved");
    Open();
    canvas_.setFocus();
}

bool PictureBar::TakeSize() {
    try {
        pixels_ = session_.Pictures.Of(session_.Project.Background->Picture, "background").Image().size();
    } catch (const Fault&) {
        return false;
    }
    return true;
}

void PictureBar::Refresh(const Changes& changes) {
    if (isHidden()) return;
    if (!session_.Project.Background || changes.OtherCircuit) return hide();
    if (changes.Background && !TakeSize()) return hide(); // it may be another picture
    if (changes.Background || changes.Room) ShowFrame();
}

void PictureBar::showEvent(QShowEvent*) {
    canvas_.installEventFilter(this); // before all others
    ShowFrame();
}

void PictureBar::hideEvent(QHideEvent* event) {
    canvas_.removeEventFilter(this);
    canvas_.unsetCursor();
    EndDrag();
    Strip::hideEvent(event);
    Gone();
}

const ScaledBackground& PictureBar::Now() const { return proposed_ ? *proposed_ : *session_.Project.Background; }

void PictureBar::ShowFrame() {
    const QSignalBlocker asItLies(sldOpacity_);
    sldOpacity_->setValue(PercentOf(Now().Opacity));
    const RoomPolygon& room = session_.Project.Design.Room;
    const auto corner = [&](double right, double up) { return PartAt(Now(), room, pixels_, right, up); };
    const WorldPoint corners[] = {corner(-1, -1), corner(1, -1), corner(1, 1), corner(-1, 1)};
    OverlayPath frame{.Path = {}, .InkColour = FrameInk, .Pixels = 2, .Dashed = true};
    for (std::size_t side = 0; side < std::size(corners); ++side)
        frame.Path.emplace_back(LineSegment{corners[side], corners[(side + 1) % std::size(corners)]});
    constexpr double radius = 8; // pixels
    ShowAbove({frame, OverlayHandle{.Place = HandlePlace(), .InkColour = FrameInk, .Pixels = radius}});
    lblPlace_->setText(Shown("Middle at " + Rounded(Now().X) + ", " + Rounded(Now().Y) + " cm, turned " +
                             Rounded(Now().Angle * 180 / std::numbers::pi) + "° clockwise"));
}

WorldPoint PictureBar::HandlePlace() const { return PartAt(Now(), session_.Project.Design.Room, pixels_, 0, 1); }

bool PictureBar::eventFilter(QObject*, QEvent* event) { return Handle(*event); }

/// What it does not take the drawing goes on doing: zoom and pan.
bool PictureBar::Handle(QEvent& event) {
    switch (static_cast<int>(event.type())) { // of the toolkit's many
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return Press(static_cast<QMouseEvent&>(event));
    case QEvent::MouseMove:
        return Move(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
        return Release();
    case QEvent::ToolTip:
    case QEvent::ContextMenu:
        return true; // they tell of pieces
    case QEvent::KeyPress:
        return OnKey(static_cast<QKeyEvent&>(event));
    default:
        return false;
    }
}

bool PictureBar::IsOnHandle(QPointF place) const {
    const QPointF way = place - canvas_.PlaceOf(HandlePlace());
    return std::hypot(way.x(), way.y()) <= GripPixels;
}

void PictureBar::ShowCursor(bool onHandle) { canvas_.setCursor(onHandle ? Qt::PointingHandCursor : Qt::SizeAllCursor); }

bool PictureBar::Press(const QMouseEvent& event) {
    const bool pans = canvas_.cursor().shape() == Qt::OpenHandCursor; // the space bar is held
    if (event.button() != Qt::LeftButton || pans || doing_ != Doing::Nothing) return event.button() == Qt::RightButton;
    const bool turns = IsOnHandle(event.position()) || (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    doing_ = turns ? Doing::Turning : Doing::Moving;
    before_ = *session_.Project.Background;
    grip_ = canvas_.WorldAt(event.position());
    return true;
}

bool PictureBar::Move(const QMouseEvent& event) {
    if (doing_ == Doing::Nothing) {
        if (event.buttons() == Qt::NoButton && canvas_.cursor().shape() != Qt::OpenHandCursor)
            ShowCursor(IsOnHandle(event.position()));
        return event.buttons() == Qt::NoButton;
    }
    const RoomPolygon& room = session_.Project.Design.Room;
    const WorldPoint now = canvas_.WorldAt(event.position());
    const bool inSteps = event.modifiers() & Qt::ShiftModifier;
    if (doing_ == Doing::Moving) {
        const auto way = [&](double length) { return inSteps ? std::round(length / DragStep) * DragStep : length; };
        Propose(Moved(before_, room, way(double{now.X} - grip_.X), way(double{now.Y} - grip_.Y)));
    } else {
        const WorldPoint middle = MiddleOf(before_, room);
        ScaledBackground turned = before_;
        const double angle = before_.Angle + AngleOf(middle, grip_) - AngleOf(middle, now);
        turned.Angle = std::remainder(inSteps ? std::round(angle / TurnStep) * TurnStep : angle, 2 * std::numbers::pi);
        Propose(turned);
    }
    return true;
}

bool PictureBar::Release() {
    if (doing_ == Doing::Nothing) return false;
    const char* const step = doing_ == Doing::Turning ? "Turn Background" : "Move Background";
    const std::shared_ptr<const ScaledBackground> dragged = proposed_;
    EndDrag();
    if (dragged) Lay(*dragged, step);
    return true;
}

void PictureBar::EndDrag() {
    doing_ = Doing::Nothing;
    proposed_.reset();
    canvas_.ProposeBackground(nullptr);
}

bool PictureBar::OnKey(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Escape && doing_ != Doing::Nothing) {
        EndDrag();
        ShowFrame();
        return true;
    }
    if (TakesKey(key.key())) return true;
    const double way = key.modifiers() & Qt::ShiftModifier ? DragStep : 1;
    if (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) return false;
    switch (key.key()) {
    case Qt::Key_Left:
        Nudge(-way, 0);
        return true;
    case Qt::Key_Right:
        Nudge(way, 0);
        return true;
    case Qt::Key_Up:
        Nudge(0, way);
        return true;
    case Qt::Key_Down:
        Nudge(0, -way);
        return true;
    default:
        return false;
    }
}

void PictureBar::Nudge(double right, double up) {
    if (doing_ != Doing::Nothing) return;
    Lay(Moved(*session_.Project.Background, session_.Project.Design.Room, right, up), "Move Background",
        "move background");
}

void PictureBar::Propose(const ScaledBackground& background) {
    proposed_ = std::make_shared<const ScaledBackground>(background);
    canvas_.ProposeBackground(proposed_);
    ShowFrame();
}

void PictureBar::Lay(const ScaledBackground& background, const char* step, const char* run) {
    session_.Do([&] {
        session_.NameStep(step, run);
        SetBackground(session_, std::make_shared<const ScaledBackground>(background));
    });
}

} // namespace pistaro
