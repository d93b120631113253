#include "ui/tour.h"

#include "ui/named_controls.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int Arrow = 12;
constexpr int Padding = 12;
constexpr int TextWidth = 250;
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

QLabel* NewText(const char* name) {
    auto* const label = Named(new QLabel, name);
    label->setWordWrap(true);
    label->setFixedWidth(TextWidth);
    return label;
}

} // namespace

TourBubble::TourBubble(QWidget& window, const std::function<void()>& ended)
    : QWidget(&window), lblTourStep_(NewText("lblTourStep")), lblTour_(NewText("lblTour")),
      lblTourRemark_(NewText("lblTourRemark")), cmdEndTour_(NewButton("cmdEndTour", "End Tour")) {
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
    column->addWidget(cmdEndTour_, 0, Qt::AlignRight);
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

void TourBubble::Fit(Side side) {
    side_ = side;
    const auto room = [&](Side of) { return Padding + (side == of ? Arrow : 0); };
    layout()->setContentsMargins(room(Side::Left), Padding, room(Side::Right), room(Side::Bottom));
    layout()->activate();
    const int width = layout()->sizeHint().width();
    resize(width, layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : layout()->sizeHint().height());
}

void TourBubble::PointTo(const QRect& place) {
    const QRect window = parentWidget()->rect();
    Fit(Side::Left);
    QPoint corner(place.right() + 1, place.center().y() - height() / 2);
    if (place.bottom() > window.bottom() - 40) { // the line at the window's foot
        Fit(Side::Bottom);
        corner = QPoint(place.left(), place.top() - height());
    } else if (corner.x() + width() > window.right()) {
        Fit(Side::Right);
        corner.setX(place.left() - width());
    }
    corner.setX(std::clamp(corner.x(), 0, std::max(0, window.width() - width())));
    corner.setY(std::clamp(corner.y(), 0, std::max(0, window.height() - height())));
    move(corner);
    const QPoint middle = place.center() - corner;
    tip_ = side_ == Side::Left    ? QPoint(0, middle.y())
           : side_ == Side::Right ? QPoint(width(), middle.y())
                                  : QPoint(std::min(middle.x(), width() / 2), height());
    update();
}

void TourBubble::StandIn(const QRect& place) {
    Fit(Side::None);
    move(place.topLeft() + QPoint(Padding, Padding));
    update();
}

void TourBubble::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(side_ == Side::Left ? Arrow : 1, 1, side_ == Side::Right ? -Arrow : -1,
                                                side_ == Side::Bottom ? -Arrow : -1);
    QPainterPath shape;
    shape.addRoundedRect(body, 8, 8);
    if (side_ != Side::None) {
        const QPointF across = side_ == Side::Bottom ? QPointF(Arrow * 0.7, 0) : QPointF(0, Arrow * 0.7);
        const QPointF foot(std::clamp(double(tip_.x()), body.left() + 2, body.right() - 2),
                           std::clamp(double(tip_.y()), body.top() + 2, body.bottom() - 2));
        QPainterPath arrow;
        arrow.addPolygon(QPolygonF{QPointF(tip_), foot - across, foot + across});
        arrow.closeSubpath();
        shape = shape.united(arrow);
    }
    painter.setPen(QPen(Accent, 2));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawPath(shape);
}

Tour::Tour(Session& session, QWidget& window, std::function<int()> times)
    : QObject(&window), session_(session), window_(window), times_(std::move(times)) {}

void Tour::Begin() {
    End();
    bubble_ = new TourBubble(window_, [this] { End(); });
    ring_ = new TourRing(window_);
    window_.installEventFilter(this);
    window_.findChild<QWidget*>("picCircuit")->setFocus(); // digits typed go to no line and no list
    QTimer::singleShot(0, this, [this] { Refresh(); });    // when the columns have been laid out
}

void Tour::End() {
    window_.removeEventFilter(this);
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
    const TourStop stop = TourStopOf(session_.Project, times_());
    const bool last = stop.Step > TourSteps;
    QString remark = Shown(stop.Remark);
    control_ = ControlOf(stop);
    Watch(control_);
    if (control_ != nullptr && !control_->isVisible()) {
        remark = session_.Looks.Columns ? "The pieces make way for the search: Esc in its line ends it."
                                        : "The columns are folded away: F9 brings them back.";
        control_ = ControlOf({.Control = "picCircuit"});
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
}

void Tour::Stand() {
    if (!bubble_ || !control_) return;
    const QRect place(control_->mapTo(&window_, QPoint()), control_->size());
    const bool isDrawing = control_->objectName() == "picCircuit";
    isDrawing ? bubble_->StandIn(place) : bubble_->PointTo(place.adjusted(-4, -4, 4, 4));
    ring_->setGeometry(place.adjusted(-4, -4, 4, 4));
    ring_->setVisible(!isDrawing && !control_->visibleRegion().isEmpty());
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
