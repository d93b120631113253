#include "ui/job_bar.h"

#include "ui/named_controls.h"

#include <QHBoxLayout>
#include <QMetaObject>

namespace pistaro {

namespace {

constexpr int BarMargin = 24; ///< on both sides of the text

} // namespace

JobBar::JobBar(Session& session, CommandControls& controls)
    : session_(session), prgJob_(Named(new QProgressBar, "prgJob")) {
    auto* const cmdCancelJob = new QToolButton;
    controls.Bind(*cmdCancelJob, "cancel job");
    prgJob_->setFormat("Drawing the guide: %v of %m");
    prgJob_->setFixedWidth(prgJob_->fontMetrics().horizontalAdvance("Drawing the guide: 100 of 100") + 2 * BarMargin);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(prgJob_);
    row->addWidget(cmdCancelJob);
    session_.RunJobsBeside(
        [this](std::function<void()> call) { QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection); },
        [this](int done, int total) {
            prgJob_->setMaximum(total);
            prgJob_->setValue(done);
        });
    hide();
}

void JobBar::Refresh() {
    const bool runs = session_.HasJob();
    if (runs && isHidden()) prgJob_->reset();
    setVisible(runs);
}

} // namespace pistaro
