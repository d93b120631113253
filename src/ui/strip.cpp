#include "ui/strip.h"

#include <QKeyEvent>

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
    if (Turned) Turned();
}

void Strip::Leave() {
    hide();
    if (session_.Project.Design.View == viewShown_) session_.Do([&] { session_.Project.Design.View = *viewBefore_; });
}

void Strip::BringIntoSight(const GroundBox& box) {
    if (session_.Project.Design.View != viewShown_) viewBefore_ = session_.Project.Design.View; // moved by the user
    const ViewSettings view = view_.ViewWith(box, *viewBefore_);
    session_.Do([&] { session_.Project.Design.View = view; });
    viewShown_ = view;
}

QHBoxLayout* Strip::Head(QLabel& text, QPushButton& accept, QPushButton& leave) {
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
    if (Turned) Turned();
}

} // namespace pistaro
