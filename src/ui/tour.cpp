#include "ui/tour.h"

#include "ui/named_controls.h"

#include <QEvent>
#include <QPainter>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace pistaro {

namespace {

constexpr int Padding = 12;
constexpr int RingRoom = 4; ///< between the ring and its control
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

void TourBubble::StandIn(const QRect& place, Qt::Corner corner) {
    layout()->activate();
    const int width = layout()->sizeHint().width();
    resize(width, layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : layout()->sizeHint().height());
    QRect stand(QPoint(), size());
    const QRect inside = place.adjusted(Padding, Padding, -Padding, -Padding);
    const bool right = corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner;
    const bool bottom = corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner;
    right ? stand.moveRight(inside.right()) : stand.moveLeft(inside.left());
    bottom ? stand.moveBottom(inside.bottom()) : stand.moveTop(inside.top());
    move(stand.topLeft());
}

void TourBubble::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Accent, 2));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
}

Tour::Tour(Session& session, QWidget& window, QWidget& drawing)
    : QObject(&window), session_(session), window_(window), drawing_(drawing) {}

void Tour::Begin() {
    End();
    bubble_ = new TourBubble(window_, [this] { End(); });
    ring_ = new TourRing(window_);
    drawing_.installEventFilter(this);
    drawing_.setFocus();                                // digits typed go to no line and no list
    QTimer::singleShot(0, this, [this] { Refresh(); }); // when the columns have been laid out
}

void Tour::End() {
    drawing_.removeEventFilter(this);
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
    if (control_ != nullptr && !control_->isVisible()) {
        remark = session_.Looks.Columns ? "The pieces make way for the search: Esc in its line ends it."
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

void Tour::Stand() {
    if (!bubble_ || !control_) return;
    const QRect room = PlaceOf(drawing_);
    const QRect ring = PlaceOf(*control_).adjusted(-RingRoom, -RingRoom, RingRoom, RingRoom);
    const bool right = ring.left() > room.right();
    const bool low = control_ != &drawing_ && ring.center().y() > room.center().y();
    bubble_->StandIn(room, right ? (low ? Qt::BottomRightCorner : Qt::TopRightCorner)
                                 : (low ? Qt::BottomLeftCorner : Qt::TopLeftCorner));
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
