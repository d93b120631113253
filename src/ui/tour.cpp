#include "ui/tour.h"

#include "commands/side_columns.h"
#include "ui/named_controls.h"

#include <QEvent>
#include <QPainter>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace pistaro {

namespace {

constexpr int Padding = 12;
constexpr int RingRoom = 4; ///< between the ring and its control
constexpr int TextWidth = 250;
constexpr int RoomForNext = 40; ///< pixels around it, in which the next piece may come to lie
const QColor Accent(242, 169, 59);

/// A frame around the control concerned, through which the mouse reaches it.
class TourRing : public QWidget {
public:
    explicit TourRing(QWidget& window) : QWidget(&window) {
        setObjectName("fraTourRing");
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Accent, 3));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 5, 5);
    }
};

bool IsRight(Qt::Corner corner) { return corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner; }
bool IsLow(Qt::Corner corner) { return corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner; }

QLabel* NewText(const char* name) {
    auto* const label = Named(new QLabel, name);
    label->setWordWrap(true);
    label->setFixedWidth(TextWidth);
    return label;
}

} // namespace

TourBubble::TourBubble(QWidget& window, const std::function<void()>& takenBack, const std::function<void()>& ended)
    : QWidget(&window), lblTourStep_(NewText("lblTourStep")), lblTour_(NewText("lblTour")),
      lblTourRemark_(NewText("lblTourRemark")), cmdTakeBack_(NewButton("cmdTakeBack", "Take Back")),
      cmdEndTour_(NewButton("cmdEndTour", "End Tour")) {
    setObjectName("fraTour");
    setAccessibleName("Tour");
    QFont bold = font();
    bold.setBold(true);
    lblTourStep_->setFont(bold);
    QFont italic = font();
    italic.setItalic(true);
    lblTourRemark_->setFont(italic);
    auto* const column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetNoConstraint);
    for (QLabel* const label : {lblTourStep_, lblTourRemark_, lblTour_})
        column->addWidget(label);
    column->addLayout(ButtonRow({cmdTakeBack_, cmdEndTour_}));
    cmdTakeBack_->hide();
    connect(cmdTakeBack_, &QPushButton::clicked, this, takenBack);
    connect(cmdEndTour_, &QPushButton::clicked, this, ended);
}

void TourBubble::Tell(const QString& heading, const QString& text, const QString& remark, bool last) {
    lblTourStep_->setText(heading);
    lblTour_->setText(text);
    lblTourRemark_->setText(remark);
    lblTourRemark_->setVisible(!remark.isEmpty());
    cmdEndTour_->setText(last ? "Finish" : "End Tour");
    setAccessibleDescription(QStringList{heading, remark, text}.join(" "));
}

void TourBubble::FitWords() {
    layout()->activate();
    const int width = layout()->sizeHint().width();
    resize(width, layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : layout()->sizeHint().height());
}

QRect TourBubble::PlaceIn(const QRect& place, Qt::Corner corner) const {
    QRect stand(QPoint(), size());
    const QRect inside = place.adjusted(Padding, Padding, -Padding, -Padding);
    IsRight(corner) ? stand.moveRight(inside.right()) : stand.moveLeft(inside.left());
    IsLow(corner) ? stand.moveBottom(inside.bottom()) : stand.moveTop(inside.top());
    return stand;
}

void TourBubble::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Accent, 2));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
}

Tour::Tour(Session& session, QWidget& window, CircuitView& drawing)
    : QObject(&window), session_(session), window_(window), drawing_(drawing) {}

void Tour::Begin() {
    End();
    const Command& undo = *session_.Commands.Find("undo");
    bubble_ = new TourBubble(
        window_, [this, &undo] { session_.TryRun(undo); }, [this] { End(); });
    ring_ = new TourRing(window_);
    drawing_.installEventFilter(this);
    drawing_.Invite(false);
    drawing_.setFocus();                                // digits typed go to no line and no list
    QTimer::singleShot(0, this, [this] { Refresh(); }); // when the columns have been laid out
}

void Tour::End() {
    drawing_.removeEventFilter(this);
    drawing_.Invite(true);
    Watch(nullptr);
    for (QWidget* const part : {static_cast<QWidget*>(bubble_.data()), ring_.data()}) {
        if (part == nullptr) continue;
        part->hide();
        part->deleteLater();
    }
    bubble_.clear();
    ring_.clear();
}

QWidget* Tour::ControlOf(const TourStop& stop) const {
    for (QWidget* const control : window_.findChildren<QWidget*>(Shown(stop.Control)))
        if (TagOf(*control) == stop.Tag) return control;
    return nullptr;
}

void Tour::Refresh() {
    if (!bubble_) return;
    const TourStop stop = TourStopOf(session_.Project, session_.Times);
    const bool last = stop.Step > TourSteps;
    QString remark = Shown(stop.Remark);
    control_ = ControlOf(stop);
    Watch(control_);
    const bool canUndo = session_.Commands.Find("undo")->WhyNot(session_).empty();
    bubble_->OfferToTakeBack(stop.IsAstray && canUndo);
    if (stop.IsAstray) {
        control_ = &drawing_; // no control goes on from here
    } else if (control_ != nullptr && !control_->isVisible()) {
        remark = IsColumnShown(session_, &Looks::PieceColumn)
                     ? "The pieces make way for the search: Esc in its line ends it."
                     : "The columns are folded away: F9 brings them back.";
        control_ = &drawing_;
    }
    bubble_->Tell(last ? "Done" : QString("Step %1 of %2").arg(stop.Step).arg(TourSteps), Shown(stop.Text), remark,
                  last);
    Stand();
}

void Tour::Watch(QWidget* control) {
    if (watched_ == control) return;
    // A column that scrolls moves what the control stands in.
    for (QWidget* part = watched_; part != nullptr && part != &window_; part = part->parentWidget())
        part->removeEventFilter(this);
    watched_ = control;
    for (QWidget* part = control; part != nullptr && part != &window_; part = part->parentWidget()) {
        part->installEventFilter(this);
        if (auto* const scrolled = qobject_cast<QScrollArea*>(part)) scrolled->ensureWidgetVisible(control);
    }
    if (bubble_) drawing_.installEventFilter(this); // it may have been the one before
}

int Tour::HiddenBy(const QRect& bubble) const {
    const QRectF place(bubble.translated(-PlaceOf(drawing_).topLeft()));
    constexpr int legend = 100000; // more than all that may be laid
    const QRectF around = place.adjusted(-RoomForNext, -RoomForNext, RoomForNext, RoomForNext);
    const auto corners =
        std::ranges::count_if(drawing_.PlacesOfCorners(), [&](QPointF corner) { return around.contains(corner); });
    return static_cast<int>(corners) + (place.intersects(drawing_.PlaceOfLegend()) ? legend : 0);
}

QRect Tour::PlaceOfBubble(const QRect& ring) const {
    const QRect room = PlaceOf(drawing_);
    const bool right = ring.left() > room.right();
    const bool low = control_ != &drawing_ && ring.center().y() > room.center().y();
    std::array corners{Qt::TopLeftCorner, Qt::BottomLeftCorner, Qt::TopRightCorner, Qt::BottomRightCorner};
    // Of those that hide as little, the one at whose side the control is.
    std::ranges::sort(corners, {},
                      [&](Qt::Corner corner) { return std::pair(IsRight(corner) != right, IsLow(corner) != low); });
    const auto hidden = [&](Qt::Corner corner) { return HiddenBy(bubble_->PlaceIn(room, corner)); };
    return bubble_->PlaceIn(room, *std::ranges::min_element(corners, {}, hidden));
}

void Tour::Stand() {
    if (!bubble_ || !control_) return;
    const QRect ring = PlaceOf(*control_).adjusted(-RingRoom, -RingRoom, RingRoom, RingRoom);
    bubble_->FitWords();
    bubble_->move(PlaceOfBubble(ring).topLeft());
    ring_->setGeometry(ring);
    ring_->setVisible(control_ != &drawing_ && !control_->visibleRegion().isEmpty());
    ring_->raise();
    bubble_->show();
    bubble_->raise();
}

bool Tour::eventFilter(QObject*, QEvent* event) {
    const bool moves = event->type() == QEvent::Resize || event->type() == QEvent::Move;
    if (moves || event->type() == QEvent::Show || event->type() == QEvent::Hide)
        QTimer::singleShot(0, this, [this] { Refresh(); });
    return false;
}

} // namespace pistaro
