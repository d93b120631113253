#include "ui/strip.h"

#include "editor/view_commands.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace pistaro {

Strip::Strip(const char* name, Session& session, CircuitView& view, const char* overlay)
    : session_(session), view_(view), overlay_(overlay) {
    setObjectName(name);
    setAutoFillBackground(true);
    hide();
}

void Strip::Open() {
    show();
    viewBefore_ = viewShown_ = session_.Project.Design.View;
}

void Strip::Leave() {
    hide();
    if (session_.Project.Design.View == viewShown_) session_.Do([&] { session_.Project.Design.View = *viewBefore_; });
}

void Strip::BringIntoSight(const GroundBox& box) {
    if (session_.Project.Design.View != viewShown_) viewBefore_ = session_.Project.Design.View; // moved by the user
    constexpr double around = 10;                                                               // cm
    const GroundBox shown = box.Grown(around);
    ViewSettings view = *viewBefore_;
    const double side = std::max(shown.Right - shown.Left, shown.Top - shown.Bottom);
    if (side > double{view.Width}) view.Width = static_cast<float>(std::ceil(side));
    FollowTo(view, shown, view_.Frame().Covered(view));
    session_.Do([&] { session_.Project.Design.View = view; });
    viewShown_ = view;
}

QLayout* Strip::Head(QLabel& text, QPushButton& accept, QPushButton& leave) {
    leave.setToolTip("Change nothing, as Esc does");
    connect(&accept, &QPushButton::clicked, this, [this] { Accept(); });
    connect(&leave, &QPushButton::clicked, this, [this] { Leave(); });
    auto* const row = new QHBoxLayout;
    text.setWordWrap(true);
    row->addWidget(&text, 1);
    for (QPushButton* const button : {&accept, &leave}) {
        button->setAutoDefault(true); // Enter presses the one that has the focus
        row->addWidget(button, 0, Qt::AlignTop);
    }
    return row;
}

bool Strip::TakesKey(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Accept();
        return true;
    case Qt::Key_Escape:
        Leave();
        return true;
    default:
        return false;
    }
}

/// Keys that its boxes leave alone.
void Strip::keyPressEvent(QKeyEvent* event) {
    if (!TakesKey(event->key())) QWidget::keyPressEvent(event);
}

void Strip::hideEvent(QHideEvent*) {
    ShowNothingAbove();
    view_.setFocus();
}

} // namespace pistaro
